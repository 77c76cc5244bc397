#pragma once

#include <cstdint>
#include <vector>

#include "editor/Canvas.h"
#include "editor/Handles.h"
#include "model/Outlines.h"

namespace velna {

class MeshSections;

/// How a fuselage is drawn: the part that is lit, or what else stands for the whole.
enum class FuselageLook {
    bar,         ///< the bar of the lit section; plain where no section is lit
    topLine,     ///< and the two segments of the top line that meet there
    bottomLine,  ///< the same of the bottom line
    plusEdge,    ///< HTop: the same of the edge at +width / 2
    plain,
    other,   ///< dim: a fuselage that is not the current one
    erased,  ///< VTop: its old lines taken off
};

/// The argument of a draw that lights no section.
inline constexpr int noSection = -1;

/// A fuselage on the drawing surface: the outlines as they were computed last, which are also what
/// the pointer meets, and what the pointer does with it. The pointer's tests select the section
/// that they find.
class FuselageView {
public:
    Grip grip{.none = FuselagePart::none};
    double szoom = defaultEditorScale;  ///< scale of the section editor, pixels per length unit
    SideEdges side;
    HTopEdges htop;
    Array1<Point2D> vtopPoints;

    static constexpr double defaultEditorScale = 10;

    /// Takes the old lines off, computes the outline and draws it with section `lit` lit.
    void drawSide(const Canvas& canvas, const MeshSections& body, int lit, FuselageLook look);
    void drawHTop(const Canvas& canvas, const MeshSections& body, int lit, FuselageLook look);
    /// Take the lines of the last drawing off, as the draws do by themselves.
    void eraseSide(const Canvas& canvas, const MeshSections& body) const;
    void eraseHTop(const Canvas& canvas, const MeshSections& body) const;
    /// The outline as it was computed last.
    void drawVTop(const Canvas& canvas, const MeshSections& body, FuselageLook look) const;
    /// Computes what the Front view shows, the outline of the selected section alone.
    void computeFront(const Transform& at, const MeshSections& body);
    /// The outline of the selected section as it was computed last, dim; another section that has
    /// been selected since is computed at the scale of that time.
    void drawFront(const Canvas& canvas, const MeshSections& body);

    /// The part at a pixel, `FuselagePart::none` for none; the section found becomes `sel_sec`.
    /// Gaps between sections count with Ctrl.
    std::int32_t testPositionSide(MeshSections& body, const Pointer& pointer) const;
    std::int32_t testPositionHTop(MeshSections& body, const Pointer& pointer) const;
    std::int32_t testPositionVTop(const MeshSections& body, const Pointer& pointer) const;

    /// The press: the start values of a drag of the part in `grip.paint`.
    void initMouseValSide(MeshSections& body, bool shiftkey);
    void initMouseValHTop(MeshSections& body, bool shiftkey);
    void initMouseValVTop(MeshSections& body, bool shiftkey);

    /// A move: lights what is under the pointer, or drags what is grabbed.
    void selectsSide(const Canvas& canvas, MeshSections& body, const Pointer& pointer);
    void selectsHTop(const Canvas& canvas, MeshSections& body, const Pointer& pointer);
    void selectsVTop(const Canvas& canvas, MeshSections& body, const Pointer& pointer);

private:
    void hoverSide(const Canvas& canvas, MeshSections& body, const Pointer& pointer);
    void hoverHTop(const Canvas& canvas, MeshSections& body, const Pointer& pointer);
    void holdTop(MeshSections& body) const;

    /// The outline of one section in the Front view.
    struct FrontSection {
        Transform at;
        int section = noSection;
        int of = 0;  ///< how many sections the body had
        Array1<Point2D> points;
    };

    FrontSection front_;
    std::vector<Point2D> section_;  ///< of the last `drawFront`, kept for its memory
};

}  // namespace velna
