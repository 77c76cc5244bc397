#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "common/Point.h"

namespace velna {

/// Finds which points of a section are one: those nearer than 1e-6 mm in each coordinate.
class SectionPoints {
public:
    /// For each point the place of the first one that it is one with: its own for most.
    const std::vector<std::uint32_t>& take(const std::vector<Point2D>& points);
    /// The same of the points taken last.
    const std::vector<std::uint32_t>& first() const { return first_; }
    /// Whether none of them is one with another.
    bool allDiffer() const { return allDiffer_; }

private:
    std::uint32_t find(const std::vector<Point2D>& points, std::uint32_t place);
    std::size_t bucket(std::int64_t x, std::int64_t y) const;

    std::vector<std::uint32_t> buckets_;
    std::vector<std::uint32_t> nextInBucket_;
    std::vector<std::uint32_t> first_;
    bool allDiffer_ = true;
};

}  // namespace velna
