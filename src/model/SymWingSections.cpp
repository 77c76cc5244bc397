#include "model/SymWingSections.h"

#include <algorithm>
#include <array>

#include "model/Airfoil.h"
#include "model/Lengths.h"

namespace velna {

namespace {

constexpr std::int16_t builtInPoints = 16;

constexpr auto panelLengths =
    std::to_array({&SymWingSections::span, &SymWingSections::length1, &SymWingSections::length2,
                   &SymWingSections::pos1, &SymWingSections::pos2, &SymWingSections::elevation1,
                   &SymWingSections::elevation2, &SymWingSections::shift});

}  // namespace

void SymWingSections::init(const Point3D& color) {
    nb = builtInPoints;
    textureFile.clear();
    qualified_texture_filename.clear();
    color_ = color;
    allocate();
    init_airfoil();
}

void SymWingSections::allocate() {
    airfoil.allocate(std::max<int>(nb, 0));
}

void SymWingSections::init_airfoil() {
    Airfoil::fillBuiltIn(airfoil, nb);
    normalizeAirfoil();
}

void SymWingSections::normalizeAirfoil() {
    Airfoil::normalize(airfoil, nb, thickness1, thickness2);
}

int SymWingSections::pointCount() const {
    return std::max(0, std::min<int>(nb, airfoil.upper()));
}

void SymWingSections::switchToInches() {
    convertToInches(*this, panelLengths);
}

void SymWingSections::switchToMillimeters() {
    convertToMillimeters(*this, panelLengths);
}

void SymWingSections::rescale(double k) {
    multiplyLengths(*this, panelLengths, k);
}

}  // namespace velna
