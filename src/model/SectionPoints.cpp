#include "model/SectionPoints.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <limits>
#include <numeric>

namespace velna {
namespace {

constexpr double alike = 1e-6;  // millimetres
/// Cells a millimetre: a power of two, so that a place in its cell is exact. So few points lie near
/// the border of one that mostly no second one is looked at, and only so many fit into one.
constexpr double cells = 65536;
constexpr double border = 0.07;  // of a cell: more than what is alike
static_assert(border > alike * cells);
constexpr std::uint32_t none = std::numeric_limits<std::uint32_t>::max();

bool near(const Point2D& a, const Point2D& b) {
    return std::abs(a.x - b.x) < alike && std::abs(a.y - b.y) < alike;
}

/// The cells where what is near to a coordinate can lie: its own first, mostly alone.
struct NearCells {
    std::array<std::int64_t, 2> cell;
    std::size_t count = 1;

    explicit NearCells(double value) : cell{} {
        const double place = value * cells;
        auto own = static_cast<std::int64_t>(place);
        if (static_cast<double>(own) > place) --own;
        const double inCell = place - static_cast<double>(own);
        cell[0] = own;
        if (inCell > border && inCell < 1 - border) return;
        cell[1] = inCell <= border ? own - 1 : own + 1;
        count = 2;
    }
};

/// Whether the outline goes once to the right and once back in steps that keep its points apart,
/// and no point of the one way is near to one of the other: most sections do, and need no table.
/// Where the two ways lie but `window` apart the points themselves tell.
bool clearlyDiffer(const std::vector<Point2D>& points) {
    if (points.size() < 3) return false;
    constexpr double window = 2 * alike;
    const auto ends = std::ranges::minmax_element(points, {}, &Point2D::x);
    const auto* const first = points.data();
    const auto* const last = first + points.size() - 1;
    const auto* const right = &*ends.max;
    const auto next = [=](const Point2D* at) { return at == last ? first : at + 1; };
    const auto former = [=](const Point2D* at) { return at == first ? last : at - 1; };
    const Point2D* back = &*ends.min;  // on the way back, seen from its end
    for (const Point2D* at = back; at != right; at = next(at)) {
        if (!(next(at)->x - at->x >= alike)) return false;
        // The points of the way back that lie below and above this one.
        for (; back != right && back->x <= at->x - window; back = former(back))
            if (!(former(back)->x - back->x >= alike)) return false;
        if (at == &*ends.min) continue;
        for (const Point2D* other = back; other->x < at->x + window; other = former(other))
            if (other == right || near(*other, *at)) return false;
    }
    for (; back != right; back = former(back))
        if (!(former(back)->x - back->x >= alike)) return false;
    return true;
}

}  // namespace

std::size_t SectionPoints::bucket(std::int64_t x, std::int64_t y) const {
    const auto mixed = static_cast<std::uint64_t>(x) * 0x9E3779B97F4A7C15U ^
                       static_cast<std::uint64_t>(y) * 0xC2B2AE3D27D4EB4FU;
    return (mixed ^ mixed >> 32U) & (buckets_.size() - 1);
}

/// The first point near this one that stands in the table; else this one, which then does.
std::uint32_t SectionPoints::find(const std::vector<Point2D>& points, std::uint32_t place) {
    const Point2D& point = points[place];
    const NearCells xs(point.x);
    const NearCells ys(point.y);
    std::uint32_t first = place;
    for (std::size_t x = 0; x < xs.count; ++x) {
        for (std::size_t y = 0; y < ys.count; ++y) {
            for (std::uint32_t other = buckets_[bucket(xs.cell[x], ys.cell[y])]; other != none;
                 other = nextInBucket_[other])
                if (other < first && near(points[other], point)) first = other;
        }
    }
    if (first != place) return first;
    std::uint32_t& newest = buckets_[bucket(xs.cell[0], ys.cell[0])];
    nextInBucket_[place] = newest;
    newest = place;
    return place;
}

const std::vector<std::uint32_t>& SectionPoints::take(const std::vector<Point2D>& points) {
    const std::size_t count = points.size();
    allDiffer_ = clearlyDiffer(points);
    if (allDiffer_) {
        first_.resize(count);
        std::iota(first_.begin(), first_.end(), std::uint32_t{0});
        return first_;
    }
    buckets_.assign(std::bit_ceil(2 * count + 1), none);
    nextInBucket_.assign(count, none);
    first_.resize(count);
    allDiffer_ = true;
    for (std::uint32_t place = 0; place < count; ++place) {
        first_[place] = find(points, place);
        allDiffer_ = allDiffer_ && first_[place] == place;
    }
    return first_;
}

}  // namespace velna
