#include "model/FinSolid.h"

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

Point3D pointAt(const Array1<Point3D>& points, int i) {
    return 1 <= i && i <= points.upper() ? points(i) : Point3D{};
}

void buildFinSection(Array1<Point3D>& points, const Point3D& origin, double length,
                     double thickness) {
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

}  // namespace

void FinSolid::create(const VertWingSection& fin) {
    offset1 = fin.offset1;
    offset2 = fin.offset2;
    picture.carry(fin.texture_filename);
    const int count = std::max<int>(fin.nb, 0);
    Point3D root;
    Point3D tip;
    assignFinite(root, fin.pos1, offset1, fin.shift);
    assignFinite(tip, fin.pos1 + fin.pos2, offset1 + offset2, fin.shift + fin.span);
    rootPoints.allocate(count);
    buildFinSection(rootPoints, root, fin.length1, fin.thickness1);
    tipPoints.allocate(count);
    buildFinSection(tipPoints, tip, fin.length2, fin.thickness2);
    chordRatios.allocate(count);
    for (int i = 1; i <= count; ++i)
        assignFinite(chordRatios(i), (rootPoints(i).x - fin.pos1) / fin.length1);
    if (!picture.texture_loaded) return;
    placeTexture(rootTexCoords, rootPoints, count, {fin.pos1, fin.span}, picture);
    placeTexture(tipTexCoords, tipPoints, count, {fin.pos1, fin.span}, picture);
}

Point3D FinSolid::rootPoint(int i, bool mirrored) const {
    Point3D point = pointAt(rootPoints, i);
    // The profile itself is not flipped: it is symmetric, and only its halves change places.
    if (mirrored) assignFinite(point.y, point.y - 2 * offset1);
    return point;
}

Point3D FinSolid::tipPoint(int i, bool mirrored) const {
    Point3D point = pointAt(tipPoints, i);
    if (mirrored) assignFinite(point.y, point.y - 2 * (offset1 + offset2));
    return point;
}

}  // namespace velna
