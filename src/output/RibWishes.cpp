#include "output/RibWishes.h"

#include <array>
#include <cmath>
#include <cstddef>

#include "common/NumberText.h"

namespace velna {

namespace {

std::string_view trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

/// The parts of `text` between the signs, without the blanks round them.
std::vector<std::string_view> partsOf(std::string_view text, char sign) {
    std::vector<std::string_view> parts;
    for (;;) {
        const std::size_t at = text.find(sign);
        parts.push_back(trimmed(text.substr(0, at)));
        if (at == std::string_view::npos) return parts;
        text.remove_prefix(at + 1);
    }
}

Outcome refuse(std::string_view text, const std::string& wanted) {
    return Outcome::failed('"' + std::string(text) + "\" is " + wanted + '.');
}

Outcome readSlot(std::string_view text, double mm, SparSlot& slot) {
    const Outcome refused =
        refuse(text, "no spar slot: percent of the chord, width, depth, and top or bottom");
    const std::vector<std::string_view> parts = partsOf(text, ',');
    if (parts.size() != 4) return refused;
    const auto percent = wholeNumber(parts[0]);
    const auto width = wholeNumber(parts[1]);
    const auto depth = wholeNumber(parts[2]);
    const bool top = parts[3] == "top";
    if (!percent || !width || !depth || (!top && parts[3] != "bottom")) return refused;
    const SparSlot read{*percent, *width * mm, *depth * mm, top ? SlotSide::top : SlotSide::bottom};
    if (!std::isfinite(read.width) || !std::isfinite(read.depth)) return refused;
    slot = read;
    return {};
}

Outcome takeStations(RibWishes& wishes, std::string_view text) {
    const auto number = wholeNumber(text);
    if (!number || *number < 2 || *number > mostStations || std::floor(*number) != *number) {
        return refuse(text, "no number of stations: a whole number from 2 to " +
                                std::to_string(mostStations));
    }
    wishes.stations = {static_cast<int>(*number), 0};
    return {};
}

Outcome takeSpacing(RibWishes& wishes, std::string_view text) {
    const auto number = wholeNumber(text);
    if (!number || !(*number > 0)) return refuse(text, "no spacing: a number above 0");
    wishes.stations.spacing = *number;
    return {};
}

Outcome takeSkin(RibWishes& wishes, std::string_view text) {
    const auto number = wholeNumber(text);
    if (!number || *number < 0) return refuse(text, "no thickness of a skin: 0 or more");
    wishes.skin = *number;
    return {};
}

Outcome takeSlot(RibWishes& wishes, std::string_view text) {
    SparSlot slot;
    Outcome outcome = readSlot(text, 1, slot);
    if (outcome.isDone()) wishes.spars.push_back(slot);
    return outcome;
}

struct WishRow {
    std::string_view name;
    Outcome (*take)(RibWishes&, std::string_view);
};

constexpr WishRow wishTable[] = {
    {"stations", takeStations},
    {"spacing", takeSpacing},
    {"skin", takeSkin},
    {"slot", takeSlot},
};

}  // namespace

Outcome takeRibWish(RibWishes& wishes, std::string_view name, std::string_view text) {
    for (const WishRow& row : wishTable)
        if (row.name == name) return row.take(wishes, trimmed(text));
    return refuse(name, "no wish about ribs");
}

std::vector<RibWishText> ribWishTexts(const RibWishes& wishes) {
    std::vector<RibWishText> texts{{"stations", std::to_string(wishes.stations.count)}};
    if (wishes.stations.spacing != 0)
        texts.push_back({"spacing", numberText(wishes.stations.spacing)});
    texts.push_back({"skin", numberText(wishes.skin)});
    for (const SparSlot& slot : wishes.spars) texts.push_back({"slot", slotsText({slot}, 1)});
    return texts;
}

Outcome readSlots(std::string_view text, double mm, std::vector<SparSlot>& slots) {
    std::vector<SparSlot> read;
    if (!trimmed(text).empty()) {
        for (const std::string_view part : partsOf(text, ';')) {
            SparSlot slot;
            Outcome outcome = readSlot(part, mm, slot);
            if (!outcome.isDone()) return outcome;
            read.push_back(slot);
        }
    }
    slots = std::move(read);
    return {};
}

std::string slotsText(const std::vector<SparSlot>& slots, double mm) {
    std::string text;
    for (const SparSlot& slot : slots) {
        if (!text.empty()) text += "; ";
        text += numberText(slot.percent) + ',' + numberText(slot.width / mm) + ',' +
                numberText(slot.depth / mm) + ',' + (slot.side == SlotSide::top ? "top" : "bottom");
    }
    return text;
}

}  // namespace velna
