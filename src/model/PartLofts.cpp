#include "model/PartLofts.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>

#include "model/BodySolid.h"
#include "model/FinSolid.h"
#include "model/MeshHalves.h"
#include "model/MeshSections.h"
#include "model/WingSection.h"

namespace velna {
namespace {

int sign(double value) {
    return (value > 0 ? 1 : 0) - (value < 0 ? 1 : 0);
}

double sizeOf(std::initializer_list<double> values) {
    double size = 0;
    for (const double value : values) size += std::abs(value);
    return size;
}

void add(Loft& loft, const Point3D& point, double unit) {
    loft.points.push_back({point.x * unit, point.y * unit, point.z * unit});
}

/// A panel or the fin, whose profile reaches as far as `reach`.
template <class Flat>
Outcome checkFlat(const Flat& part, int points, double reach) {
    if (points < 3) return Outcome::failed(NoSolid::fewPoints);
    if (part.span == 0) return Outcome::failed(NoSolid::noLength);
    const int root = sign(part.length1) * sign(part.thickness1);
    const int tip = sign(part.length2) * sign(part.thickness2);
    if (root == 0 && tip == 0) return Outcome::failed(NoSolid::noThickness);
    if (root * tip < 0 || sign(part.length1) * sign(part.length2) < 0)
        return Outcome::failed(NoSolid::insideOut);
    // The model leaves out a coordinate that is beyond all numbers.
    const double chords = sizeOf({part.length1, part.length2}) * reach *
                          (1 + sizeOf({part.thickness1, part.thickness2}));
    const double all = chords + sizeOf({part.pos1, part.pos2, part.span, part.shift});
    if (!std::isfinite(all)) return Outcome::failed(NoSolid::tooLarge);
    return {};
}

/// What a body's sections tell together.
struct Sections {
    bool wider = false;
    bool narrower = false;
    bool higher = false;
    bool lower = false;
    bool folded = false;
    bool finite = true;
    double first = 0;
    double last = 0;

