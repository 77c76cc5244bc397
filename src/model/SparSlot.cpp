#include "model/SparSlot.h"

#include <algorithm>
#include <cmath>

#include "model/Region.h"

namespace velna {

namespace {

/// A line of a border that goes from left to right.
struct Edge {
    Point2D from;
    Point2D to;

    double at(double x) const {
        return from.y + (to.y - from.y) * ((x - from.x) / (to.x - from.x));
    }
};

/// The edges that reach between two columns; upright ones bound no band.
std::vector<Edge> edgesBetween(const std::vector<Loop>& borders, double left, double right) {
    std::vector<Edge> edges;
    for (const Loop& loop : borders) {
        for (std::size_t i = 0; i < loop.size(); ++i) {
            Edge edge{loop[i], loop[i + 1 < loop.size() ? i + 1 : 0]};
            if (edge.from.x > edge.to.x) std::swap(edge.from, edge.to);
            if (edge.from.x < edge.to.x && edge.from.x < right && edge.to.x > left)
                edges.push_back(edge);
        }
    }
    return edges;
}

/// Between two of these columns no edge begins or ends.
std::vector<double> columnsOf(const std::vector<Edge>& edges, double left, double right) {
    std::vector<double> columns{left, right};
    for (const Edge& edge : edges) {
        for (const double x : {edge.from.x, edge.to.x})
            if (x > left && x < right) columns.push_back(x);
    }
    std::sort(columns.begin(), columns.end());
    columns.erase(std::unique(columns.begin(), columns.end()), columns.end());
    return columns;
}

/// The uppermost edge between two neighbouring columns and the next one below it.
struct TopPair {
    const Edge* top = nullptr;
    const Edge* under = nullptr;
};

TopPair topPair(const std::vector<Edge>& edges, double left, double right) {
    const double middle = left + (right - left) / 2;
    TopPair pair;
    for (const Edge& edge : edges) {
        if (edge.from.x > left || edge.to.x < right) continue;
        const double height = edge.at(middle);
        if (!pair.top || height > pair.top->at(middle)) {
            pair.under = pair.top;
            pair.top = &edge;
        } else if (!pair.under || height > pair.under->at(middle)) {
            pair.under = &edge;
        }
    }
    return pair;
}

/// The same borders upside down.
std::vector<Loop> turnedOver(std::vector<Loop> borders) {
    for (Loop& loop : borders)
        for (Point2D& point : loop) point.y = -point.y;
    return borders;
}

/// The slot on borders that have its side on top.
SlotCut place(const std::vector<Loop>& borders, double chord, const SparSlot& slot) {
    SlotCut cut;
    const double middle = slot.percent / 100 * chord;
    cut.left = middle - slot.width / 2;
    cut.right = middle + slot.width / 2;
    if (!(slot.width > 0) || !(slot.depth > 0)) {
        cut.why = "its width and depth must be above 0";
        return cut;
    }
    const auto clearance = clearanceOf(borders, cut.left, cut.right);
    if (!clearance) {
        cut.why = "it lies outside the rib";
        return cut;
    }
    cut.floor = clearance->lowestTop - slot.depth;
    if (cut.floor <= clearance->highestBottom) cut.why = "it reaches the other edge";
    return cut;
}

/// Whether two slots from opposite edges meet.
bool meet(const SlotCut& cut, SlotSide side, const SlotCut& other, SlotSide otherSide) {
    if (side == otherSide || !other.why.empty()) return false;
    if (cut.left > other.right || other.left > cut.right) return false;
    const double upper = side == SlotSide::top ? cut.floor : other.floor;
    const double lower = side == SlotSide::top ? other.floor : cut.floor;
    return upper <= lower;
}

/// Millimetres by which a slot is open beyond the edge.
constexpr double beyond = 1;

void take(Region& rib, const std::vector<Loop>& borders, const SlotCut& cut, SlotSide side) {
    double outside = cut.floor;
    for (const Loop& loop : borders) {
        for (const Point2D& point : loop) {
            outside = side == SlotSide::top ? std::max(outside, point.y + beyond)
                                            : std::min(outside, point.y - beyond);
        }
    }
    rib.remove({cut.left, cut.floor}, {cut.right, outside});
}

}  // namespace

std::optional<Clearance> clearanceOf(const std::vector<Loop>& borders, double left, double right) {
    if (!std::isfinite(left) || !std::isfinite(right) || !(left < right)) return {};
    const std::vector<Edge> edges = edgesBetween(borders, left, right);
    const std::vector<double> columns = columnsOf(edges, left, right);
    std::optional<Clearance> clearance;
    for (std::size_t i = 0; i + 1 < columns.size(); ++i) {
        const TopPair pair = topPair(edges, columns[i], columns[i + 1]);
        if (!pair.under) return {};
        for (const double x : {columns[i], columns[i + 1]}) {
            const double top = pair.top->at(x);
            const double under = pair.under->at(x);
            if (!clearance) clearance = Clearance{top, under};
            clearance->lowestTop = std::min(clearance->lowestTop, top);
            clearance->highestBottom = std::max(clearance->highestBottom, under);
        }
    }
    return clearance;
}

std::vector<SlotCut> cutSlots(Region& rib, double chord, std::span<const SparSlot> slots) {
    const std::vector<Loop> borders = rib.loops();
    const std::vector<Loop> upsideDown = turnedOver(borders);
    std::vector<SlotCut> cuts;
    for (std::size_t n = 0; n < slots.size(); ++n) {
        const SparSlot& slot = slots[n];
        const bool fromTop = slot.side == SlotSide::top;
        SlotCut cut = place(fromTop ? borders : upsideDown, chord, slot);
        if (!fromTop) cut.floor = -cut.floor;
        for (std::size_t other = 0; other < n && cut.why.empty(); ++other) {
            if (meet(cut, slot.side, cuts[other], slots[other].side))
                cut.why = "it reaches slot " + std::to_string(other + 1);
        }
        if (cut.why.empty()) take(rib, borders, cut, slot.side);
        cuts.push_back(std::move(cut));
    }
    return cuts;
}

}  // namespace velna
