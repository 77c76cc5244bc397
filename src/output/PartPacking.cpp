#include "output/PartPacking.h"

#include <algorithm>
#include <array>
#include <limits>
#include <numeric>
#include <utility>

namespace velna {

namespace {

// What a large number of parts may cost.
constexpr std::size_t mostForAllWays = 500;  // parts
constexpr std::size_t mostOpen = 24;         // sheets that still take parts
constexpr std::size_t mostFree = 100;        // rectangles of a sheet

/// A rectangle, y down.
struct Area {
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;

    double width() const { return right - left; }
    double height() const { return bottom - top; }
    bool holds(const PackedSize& size) const {
        return left + size.width <= right && top + size.height <= bottom;
    }
    bool contains(const Area& other) const {
        return left <= other.left && other.right <= right && top <= other.top &&
               other.bottom <= bottom;
    }
    bool meets(const Area& other) const {
        return left < other.right && other.left < right && top < other.bottom && other.top < bottom;
    }
};

/// How well a part lies in a free rectangle: the lower the better, the second where the first ties.
using Score = std::pair<double, double>;

Score nearTheUpperEdge(const Area& free, const PackedSize& part) {
    return {free.top + part.height, free.left};
}

Score closelyHeld(const Area& free, const PackedSize& part) {
    const double beside = free.width() - part.width;
    const double below = free.height() - part.height;
    return {std::min(beside, below), std::max(beside, below)};
}

/// The order in which parts come: the largest first.
using Size = double (*)(const PackedSize& part);
constexpr Size sizes[] = {
    [](const PackedSize& part) { return part.height; },
    [](const PackedSize& part) { return std::max(part.width, part.height); },
    [](const PackedSize& part) { return part.width * part.height; },
    [](const PackedSize& part) { return part.width + part.height; },
    [](const PackedSize& part) { return part.width; },
};
constexpr Score (*scores[])(const Area&, const PackedSize&) = {nearTheUpperEdge, closelyHeld};

/// What is free on a sheet: all the largest rectangles, which overlap.
class Sheet {
public:
    Sheet(std::size_t number, const PackedSize& size)
        : number_(number), free_{{0, 0, size.width, size.height}} {}

    std::size_t number() const { return number_; }
    const std::vector<Area>& free() const { return free_; }

    /// Takes a part's place, and forgets what is too small for the smallest part.
    void take(const Area& part, const PackedSize& smallest) {
        std::vector<Area> pieces;
        const auto cut = [&](const Area& area) {
            if (!area.meets(part)) return false;
            split(area, part, pieces);
            return true;
        };
        std::erase_if(free_, cut);
        std::erase_if(pieces, [&](const Area& piece) { return !piece.holds(smallest); });
        for (std::size_t n = 0; n < pieces.size(); ++n)
            if (!isWithinOther(pieces, n)) free_.push_back(pieces[n]);
        if (free_.size() <= mostFree) return;
        std::ranges::stable_sort(free_, std::ranges::greater{}, [](const Area& area) {
            return std::min(area.width(), area.height());
        });
        free_.resize(mostFree);
    }

private:
    static void split(const Area& area, const Area& part, std::vector<Area>& pieces) {
        if (area.left < part.left) pieces.push_back({area.left, area.top, part.left, area.bottom});
        if (part.right < area.right)
            pieces.push_back({part.right, area.top, area.right, area.bottom});
        if (area.top < part.top) pieces.push_back({area.left, area.top, area.right, part.top});
        if (part.bottom < area.bottom)
            pieces.push_back({area.left, part.bottom, area.right, area.bottom});
    }

    /// Of two alike the later one stays.
    bool isWithinOther(const std::vector<Area>& pieces, std::size_t n) const {
        const auto contains = [&](const Area& other) { return other.contains(pieces[n]); };
        if (std::ranges::any_of(free_, contains)) return true;
        for (std::size_t i = 0; i < pieces.size(); ++i) {
            if (i != n && contains(pieces[i]) && (i > n || !pieces[n].contains(pieces[i])))
                return true;
        }
        return false;
    }

