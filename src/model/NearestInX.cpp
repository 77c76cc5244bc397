#include "model/NearestInX.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <functional>
#include <numeric>
#include <tuple>

namespace velna {

NearestInX::NearestInX(const Array1<Point3D>& points, int count)
    : points_(points),
      byX_(static_cast<std::size_t>(count)),
      places_(byX_.size() + 1),
      leaves_(std::bit_ceil(std::max<std::size_t>(byX_.size(), 1))),
      tree_(2 * leaves_) {
    std::iota(byX_.begin(), byX_.end(), 1);
    std::sort(byX_.begin(), byX_.end(), [&points](int a, int b) {
        return std::tie(points(a).x, a) < std::tie(points(b).x, b);
    });
    for (std::size_t place = 0; place < byX_.size(); ++place) {
        places_[static_cast<std::size_t>(byX_[place])] = place;
        tree_[leaves_ + place].point = byX_[place];
    }
    for (std::size_t node = leaves_ - 1; node > 0; --node)
        tree_[node] = join(tree_[2 * node], tree_[2 * node + 1]);
}

NearestInX::Firsts NearestInX::join(const Firsts& one, const Firsts& other) const {
    const bool inOrder = one.point < other.point;
    const Firsts& first = inOrder ? one : other;
    const Firsts& second = inOrder ? other : one;
    if (first.point == none) return {};
    return {first.point, std::min(first.otherHeight, pick(second, points_(first.point).z))};
}

int NearestInX::pick(const Firsts& firsts, std::optional<double> height) const {
    if (firsts.point == none || !height || points_(firsts.point).z != *height) return firsts.point;
    return firsts.otherHeight;
}

void NearestInX::remove(int i) {
    std::size_t node = leaves_ + places_[static_cast<std::size_t>(i)];
    tree_[node] = {};
    while ((node /= 2) > 0) tree_[node] = join(tree_[2 * node], tree_[2 * node + 1]);
}

double NearestInX::distance(int i, int other) const {
    return std::abs(points_(other).x - points_(i).x);
}

/// The next point in the order of x on one side of `place`.
int NearestInX::neighbour(std::size_t place, bool right, std::optional<double> height) const {
    std::size_t node = leaves_ + place;
    do {
        while (node > 1 && node % 2 == (right ? 1 : 0)) node /= 2;
        if (node <= 1) return none;
        node ^= 1;
    } while (pick(tree_[node], height) == none);
    while (node < leaves_) {
        node = 2 * node + (right ? 0 : 1);
        if (pick(tree_[node], height) == none) node ^= 1;
    }
    return byX_[node - leaves_];
}

/// The first point not farther from point `i` than `reach`. Differences are rounded, and so points
/// of many x may have the same distance.
int NearestInX::firstWithin(int i, double reach, std::optional<double> height) const {
    const auto own =
        byX_.begin() + static_cast<std::ptrdiff_t>(places_[static_cast<std::size_t>(i)]);
    const auto within = [&](int other) { return distance(i, other) <= reach; };
    const auto from = std::partition_point(byX_.begin(), own, std::not_fn(within));
    const auto to = std::partition_point(own, byX_.end(), within);
    int first = none;
    auto low = leaves_ + static_cast<std::size_t>(from - byX_.begin());
    auto high = leaves_ + static_cast<std::size_t>(to - byX_.begin());
    for (; low < high; low /= 2, high /= 2) {
        if (low % 2 == 1) first = std::min(first, pick(tree_[low++], height));
        if (high % 2 == 1) first = std::min(first, pick(tree_[--high], height));
    }
    return first;
}

int NearestInX::nearest(int i, double limit, std::optional<double> height) const {
    const std::size_t place = places_[static_cast<std::size_t>(i)];
    double reach = limit;
    for (const bool right : {false, true}) {
        const int other = neighbour(place, right, height);
        if (other != none) reach = std::min(reach, distance(i, other));
    }
    return reach < limit ? firstWithin(i, reach, height) : none;
}

}  // namespace velna
