#include "model/VertWingSection.h"

#include <array>

#include "model/Lengths.h"

namespace velna {

namespace {

constexpr auto finLengths =
    std::to_array({&VertWingSection::span, &VertWingSection::length1, &VertWingSection::length2,
                   &VertWingSection::pos1, &VertWingSection::pos2, &VertWingSection::offset1,
                   &VertWingSection::offset2, &VertWingSection::shift});

}  // namespace

void VertWingSection::init(const Point3D& color) {
    VertWingSection fresh;
    fresh.offset1 = offset1;
    fresh.offset2 = offset2;
    fresh.color_ = color;
    *this = fresh;
}

void VertWingSection::switchToInches() {
    convertToInches(*this, finLengths);
}

void VertWingSection::switchToMillimeters() {
    convertToMillimeters(*this, finLengths);
}

void VertWingSection::rescale(double k) {
    multiplyLengths(*this, finLengths, k);
}

}  // namespace velna
