#pragma once

#include <cstddef>
#include <limits>
#include <optional>
#include <vector>

#include "common/List.h"
#include "common/Point.h"

namespace velna {

/// The points of a profile, to be asked for the nearest one in x. Each question costs a number of
/// steps that grows with the logarithm of the number of points, however they lie.
class NearestInX {
public:
    static constexpr int none = std::numeric_limits<int>::max();

    /// Points 1 to `count` of `points`, which must outlive it and keep their numbers.
    NearestInX(const Array1<Point3D>& points, int count);

    /// Leaves point `i` out from now on.
    void remove(int i);

    /// The point nearest in x to point `i`, of those that are not left out and, where a `height` is
    /// given, lie at another one; the first of several at the same rounded distance. `none` where
    /// none is nearer than `limit`.
    int nearest(int i, double limit, std::optional<double> height = {}) const;
    double distance(int i, int other) const;

private:
    /// Of the points below a node of the tree: the first, and the first at another height than that
    /// one's.
    struct Firsts {
        int point = none;
        int otherHeight = none;
    };

    Firsts join(const Firsts& one, const Firsts& other) const;
    int pick(const Firsts& firsts, std::optional<double> height) const;
    int neighbour(std::size_t place, bool right, std::optional<double> height) const;
    int firstWithin(int i, double reach, std::optional<double> height) const;

    const Array1<Point3D>& points_;
    std::vector<int> byX_;             // the points in the order of x
    std::vector<std::size_t> places_;  // where each stands in that order
    std::size_t leaves_ = 1;
    std::vector<Firsts> tree_;  // a heap: node k has the children 2 k and 2 k + 1
};

}  // namespace velna