    explicit Sections(const MeshSections& body) {
        for (int i = 1; i <= body.sectionCount(); ++i) take(body, i);
    }

private:
    void take(const MeshSections& body, int i) {
        const int k = body.storageIndex(i);
        wider = wider || body.width(k) > 0;
        narrower = narrower || body.width(k) < 0;
        higher = higher || body.height(k) > 0;
        lower = lower || body.height(k) < 0;
        const double x = body.pos(k) + body.pos_offset;
        if (i == 1) first = x;
        folded = folded || (i > 1 && x < last);
        last = x;
        // An exponent below 0 makes the smallest cosine the largest number.
        constexpr double smallestCosine = 1e-17;
        const double reach =
            std::pow(smallestCosine, std::min({0.0, body.curvature(k), body.curvature2(k)}));
        finite = finite && std::isfinite(x) &&
                 std::isfinite(
                     sizeOf({body.width(k), body.shift, body.elevation(k), body.elevation_offset}) *
                         reach +
                     body.height(k) * reach * (2 + std::abs(body.bias_curve(k))));
    }
};

Outcome checkBody(const MeshSections& body, std::size_t points) {
    if (points < 3) return Outcome::failed(NoSolid::fewPoints);
    const Sections sections(body);
    if (sections.folded) return Outcome::failed(NoSolid::folded);
    if (body.sectionCount() < 2 || sections.first == sections.last)
        return Outcome::failed(NoSolid::noLength);
    if ((sections.wider && sections.narrower) || (sections.higher && sections.lower))
        return Outcome::failed(NoSolid::insideOut);
    if (!(sections.wider || sections.narrower) || !(sections.higher || sections.lower))
        return Outcome::failed(NoSolid::noThickness);
    if (!sections.finite) return Outcome::failed(NoSolid::tooLarge);
    return {};
}

/// The outline points that a body's sections have: an odd number leaves one unset.
std::vector<int> setPoints(const MeshSections& body) {
    const MeshHalves halves(body.nb_cross);
    std::vector<int> points;
    for (int j = 1; j <= body.nb_cross; ++j)
        if (j != halves.unset) points.push_back(j);
    return points;
}

/// Root and tip alike: the place along the chord, and which end it is.
template <class Solid>
std::vector<Point2D> flatPlaces(const Solid& solid, double root, double tip) {
    std::vector<Point2D> places;
    for (int i = 1; i <= solid.pointCount(); ++i) places.push_back({solid.rootTexCoord(i), root});
    for (int i = 1; i <= solid.pointCount(); ++i) places.push_back({solid.tipTexCoord(i), tip});
    return places;
}

void convertTo(SolidPicture& picture, int width, int height) {
    picture.xtex = width;
    picture.ytex = height;
    picture.texture_loaded = true;
}

}  // namespace

Outcome loftOf(const SymWingSections& panel, double unit, Loft& loft) {
    const int points = panel.pointCount();
    double reach = 0;
    for (int i = 1; i <= points; ++i)
        reach = std::max(reach, sizeOf({panel.airfoilPoint(i).x, panel.airfoilPoint(i).z}));
    Outcome checked = checkFlat(panel, points, reach);
    if (!checked.isDone()) return checked;
    if (!std::isfinite(panel.elevation1 + panel.elevation2))
        return Outcome::failed(NoSolid::tooLarge);
    WingSection half;
    half.init(panel);
    half.create();
    loft = {static_cast<std::size_t>(points), {}, &Point3D::y};
    for (int i = 1; i <= points; ++i) add(loft, half.rootPoint(i), unit);
    for (int i = 1; i <= points; ++i) add(loft, half.tipPoint(i), unit);
    return {};
}

Outcome loftOf(const VertWingSection& fin, double unit, Loft& loft) {
    Outcome checked = checkFlat(fin, fin.nb, 1);
    if (!checked.isDone()) return checked;
    if (!std::isfinite(fin.offset1 + fin.offset2)) return Outcome::failed(NoSolid::tooLarge);
    FinSolid solid;
    solid.create(fin);
    loft = {static_cast<std::size_t>(fin.nb), {}, &Point3D::z};
    for (int i = 1; i <= fin.nb; ++i) add(loft, solid.rootPoint(i, false), unit);
    for (int i = 1; i <= fin.nb; ++i) add(loft, solid.tipPoint(i, false), unit);
    return {};
}

Outcome loftOf(const MeshSections& body, double unit, Loft& loft) {
    const std::vector<int> set = setPoints(body);
    Outcome checked = checkBody(body, set.size());
    if (!checked.isDone()) return checked;
    BodySolid solid;
    solid.create(body);
    loft = {set.size(), {}, &Point3D::x};
    loft.points.reserve(set.size() * static_cast<std::size_t>(solid.sections()));
    for (int i = 1; i <= solid.sections(); ++i)
        for (const int j : set) add(loft, solid.meshPoint(j, i, false), unit);
    return {};
}

Outcome loftOf(const ElectroBox& box, double unit, Loft& loft) {
    BoxSolid solid;
    solid.create(box);
    const Point3D size = solid.solidSize();
    const Point3D centre = solid.centre();
    if (size.x == 0) return Outcome::failed(NoSolid::noLength);
    if (size.y == 0 || size.z == 0) return Outcome::failed(NoSolid::noThickness);
    constexpr Point2D corners[] = {{0.5, 0.5}, {-0.5, 0.5}, {-0.5, -0.5}, {0.5, -0.5}};
    loft = {std::size(corners), {}, &Point3D::x};
    for (const double end : {-0.5, 0.5}) {
        for (const Point2D& corner : corners) {
            add(loft,
                {centre.x + end * size.x, centre.y + corner.x * size.y,
                 centre.z + corner.y * size.z},
                unit);
        }
    }
    return {};
}

std::vector<Point2D> placesOf(const SymWingSections& panel, int width, int height) {
    WingSection half;
    half.init(panel);
    half.create();
    convertTo(half.picture, width, height);
    half.create_texcoords();
    return flatPlaces(half, 1, 0);
}

std::vector<Point2D> placesOf(const VertWingSection& fin, int width, int height) {
    FinSolid solid;
    solid.picture.carry(fin.texture_filename);
    convertTo(solid.picture, width, height);
    solid.create(fin);
    return flatPlaces(solid, 0, 1);
}

std::vector<Point2D> placesOf(const MeshSections& body, int /*width*/, int /*height*/) {
    BodySolid solid;
    solid.create(body);
    const std::vector<int> set = setPoints(body);
    std::vector<Point2D> places;
    for (int i = 1; i <= solid.sections(); ++i) {
        for (const int j : set) {
            const Point2D place = solid.texCoordAt(j, i);
            places.push_back({place.x, -place.y});
        }
    }
    return places;
}

}  // namespace velna
