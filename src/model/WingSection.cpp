#include "model/WingSection.h"

#include <algorithm>

#include "model/Lengths.h"
#include "model/SymWingSections.h"
#include "model/TexturePlaces.h"

namespace velna {

namespace {

/// Copies the first `count` airfoil points of `source`.
template <class Source>
void copyAirfoil(Array1<Point3D>& airfoil, const Source& source, int count) {
    airfoil.allocate(count);
    for (int i = 1; i <= count; ++i) airfoil(i) = source.airfoilPoint(i);
}

}  // namespace

int WingSection::airfoilCount() const {
    return std::max(0, std::min<int>(nb, airfoil.upper()));
}

int WingSection::pointCount() const {
    return std::max(0, std::min(airfoilCount(), rootPoints.upper()));
}

void WingSection::init(const SymWingSections& wg) {
    span = wg.span;
    shift = wg.shift;
    length1 = wg.length1;
    thickness1 = wg.thickness1;
    elevation1 = wg.elevation1;
    pos1 = wg.pos1;
    length2 = wg.length2;
    thickness2 = wg.thickness2;
    elevation2 = wg.elevation2;
    pos2 = wg.pos2;
    nb = wg.nb;
    airfoil_filename = wg.airfoil_filename;
    picture.carry(wg.texture_filename());
    copyAirfoil(airfoil, wg, wg.pointCount());
}

void WingSection::create() {
    assignFinite(rootOrigin, pos1, shift, elevation1);
    assignFinite(tipOrigin, pos1 + pos2, shift + span, elevation1 + elevation2);
    rootPoints.allocate(airfoilCount());
    buildSection(rootPoints, rootOrigin, length1, thickness1);
    tipPoints.allocate(airfoilCount());
    buildSection(tipPoints, tipOrigin, length2, thickness2);
    // The picture was converted for another number of points: its places follow the new ones.
    if (rootTexCoords.upper() >= 0 && rootTexCoords.upper() != pointCount()) create_texcoords();
}

void WingSection::buildSection(Array1<Point3D>& points, const Point3D& origin, double length,
                               double thickness) const {
    for (int i = 1; i <= points.upper(); ++i) {
        Point3D& point = points(i);
        assignFinite(point, airfoil(i).x * length, 0, (airfoil(i).z * length) * thickness);
        assignFinite(point, point.x + origin.x, point.y + origin.y, point.z + origin.z);
    }
}

void WingSection::createSymmetrical(const WingSection& lwg) {
    span = -lwg.span;
    shift = -lwg.shift;
    length1 = lwg.length1;
    thickness1 = lwg.thickness1;
    elevation1 = lwg.elevation1;
    pos1 = lwg.pos1;
    length2 = lwg.length2;
    thickness2 = lwg.thickness2;
    elevation2 = lwg.elevation2;
    pos2 = lwg.pos2;
    nb = lwg.nb;
    airfoil_filename = lwg.airfoil_filename;
    copyAirfoil(airfoil, lwg, lwg.airfoilCount());
    create();
}

void WingSection::create_texcoords() {
    if (picture.xtex == 0) return;
    placeTexture(rootTexCoords, rootPoints, pointCount(), {pos1, span}, picture);
    placeTexture(tipTexCoords, tipPoints, pointCount(), {pos1, span}, picture);
}

void PanelSolid::create(const SymWingSections& panel) {
    Left.init(panel);
    Right.init(panel);
    Left.create();
    Right.createSymmetrical(Left);
}

}  // namespace velna
