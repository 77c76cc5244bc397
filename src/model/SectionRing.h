#pragma once

#include <vector>

#include "model/FigureReal.h"
#include "model/SuperEllipse.h"

namespace velna {

class MeshSections;

/// The outlines of a body's sections as its mesh has them, one after the other, each from its own
/// lowest point and the body's middle plane: places far from the origin cost no digits. The point
/// that no formula sets when the number of points is odd is left out.
class SectionRing {
public:
    /// Closed: the last point is the first again.
    struct Points {
        std::vector<double> y;
        std::vector<double> z;
    };

    /// A power of 2 of the size of the body's largest outline: with lengths by it, products neither
    /// overflow nor vanish.
    static Real scaleOf(const MeshSections& body);
    /// The same for the sections in ordered places `first` to `last` alone.
    static Real scaleOf(const MeshSections& body, int first, int last);

    /// `body`, which has two outline points or more, must outlive this; lengths come by `scale`.
    SectionRing(const MeshSections& body, Real scale);

    /// The section in ordered place `i`, which there must be.
    void collect(int i, Points& points);

private:
    /// What of a section's numbers the points of one half are made of.
    struct Half {
        double halfWidth;
        double rise;
        double base;
    };

    static void write(const SuperEllipse& ellipse, std::size_t slot, const Half& half,
                      Points& points);

    const MeshSections& body_;
    Real scale_;
    SuperEllipse upper_;
    SuperEllipse lower_;
    std::size_t oppositeSlot_;
    std::size_t lowerSlot_;
    std::size_t size_;
};

}  // namespace velna
