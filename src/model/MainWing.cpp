#include "model/MainWing.h"

#include <memory>

#include "common/Finite.h"

namespace velna::MainWing {

namespace {

constexpr double nextSpanRatio = 0.3;
constexpr double nextTaperRatio = 0.7;

std::unique_ptr<SymWingSections> newWing() {
    auto wing = std::make_unique<SymWingSections>();
    wing->init();
    return wing;
}

/// Lets `wing` start where `previous` ends.
void continueWing(SymWingSections& wing, const SymWingSections& previous) {
    assignFinite(wing.pos1, previous.pos1 + previous.pos2);
    wing.pos2 = 0;
    assignFinite(wing.span, previous.span * nextSpanRatio);
    wing.length1 = previous.length2;
    assignFinite(wing.length2, wing.length1 * nextTaperRatio);
    assignFinite(wing.elevation1, previous.elevation1 + previous.elevation2);
    wing.elevation2 = 0;
    wing.thickness1 = previous.thickness2;
    wing.thickness2 = wing.thickness1;
    assignFinite(wing.shift, previous.shift + previous.span);
}

}  // namespace

void allocateWings() {
    Wings.fill(nbWings, newWing);
    currentWing = 1;
}

void clearWings() {
    Wings.clear();
}

void addWing() {
    Wings.resize(nbWings, newWing);
    Wings.put(nbWings, newWing());
    if (nbWings > 1) continueWing(Wings(nbWings), Wings(nbWings - 1));
}

void rescale(double k) {
    for (int i = 1; i <= nbWings; ++i) Wings(i).rescale(k);
}

void switchToInches() {
    for (int i = 1; i <= nbWings; ++i) Wings(i).switchToInches();
}

void switchToMillimeters() {
    for (int i = 1; i <= nbWings; ++i) Wings(i).switchToMillimeters();
}

}  // namespace velna::MainWing
