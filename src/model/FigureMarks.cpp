#include "model/FigureMarks.h"

#include <cmath>
#include <utility>

#include "model/Project.h"

namespace velna {

namespace {

/// Marks along the aircraft's axis in one drawing.
class Marks {
public:
    Marks(const Project& project, MarkView view, const Transform& at)
        : unit_(project.units == inches ? Plane::millimetresPerInch : 1), view_(view), at_(at) {
        if (view == MarkView::Side && project.nbWings > 0 && project.Wings.size() > 0)
            height_ = project.Wings(1).elevation1;
    }

    /// A line between two places given by how far they lie along the aircraft, in mm, and from
    /// there along and across the drawing.
    void add(double x1, Point2D from, double x2, Point2D to, bool range) {
        const MarkLine line{place(x1, from), place(x2, to), range};
        for (const Point2D& end : {line.from, line.to})
            if (!std::isfinite(end.x) || !std::isfinite(end.y)) return;
        lines_.push_back(line);
    }

    std::vector<MarkLine> lines() { return std::move(lines_); }

private:
    Point2D place(double x, Point2D by) const {
        const double along = x / unit_ * at_.zoom;
        if (view_ == MarkView::NoseUp) return {at_.xoff + by.y, along + at_.yoff + by.x};
        return {along + at_.xoff + by.x, -height_ * at_.zoom + at_.yoff + by.y};
    }

    double unit_;
    MarkView view_;
    Transform at_;
    double height_ = 0;
    std::vector<MarkLine> lines_;
};

}  // namespace

std::vector<MarkLine> figureMarks(const Project& project, const Figures& figures, MarkView view,
                                  const Transform& at, double size) {
    Marks marks(project, view, at);
    if (const Figure& quarter = figures.wing.quarterX) {
        const Point2D corners[] = {{-size, 0}, {0, size}, {size, 0}, {0, -size}, {-size, 0}};
        for (int i = 0; i < 4; ++i)
            marks.add(*quarter, corners[i], *quarter, corners[i + 1], false);
    }
    const Figure& forward = figures.balance.margin15X;
    const Figure& rear = figures.balance.margin5X;
    if (forward && rear) {
        marks.add(*forward, {0, 0}, *rear, {0, 0}, true);
        for (const double end : {*forward, *rear})
            marks.add(end, {0, -2 * size}, end, {0, 2 * size}, true);
    }
    return marks.lines();
}

}  // namespace velna
