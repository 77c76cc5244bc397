// Whether an outline touches itself: a line sweeps over it from left to right and holds the edges
// that it crosses, lowest first. Where two edges meet, they have been neighbours in it before.

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <set>
#include <utility>

#include "common/Turn.h"
#include "model/PlaneOutline.h"

namespace velna {
namespace {

/// The order in which the sweep meets points.
bool before(const Point2D& a, const Point2D& b) {
    return a.x != b.x ? a.x < b.x : a.y < b.y;
}

/// Whether two stretches have a point in common.
bool meet(const Point2D& a, const Point2D& b, const Point2D& c, const Point2D& d) {
    const int cSide = turn(a, b, c);
    const int dSide = turn(a, b, d);
    if (cSide == 0 && dSide == 0) {
        const auto ends = [](const Point2D& p, const Point2D& q) {
            return std::minmax(p, q, before);
        };
        const auto [firstBegin, firstEnd] = ends(a, b);
        const auto [secondBegin, secondEnd] = ends(c, d);
        return !before(firstEnd, secondBegin) && !before(secondEnd, firstBegin);
    }
    return cSide * dSide <= 0 && turn(c, d, a) * turn(c, d, b) <= 0;
}

/// All corners turn one way, and the road goes once forth and once back.
bool isConvex(PlaneOutline outline) {
    const std::size_t n = outline.size();
    int way = 0;
    int returns = 0;
    for (std::size_t i = 0; i < n; ++i) {
        const Point2D& a = outline[i];
        const Point2D& b = outline[(i + 1) % n];
        const Point2D& c = outline[(i + 2) % n];
        if (a == b) return false;
        const int corner = turn(a, b, c);
        const bool back = before(a, b) != before(b, c);
        if (back) ++returns;
        if (corner == 0 ? back : corner == -way) return false;
        if (corner != 0) way = corner;
    }
    return returns == 2;
}

class Sweep {
public:
    explicit Sweep(PlaneOutline outline)
        : outline_(outline), edges_(Below{*this}), places_(outline.size(), edges_.end()) {}

    /// False as soon as two edges are found to touch.
    bool passes() {
        std::vector<std::size_t> order(outline_.size());
        std::iota(order.begin(), order.end(), std::size_t{0});
        std::ranges::sort(order, [this](std::size_t a, std::size_t b) {
            return before(outline_[a], outline_[b]);
        });
        for (std::size_t i = 0; i < order.size(); ++i) {
            if (i > 0 && outline_[order[i - 1]] == outline_[order[i]]) return false;
            if (!passesPoint(order[i])) return false;
        }
        return true;
    }

private:
    /// Edge e goes from point e to the next.
    using Edge = std::size_t;

    struct Below {
        Sweep& sweep;
        bool operator()(Edge a, Edge b) const { return a != b && sweep.below(a, b); }
    };
    using Edges = std::set<Edge, Below>;

    std::size_t next(std::size_t i) const { return i + 1 == outline_.size() ? 0 : i + 1; }
    std::size_t former(std::size_t i) const { return i == 0 ? outline_.size() - 1 : i - 1; }
    const Point2D& left(Edge e) const { return std::min(outline_[e], outline_[next(e)], before); }
    const Point2D& right(Edge e) const { return std::max(outline_[e], outline_[next(e)], before); }

    /// Of two edges under the sweep, whether `a` lies below. One that begins on the other touches.
    bool below(Edge a, Edge b) {
        int side = 0;
        if (left(a) == left(b)) {
            side = turn(left(a), right(a), right(b));
        } else if (before(left(a), left(b))) {
            side = turn(left(a), right(a), left(b));
        } else {
            side = -turn(left(b), right(b), left(a));
        }
        if (side == 0) touched_ = true;
        return side != 0 ? side > 0 : a < b;
    }

    bool touch(Edge a, Edge b) const {
        if (next(a) != b && next(b) != a)
            return meet(outline_[a], outline_[next(a)], outline_[b], outline_[next(b)]);
        // Neighbours have their point in common, and must not go back over each other.
        if (next(a) != b) std::swap(a, b);
        const Point2D& from = outline_[a];
        const Point2D& to = outline_[next(b)];
        return turn(from, outline_[b], to) == 0 &&
               before(from, outline_[b]) == before(to, outline_[b]);
    }

    bool passesPoint(std::size_t point) {
        for (const Edge e : {former(point), point})
            if (places_[e] != edges_.end() && !leaves(e)) return false;
        for (const Edge e : {former(point), point})
            if (left(e) == outline_[point] && !enters(e)) return false;
        return true;
    }

    bool leaves(Edge e) {
        const auto above = edges_.erase(places_[e]);
        places_[e] = edges_.end();
        return above == edges_.begin() || above == edges_.end() ||
               !touch(*std::prev(above), *above);
    }

    bool enters(Edge e) {
        const auto place = edges_.insert(e).first;
        if (touched_) return false;
        places_[e] = place;
        if (place != edges_.begin() && touch(*std::prev(place), e)) return false;
        const auto above = std::next(place);
        return above == edges_.end() || !touch(e, *above);
    }

    PlaneOutline outline_;
    Edges edges_;
    std::vector<Edges::iterator>
        places_;  ///< of each edge, the end while it is not under the sweep
    bool touched_ = false;
};

}  // namespace

bool isSimple(PlaneOutline outline) {
    return outline.size() >= 3 && (isConvex(outline) || Sweep(outline).passes());
}

}  // namespace velna
