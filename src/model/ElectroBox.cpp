#include "model/ElectroBox.h"

#include <array>

#include "model/Lengths.h"
#include "model/Units.h"

namespace velna {

namespace {

constexpr auto boxLengths =
    std::to_array({&ElectroBox::length, &ElectroBox::width, &ElectroBox::height, &ElectroBox::pos,
                   &ElectroBox::elevation, &ElectroBox::shift});

/// The rectangle over `first` and `opposite` in model coordinates, from `first` along x.
Rectangle placed(Rectangle points, const Point2D& first, const Point2D& opposite,
                 const Transform& at) {
    const Point2D corners[] = {first, {opposite.x, first.y}, opposite, {first.x, opposite.y}};
    for (std::size_t i = 0; i < 4; ++i) {
        assignFinite(points[i + 1], corners[i].x * at.zoom + at.xoff,
                     -corners[i].y * at.zoom + at.yoff);
    }
    return points;
}

}  // namespace

ElectroBox::ElectroBox(int unit) {
    if (unit == inches) switchToInches();
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

void BoxSolid::create(const ElectroBox& box) {
    size_ = {box.length, box.extentAcross(), box.extentUpright()};
    assignFinite(origin_, box.pos, box.shift - size_.y / 2, box.elevation);
}

Point3D BoxSolid::centre() const {
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

Rectangle ElectroBox::computeSidePoints(const Transform& at, Rectangle points) const {
    return placed(points, {pos, elevation}, {pos + length, elevation + extentUpright()}, at);
}

Rectangle ElectroBox::computeHTopPoints(const Transform& at, Rectangle points) const {
    return placed(points, {pos, shift + extentAcross() / 2},
                  {pos + length, shift - extentAcross() / 2}, at);
}

}  // namespace velna
