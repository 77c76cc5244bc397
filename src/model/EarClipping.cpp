// A simple outline with more than three points has an ear: a corner that bulges, and whose triangle
// holds no other point, not even on its border. What is left without it is simple again.

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <utility>

#include "common/Turn.h"
#include "model/PlaneOutline.h"

namespace velna {
namespace {

class EarClipping {
public:
    explicit EarClipping(PlaneOutline outline)
        : outline_(outline), next_(outline.size()), former_(outline.size()) {
        const auto n = static_cast<std::uint32_t>(outline.size());
        const auto first = static_cast<std::uint32_t>(std::distance(
            outline.begin(), std::ranges::min_element(outline, [](const auto& a, const auto& b) {
                return a.x != b.x ? a.x < b.x : a.y < b.y;
            })));
        leftTurning_ =
            turn(outline[(first + n - 1) % n], outline[first], outline[(first + 1) % n]) > 0;
        for (std::uint32_t i = 0; i < n; ++i) {
            next_[i] = leftTurning_ ? (i + 1) % n : (i + n - 1) % n;
            former_[i] = leftTurning_ ? (i + n - 1) % n : (i + 1) % n;
        }
        for (std::uint32_t i = 0; i < n; ++i)
            if (!bulges(i)) hollows_.push_back(i);
        std::ranges::sort(hollows_, {}, [&](std::uint32_t i) { return outline[i].x; });
    }

    std::vector<OutlineTriangle> clip() {
        std::vector<OutlineTriangle> triangles;
        const std::size_t count = outline_.size() - 2;
        triangles.reserve(count);
        std::uint32_t corner = 0;
        for (std::size_t tried = 0; triangles.size() < count; ++tried) {
            if (tried > outline_.size()) return {};
            if (!isEar(corner)) {
                corner = next_[corner];
                continue;
            }
            triangles.push_back(triangle(corner));
            next_[former_[corner]] = next_[corner];
            former_[next_[corner]] = former_[corner];
            // Its neighbour waits for the next round, so that the triangles grow slowly.
            const std::uint32_t neighbour = next_[corner];
            next_[corner] = corner;
            corner = next_[neighbour];
            tried = 0;
        }
        return triangles;
    }

private:
    bool bulges(std::uint32_t i) const {
        return turn(outline_[former_[i]], outline_[i], outline_[next_[i]]) > 0;
    }
    bool clipped(std::uint32_t i) const { return next_[i] == i; }

    OutlineTriangle triangle(std::uint32_t i) const {
        return leftTurning_ ? OutlineTriangle{former_[i], i, next_[i]}
                            : OutlineTriangle{next_[i], i, former_[i]};
    }

    /// Where another point lies in the triangle, one of a corner that does not bulge does.
    bool isEar(std::uint32_t i) const {
        if (!bulges(i)) return false;
        const std::uint32_t ends[] = {former_[i], next_[i]};
        const Point2D& a = outline_[ends[0]];
        const Point2D& b = outline_[i];
        const Point2D& c = outline_[ends[1]];
        const auto [from, to] = std::minmax({a.x, b.x, c.x});
        auto hollow = std::ranges::lower_bound(
            hollows_, from, {}, [this](std::uint32_t point) { return outline_[point].x; });
        for (; hollow != hollows_.end() && outline_[*hollow].x <= to; ++hollow) {
            const bool corner = *hollow == i || *hollow == ends[0] || *hollow == ends[1];
            if (corner || clipped(*hollow)) continue;
            const Point2D& p = outline_[*hollow];
            if (turn(c, a, p) >= 0 && turn(a, b, p) >= 0 && turn(b, c, p) >= 0) return false;
        }
        return true;
    }

    PlaneOutline outline_;
    std::vector<std::uint32_t> next_;  ///< to the left round the outline; a clipped one's is itself
    std::vector<std::uint32_t> former_;
    std::vector<std::uint32_t> hollows_;  ///< corners that did not bulge at first, by x
    bool leftTurning_ = true;
};

}  // namespace

std::vector<OutlineTriangle> triangulated(PlaneOutline outline) {
    if (outline.size() < 3) return {};
    return EarClipping(outline).clip();
}

}  // namespace velna
