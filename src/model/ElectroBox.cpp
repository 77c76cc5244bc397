#include "model/ElectroBox.h"

#include <array>

#include "model/Lengths.h"
#include "model/Prefs.h"

namespace velna {

namespace {

constexpr std::array boxLengths{&ElectroBox::length, &ElectroBox::width,     &ElectroBox::height,
                                &ElectroBox::pos,    &ElectroBox::elevation, &ElectroBox::shift};

/// The view's rectangle over (x1, y1) to (x2, y2) in model coordinates, from (x1, y1) by (x2, y1).
void placeRectangle(Rectangle& outline, const Point2D& first, const Point2D& opposite, double zoom,
                    double xoff, double yoff) {
    const Point2D corners[] = {first, {opposite.x, first.y}, opposite, {first.x, opposite.y}};
    for (std::size_t i = 0; i < 4; ++i)
        assignFinite(outline[i + 1], corners[i].x * zoom + xoff, -corners[i].y * zoom + yoff);
}

}  // namespace

ElectroBox::ElectroBox() {
    if (Prefs.units == inches) switchToInches();
}

void ElectroBox::switchToInches() {
    convertToInches(*this, boxLengths);
}

void ElectroBox::switchToMillimeters() {
    convertToMillimeters(*this, boxLengths);
}

void ElectroBox::rescale(double k) {
    multiplyLengths(*this, boxLengths, k);
}

void ElectroBox::create() {
    size_ = {length, extentAcross(), extentUpright()};
    assignFinite(origin_, pos, shift - size_.y / 2, elevation);
}

Point3D ElectroBox::centre() const {
    Point3D centre = origin_;
    assignFinite(centre, origin_.x + size_.x / 2, origin_.y + size_.y / 2, origin_.z + size_.z / 2);
    return centre;
}

Point3D ElectroBox::kindColor() const {
    switch (box) {
        case BoxKind::receiver:
            return {0, 255, 0};
        case BoxKind::accumulator:
            return {255, 0, 0};
        default:
            return {0, 0, 255};
    }
}

void ElectroBox::computeSidePoints(double zoom, double xoff, double yoff) {
    placeRectangle(sideOutline, {pos, elevation}, {pos + length, elevation + extentUpright()}, zoom,
                   xoff, yoff);
}

void ElectroBox::computeHTopPoints(double zoom, double xoff, double yoff) {
    placeRectangle(htopOutline, {pos, shift + extentAcross() / 2},
                   {pos + length, shift - extentAcross() / 2}, zoom, xoff, yoff);
}

}  // namespace velna
