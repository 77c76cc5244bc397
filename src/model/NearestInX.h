#pragma once

#include <cstddef>
#include <limits>
#include <optional>
#include <vector>

#include "common/List.h"
#include "common/Point.h"

namespace velna {

/// The points of a profile, to be asked for the nearest one in x. In an outline the answer lies
/// beside the point; where many are tied, a question costs a number of steps that grows with the
/// logarithm of the number of points.
class NearestInX {
public:
    static constexpr int none = std::numeric_limits<int>::max();

    /// Points 1 to `count` of `points`, which must outlive it and keep their numbers.
    NearestInX(const Array1<Point3D>& points, int count);

    /// Leaves point `i` out from now on; each is left out once.
    void remove(int i);

    /// The point nearest in x to point `i`, of those that are not left out and, where a `height` is
    /// given, lie at another one; the first of several at the same rounded distance. `none` where
    /// none is nearer than `limit`.
    int nearest(int i, double limit, std::optional<double> height = {});
    double distance(int i, int other) const;

private:
    /// Of the points below a node of the tree: the first, and the first at another height than that
    /// one's.
    struct Firsts {
        int point = none;
        int otherHeight = none;
    };
    /// The nearest point on one side, the first of several as near.
    struct Found {
        int point = none;
        double distance;
    };
    /// A place in the order of x, and those beside it that are not left out. Where one itself is
    /// left out, its neighbours are those of that time.
    struct Links {
        std::size_t left;
        std::size_t right;
        bool leftOut = false;
    };

    void sortByX();
    std::size_t placeOf(int i) const { return places_[static_cast<std::size_t>(i)]; }
    std::optional<Found> walk(int i, bool right, double limit, std::optional<double> height) const;
    void growTree();
    Firsts join(const Firsts& one, const Firsts& other) const;
    int pick(const Firsts& firsts, std::optional<double> height) const;
    int neighbour(std::size_t place, bool right, std::optional<double> height) const;
    int firstWithin(int i, double reach, std::optional<double> height) const;
    int nearestInTree(int i, double limit, std::optional<double> height);

    const Array1<Point3D>& points_;
    std::vector<int> byX_;             // the points in the order of x
    std::vector<std::size_t> places_;  // where each stands in that order, counted from 1
    std::vector<Links> links_;         // by place; 0 and the last one are no points
    std::size_t leaves_ = 1;
    std::vector<Firsts> tree_;  // a heap: node k has the children 2 k and 2 k + 1; empty at first
};

}  // namespace velna
