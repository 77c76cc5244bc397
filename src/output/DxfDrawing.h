#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>

#include "common/Outcome.h"
#include "common/Point.h"
#include "common/ReplacedFile.h"
#include "output/Progress.h"

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
    /// The number lines of a point, formatted once: the end of one line is the start of the next.
    using NumberLines = std::array<std::string, 3>;

    void text(std::string_view code, std::string_view value);
    void coordinates(const NumberLines& lines, const std::array<std::string_view, 3>& codes);
    void entity(const NumberLines& from, const NumberLines& to, std::string_view layer);

    ReplacedFile file_;
    Work work_;
    Point3D pen_;
    NumberLines penLines_;
    NumberLines endLines_;
};

}  // namespace velna