    std::size_t number_;
    std::vector<Area> free_;
};

/// One way to pack: parts in their order, each by the score.
class Packing {
public:
    Packing(std::span<const PackedPart> parts, const PackedSize& sheet, double gap)
        : parts_(parts), sheet_{sheet.width + gap, sheet.height + gap}, gap_(gap) {
        constexpr double most = std::numeric_limits<double>::infinity();
        smallest_ = {most, most};
        for (const PackedPart& part : parts_) {
            for (const auto& size : {std::optional(part.size), part.turned}) {
                if (!size) continue;
                smallest_.width = std::min(smallest_.width, size->width + gap_);
                smallest_.height = std::min(smallest_.height, size->height + gap_);
            }
        }
    }

    void run(Size size, Score (*score)(const Area&, const PackedSize&)) {
        score_ = score;
        std::vector<std::size_t> order(parts_.size());
        std::iota(order.begin(), order.end(), std::size_t{0});
        std::ranges::stable_sort(order, std::ranges::greater{},
                                 [&](std::size_t n) { return size(parts_[n].size); });
        places_.resize(parts_.size());
        for (const std::size_t n : order) places_[n] = place(parts_[n]);
    }

    const std::vector<PackedPlace>& places() const { return places_; }
    /// Fewer sheets are better, then less on the last one.
    std::pair<std::size_t, double> need() const { return {sheets_, lowest_}; }

private:
    struct Found {
        Score score;
        Area area;
        bool turned = false;
    };

    PackedPlace place(const PackedPart& part) {
        for (Sheet& sheet : open_)
            if (const auto found = find(part, sheet)) return put(*found, sheet);
        if (open_.size() == mostOpen) open_.erase(open_.begin());
        open_.emplace_back(sheets_++, sheet_);
        lowest_ = 0;
        if (const auto found = find(part, open_.back())) return put(*found, open_.back());
        open_.pop_back();
        return {sheets_ - 1, 0, 0, false};
    }

    std::optional<Found> find(const PackedPart& part, const Sheet& sheet) const {
        std::optional<Found> best;
        for (const bool turned : {false, true}) {
            if (turned && !part.turned) continue;
            const PackedSize& bare = turned ? *part.turned : part.size;
            const PackedSize size{bare.width + gap_, bare.height + gap_};
            for (const Area& free : sheet.free()) {
                if (!free.holds(size)) continue;
                const Score score = score_(free, size);
                if (best && best->score <= score) continue;
                best = {score,
                        {free.left, free.top, free.left + size.width, free.top + size.height},
                        turned};
            }
        }
        return best;
    }

    PackedPlace put(const Found& found, Sheet& sheet) {
        sheet.take(found.area, smallest_);
        const std::size_t number = sheet.number();
        if (number + 1 == sheets_) lowest_ = std::max(lowest_, found.area.bottom);
        if (sheet.free().empty())
            std::erase_if(open_, [&](const Sheet& one) { return one.number() == number; });
        return {number, found.area.left, found.area.top, found.turned};
    }

    std::span<const PackedPart> parts_;
    PackedSize sheet_;     ///< with a gap on its right and below
    PackedSize smallest_;  ///< what a free rectangle must hold to be of use
    double gap_;
    Score (*score_)(const Area&, const PackedSize&) = nearTheUpperEdge;
    std::vector<Sheet> open_;
    std::size_t sheets_ = 0;
    double lowest_ = 0;  ///< how far down the last sheet is used
    std::vector<PackedPlace> places_;
};

}  // namespace

std::vector<PackedPlace> packParts(std::span<const PackedPart> parts, const PackedSize& sheet,
                                   double gap) {
    std::optional<Packing> best;
    for (const Size size : sizes) {
        for (const auto score : scores) {
            Packing packing(parts, sheet, gap);
            packing.run(size, score);
            if (!best || packing.need() < best->need()) best.emplace(std::move(packing));
            if (parts.size() > mostForAllWays) return best->places();
        }
    }
    return best->places();
}

}  // namespace velna
