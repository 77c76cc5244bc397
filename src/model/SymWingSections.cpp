#include "model/SymWingSections.h"

#include <algorithm>

#include "model/Airfoil.h"
#include "model/Lengths.h"

namespace velna {

namespace {

constexpr std::int16_t builtInPoints = 16;

constexpr std::array panelLengths{&SymWingSections::span,       &SymWingSections::length1,
                                  &SymWingSections::length2,    &SymWingSections::pos1,
                                  &SymWingSections::pos2,       &SymWingSections::elevation1,
                                  &SymWingSections::elevation2, &SymWingSections::shift};

}  // namespace

SymWingSections::SymWingSections()
    : Left(std::make_unique<WingSection>()),
      Right(std::make_unique<WingSection>()),
      color_(defaultColor) {}

void SymWingSections::init() {
    Left = std::make_unique<WingSection>();
    Right = std::make_unique<WingSection>();
    nb = builtInPoints;
    set_texture_filename("");
    qualified_texture_filename.clear();
    set_texture_loaded(false);
    color_ = defaultColor;
    allocate();
    init_airfoil();
    Left->init(*this);
    Right->init(*this);
}

void SymWingSections::allocate() {
    const int count = std::max<int>(nb, 0);
    airfoil.allocate(count);
    Left->init(*this);
    Right->init(*this);
}

void SymWingSections::create() {
    Left->init(*this);
    Right->init(*this);
    Left->create();
    Right->createSymmetrical(*Left);
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

void SymWingSections::set_texture_filename(const std::string& file) {
    Left->texture_filename = file;
    Right->texture_filename = file;
    textureFile = file;
}

void SymWingSections::set_texture_loaded(bool loaded) {
    Left->texture_loaded = loaded;
    Right->texture_loaded = loaded;
}

}  // namespace velna
