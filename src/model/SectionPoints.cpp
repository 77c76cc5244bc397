#include "model/SectionPoints.h"

#include <array>
#include <bit>
#include <cmath>
#include <limits>

namespace velna {
namespace {

constexpr double alike = 1e-6;      // millimetres
constexpr double cell = 2 * alike;  // so that what is near lies in this cell or the next
constexpr std::uint32_t none = std::numeric_limits<std::uint32_t>::max();

bool near(const Point2D& a, const Point2D& b) {
    return std::abs(a.x - b.x) < alike && std::abs(a.y - b.y) < alike;
}

/// The cell of a coordinate, and the nearer one beside it.
std::array<std::int64_t, 2> cells(double value) {
    const double place = value / cell;
    const double floor = std::floor(place);
    const auto own = static_cast<std::int64_t>(floor);
    return {own, place - floor < 0.5 ? own - 1 : own + 1};
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
    const auto xs = cells(point.x);
    const auto ys = cells(point.y);
    for (const std::int64_t x : xs) {
        for (const std::int64_t y : ys) {
            for (std::uint32_t other = buckets_[bucket(x, y)]; other != none;
                 other = nextInBucket_[other])
                if (near(points[other], point)) return other;
        }
    }
    std::uint32_t& first = buckets_[bucket(xs[0], ys[0])];
    nextInBucket_[place] = first;
    first = place;
    return place;
}

const std::vector<std::uint32_t>& SectionPoints::take(const std::vector<Point2D>& points) {
    const std::size_t count = points.size();
    buckets_.assign(std::bit_ceil(2 * count + 1), none);
    nextInBucket_.assign(count, none);
    first_.resize(count);
    for (std::uint32_t place = 0; place < count; ++place) first_[place] = find(points, place);
    return first_;
}

}  // namespace velna
