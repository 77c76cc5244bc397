#pragma once

#include <vector>

#include "common/Point.h"
#include "model/SuperEllipse.h"
#include "model/Transform.h"

namespace velna {

class MeshSections;

/// The outlines of a body's sections as the front shows them, one after the other: what all have
/// in common is computed once.
class FrontOutline {
public:
    /// `body` must outlive this.
    FrontOutline(const MeshSections& body, const Transform& at);

    /// Writes the points of the section in ordered place `i`, which there must be, from `row[1]`. A
    /// coordinate that is not finite keeps what it was.
    void write(Point2D* row, int i);

    /// The used points of that section alone, with 0 for a coordinate that is not finite; none
    /// where there is no such section.
    void collect(int i, std::vector<Point2D>& section);

private:
    void place(Point2D& point, double y, double z) const;
    void writeHalf(Point2D* row, int k, const SuperEllipse& ellipse, double rise,
                   double base) const;

    const MeshSections& body_;
    Transform at_;
    double middle_;
    SuperEllipse upper_;
    SuperEllipse lower_;
    std::vector<Point2D> row_;
};

}  // namespace velna
