#include "output/PartPacking.h"

#include <algorithm>
#include <numeric>

namespace velna {

namespace {

/// A row of parts on a sheet.
struct Row {
    std::size_t sheet;
    double top;
    double height;
    double filled;  ///< where the next part begins
};

class Packing {
public:
    Packing(const PackedSize& sheet, double gap) : sheet_(sheet), gap_(gap) {}

    PackedPlace place(const PackedSize& part) {
        for (Row& row : rows_)
            if (part.height <= row.height && row.filled + part.width <= sheet_.width)
                return put(row, part);
        rows_.push_back(nextRow(part));
        return put(rows_.back(), part);
    }

private:
    PackedPlace put(Row& row, const PackedSize& part) const {
        const PackedPlace place{row.sheet, row.filled, row.top};
        row.filled += part.width + gap_;
        return place;
    }

    Row nextRow(const PackedSize& part) const {
        if (rows_.empty()) return {0, 0, part.height, 0};
        const Row& last = rows_.back();
        const double top = last.top + last.height + gap_;
        if (top + part.height <= sheet_.height) return {last.sheet, top, part.height, 0};
        return {last.sheet + 1, 0, part.height, 0};
    }

    PackedSize sheet_;
    double gap_;
    std::vector<Row> rows_;
};

}  // namespace

std::vector<PackedPlace> packParts(std::span<const PackedSize> parts, const PackedSize& sheet,
                                   double gap) {
    std::vector<std::size_t> order(parts.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
        return parts[a].height > parts[b].height;
    });
    std::vector<PackedPlace> places(parts.size());
    Packing packing(sheet, gap);
    for (const std::size_t n : order) places[n] = packing.place(parts[n]);
    return places;
}

}  // namespace velna
