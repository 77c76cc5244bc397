#include "output/RibTexts.h"

#include <cmath>

#include "common/NumberText.h"

namespace velna {

namespace {

/// A length as it is typed and read again: inches that came from millimetres lose their last
/// digits.
std::string lengthIn(double length, double mm) {
    const double typed = length / mm;
    const double rounded = std::round(typed * 1e9) / 1e9;
    return numberText(std::isfinite(rounded) && rounded != 0 ? rounded : typed);
}

/// Takes a length, typed in a unit of `mm` millimetres. A text that is no number is refused as it
/// stands.
Outcome takeLength(RibWishes& wishes, std::string_view name, const std::string& text, double mm) {
    const auto length = wholeNumber(text);
    return takeRibWish(wishes, name, length && mm != 1 ? numberText(*length * mm) : text);
}

}  // namespace

RibTexts ribTexts(const RibWishes& wishes, double mm) {
    const StationWish& stations = wishes.stations;
    RibTexts texts;
    texts.bySpacing = stations.spacing != 0;
    texts.stations = std::to_string(stations.count);
    // What is proposed where no spacing has been chosen yet.
    texts.spacing = mm == 1 ? "50" : "2";
    if (texts.bySpacing) texts.spacing = lengthIn(stations.spacing, mm);
    texts.skin = lengthIn(wishes.skin, mm);
    texts.spars = slotsText(wishes.spars, mm);
    return texts;
}

Outcome readRibTexts(const RibTexts& texts, double mm, RibWishes& wishes) {
    RibWishes read = wishes;
    Outcome outcome = texts.bySpacing ? takeLength(read, "spacing", texts.spacing, mm)
                                      : takeRibWish(read, "stations", texts.stations);
    if (outcome.isDone()) outcome = takeLength(read, "skin", texts.skin, mm);
    if (outcome.isDone()) outcome = readSlots(texts.spars, mm, read.spars);
    if (outcome.isDone()) wishes = std::move(read);
    return outcome;
}

}  // namespace velna
