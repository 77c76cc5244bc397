#include "model/MainWing.h"

#include "common/Finite.h"

namespace velna::MainWing {

namespace {

constexpr double nextSpanRatio = 0.3;
constexpr double nextTaperRatio = 0.7;

SymWingSections newWing(const Project& project) {
    SymWingSections wing;
    wing.init(project.defaultColor);
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

void allocateWings(Project& project) {
    project.Wings.fill(project.nbWings, newWing(project));
    project.currentWing = 1;
}

void clearWings(Project& project) {
    project.Wings.clear();
}

void addWing(Project& project) {
    const int added = project.nbWings;
    project.Wings.resize(added, newWing(project));
    project.Wings.put(added, newWing(project));
    if (added > 1) continueWing(project.Wings(added), project.Wings(added - 1));
}

void rescale(Project& project, double k) {
    for (int i = 1; i <= project.nbWings; ++i) project.Wings(i).rescale(k);
}

void switchToInches(Project& project) {
    for (int i = 1; i <= project.nbWings; ++i) project.Wings(i).switchToInches();
}

void switchToMillimeters(Project& project) {
    for (int i = 1; i <= project.nbWings; ++i) project.Wings(i).switchToMillimeters();
}

}  // namespace velna::MainWing
