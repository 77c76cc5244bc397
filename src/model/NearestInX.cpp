#include "model/NearestInX.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <functional>
#include <numeric>
#include <tuple>
#include <utility>

namespace velna {

NearestInX::NearestInX(const Array1<Point3D>& points, int count)
    : points_(points), byX_(static_cast<std::size_t>(count)), places_(byX_.size() + 1) {
    sortByX();
    links_.reserve(byX_.size() + 2);
    links_.push_back({0, 1, true});
    for (std::size_t place = 1; place <= byX_.size(); ++place) {
        places_[static_cast<std::size_t>(byX_[place - 1])] = place;
        links_.push_back({place - 1, place + 1});
    }
    links_.push_back({byX_.size(), byX_.size() + 1, true});
}

/// An outline runs along x and back: its two runs need only be merged.
void NearestInX::sortByX() {
    const auto before = [this](int a, int b) {
        return std::tie(points_(a).x, a) < std::tie(points_(b).x, b);
    };
    std::iota(byX_.begin(), byX_.end(), 1);
    std::vector<std::ptrdiff_t> ends{0};
    for (auto begin = byX_.begin(); begin != byX_.end();) {
        auto end = std::is_sorted_until(begin, byX_.end(), before);
        if (end - begin == 1) {
            end = std::is_sorted_until(begin, byX_.end(), std::not_fn(before));
            std::reverse(begin, end);
        }
        begin = end;
        ends.push_back(end - byX_.begin());
    }
    while (ends.size() > 2) {
        std::vector<std::ptrdiff_t> merged{0};
        for (std::size_t run = 2; run < ends.size(); run += 2) {
            std::inplace_merge(byX_.begin() + ends[run - 2], byX_.begin() + ends[run - 1],
                               byX_.begin() + ends[run], before);
            merged.push_back(ends[run]);
        }
        if (merged.back() != ends.back()) merged.push_back(ends.back());
        ends = std::move(merged);
    }
}

void NearestInX::remove(int i) {
    Links& links = links_[placeOf(i)];
    links.leftOut = true;
    links_[links.left].right = links.right;
    links_[links.right].left = links.left;
    if (tree_.empty()) return;
    std::size_t node = leaves_ + placeOf(i) - 1;
    tree_[node] = {};
    while ((node /= 2) > 0) tree_[node] = join(tree_[2 * node], tree_[2 * node + 1]);
}

double NearestInX::distance(int i, int other) const {
    return std::abs(points_(other).x - points_(i).x);
}

int NearestInX::nearest(int i, double limit, std::optional<double> height) {
    const auto left = walk(i, false, limit, height);
    const auto right = left ? walk(i, true, limit, height) : std::nullopt;
    if (!right) return nearestInTree(i, limit, height);
    if (left->distance == right->distance) return std::min(left->point, right->point);
    return left->distance < right->distance ? left->point : right->point;
}

/// Nothing where that takes more than a few steps: then many are tied, or of one height.
std::optional<NearestInX::Found> NearestInX::walk(int i, bool right, double limit,
                                                  std::optional<double> height) const {
    constexpr int patience = 16;
    Found found{none, limit};
    std::size_t place = placeOf(i);
    for (int steps = 0; steps < patience; ++steps) {
        place = right ? links_[place].right : links_[place].left;
        if (place == 0 || place > byX_.size()) return found;
        if (links_[place].leftOut) continue;
        const int other = byX_[place - 1];
        const double away = distance(i, other);
        if (away > found.distance || away >= limit) return found;
        if (height && points_(other).z == *height) continue;
        found = {std::min(found.point, other), away};
    }
    return std::nullopt;
}

void NearestInX::growTree() {
    leaves_ = std::bit_ceil(byX_.size());
    tree_.resize(2 * leaves_);
    for (std::size_t place = 1; place <= byX_.size(); ++place)
        if (!links_[place].leftOut) tree_[leaves_ + place - 1].point = byX_[place - 1];
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

/// The next point in the order of x on one side of `place`.
int NearestInX::neighbour(std::size_t place, bool right, std::optional<double> height) const {
    std::size_t node = leaves_ + place - 1;
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
    const auto own = byX_.begin() + static_cast<std::ptrdiff_t>(placeOf(i) - 1);
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

int NearestInX::nearestInTree(int i, double limit, std::optional<double> height) {
    if (tree_.empty()) growTree();
    double reach = limit;
    for (const bool right : {false, true}) {
        const int other = neighbour(placeOf(i), right, height);
        if (other != none) reach = std::min(reach, distance(i, other));
    }
    return reach < limit ? firstWithin(i, reach, height) : none;
}

}  // namespace velna
