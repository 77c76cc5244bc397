#include "model/VertWingSection.h"

#include <algorithm>

#include "model/Lengths.h"
#include "model/TexturePlaces.h"

namespace velna {

namespace {

/// One half of the fin's profile from the leading to the trailing edge: x, and half thickness
/// before it is divided so that both halves together measure 1.
constexpr std::array<Point2D, 8> halfProfile{{
    {0.0, 0.0},
    {0.05, 0.8},
    {0.1, 1.0},
    {0.15, 1.2},
    {0.2, 1.25},
    {0.3, 1.3},
    {0.6, 1.2},
    {1.0, 0.0},
}};

constexpr double profileThickness = 2.6;

constexpr std::array finLengths{&VertWingSection::span,    &VertWingSection::length1,
                                &VertWingSection::length2, &VertWingSection::pos1,
                                &VertWingSection::pos2,    &VertWingSection::offset1,
                                &VertWingSection::offset2, &VertWingSection::shift};

Point3D pointAt(const Array1<Point3D>& points, int i) {
    return 1 <= i && i <= points.upper() ? points(i) : Point3D{};
}

}  // namespace

void VertWingSection::init() {
    const VertWingSection defaults;
    nb = defaults.nb;
    span = defaults.span;
    length1 = defaults.length1;
    length2 = defaults.length2;
    thickness1 = defaults.thickness1;
    thickness2 = defaults.thickness2;
    pos1 = defaults.pos1;
    pos2 = defaults.pos2;
    shift = defaults.shift;
    texture_filename.clear();
    qualified_texture_filename.clear();
    texture_loaded = false;
    xtex = 0;
    ytex = 0;
    color_ = defaultColor;
}

void VertWingSection::create() {
    const int count = std::max<int>(nb, 0);
    Point3D root;
    Point3D tip;
    assignFinite(root, pos1, offset1, shift);
    assignFinite(tip, pos1 + pos2, offset1 + offset2, shift + span);
    rootPoints.allocate(count);
    buildFinSection(rootPoints, root, length1, thickness1);
    tipPoints.allocate(count);
    buildFinSection(tipPoints, tip, length2, thickness2);
    chordRatios.allocate(count);
    for (int i = 1; i <= count; ++i)
        assignFinite(chordRatios(i), (rootPoints(i).x - pos1) / length1);
    if (texture_loaded) createTexCoords();
}

void VertWingSection::buildFinSection(Array1<Point3D>& points, const Point3D& origin, double length,
                                      double thickness) const {
    const int count = points.upper();
    // The profile fits 16 points. Fewer end the halves early; more stay at the trailing edge.
    const int half = (count + 1) / 2;
    for (int i = 1; i <= half; ++i) {
        const auto row = std::min(static_cast<std::size_t>(i), halfProfile.size()) - 1;
        const double halfThickness = halfProfile[row].y / profileThickness;
        assignFinite(points(i), halfProfile[row].x * length, (halfThickness * length) * thickness,
                     0);
    }
    for (int i = half + 1; i <= count; ++i)
        points(i) = {points(count + 1 - i).x, -points(count + 1 - i).y, 0};
    for (int i = 1; i <= count; ++i) {
        assignFinite(points(i), points(i).x + origin.x, points(i).y + origin.y,
                     points(i).z + origin.z);
    }
}

void VertWingSection::createTexCoords() {
    placeTexture(rootTexCoords, rootPoints, rootPoints.upper(), *this);
    placeTexture(tipTexCoords, tipPoints, tipPoints.upper(), *this);
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

Point3D VertWingSection::rootPoint(int i, bool mirrored) const {
    Point3D point = pointAt(rootPoints, i);
    // The profile itself is not flipped: it is symmetric, and only its halves change places.
    if (mirrored) assignFinite(point.y, point.y - 2 * offset1);
    return point;
}

Point3D VertWingSection::tipPoint(int i, bool mirrored) const {
    Point3D point = pointAt(tipPoints, i);
    if (mirrored) assignFinite(point.y, point.y - 2 * (offset1 + offset2));
    return point;
}

}  // namespace velna
