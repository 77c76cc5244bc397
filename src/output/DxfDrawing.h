#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "common/Outcome.h"
#include "common/Point.h"
#include "common/Progress.h"
#include "common/ReplacedFile.h"
#include "output/Rows.h"

namespace velna {

/// The signs that view coordinates get on their way into a drawing. View y grows downward; the
/// drawing's grows upward.
struct DxfSigns {
    double x = 1;
    double y = -1;
};

inline constexpr DxfSigns dxfUpright{1, -1};
/// The other half of the aircraft.
inline constexpr DxfSigns dxfMirrored{-1, -1};

/// A DXF drawing being written: one ENTITIES section of lines, nothing else. A layer exists by
/// being named on a line. All coordinates in the project's unit.
class DxfDrawing {
public:
    /// Opens the drawing; `expectedLines` is for `watcher`, who watches the work.
    DxfDrawing(const std::string& fileName, long long expectedLines, Progress* watcher = nullptr);

    /// The current point between `dxfLineTo` calls.
    const Point3D& dxfPen() const { return pen_; }

    /// The head of the frame.
    void dxfBegin();
    /// The end of the frame; the drawing takes the place of the old file unless it is cancelled or
    /// has failed.
    Outcome dxfEnd();
    void dxfLine(const Point3D& from, const Point3D& to, std::string_view layer);
    /// With `draw` a line from the pen; in any case the pen is at `to` afterwards.
    void dxfLineTo(const Point3D& to, bool draw, std::string_view layer);
    /// The lines along `points`, z 0.
    void polyline(std::span<const Point2D> points, DxfSigns signs, std::string_view layer);
    /// The same and back to the first point; no points give no line.
    void closedPolyline(std::span<const Point2D> points, DxfSigns signs, std::string_view layer);

    /// Neither cancelled nor failed: what is drawn from now on still matters.
    bool wanted() const { return !work_.cancelled() && file_.error().empty(); }

private:
    /// A line from the step before to this one, on a layer of `layers_`; or a way without a line.
    struct Step {
        Point3D to;
        std::size_t layer;
    };

    void text(std::string_view code, std::string_view value);
    std::size_t layerNumber(std::string_view layer);
    char* format(char* at, std::size_t first, std::size_t last) const;
    void writeSteps();

    ReplacedFile file_;
    Work work_;
    Rows rows_;
    Point3D pen_;
    bool penDown_ = false;  ///< whether the last step ended at the pen
    std::vector<Step> steps_;
    std::vector<std::string> layers_;  ///< what stands before the coordinates of a line on each
    std::string layer_;                ///< the last one's name
    std::size_t longestLine_ = 0;
    std::size_t mostSteps_ = 0;
};

}  // namespace velna
