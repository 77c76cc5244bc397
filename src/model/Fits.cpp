
#include "model/Fits.h"

#include <cmath>
#include <initializer_list>
#include <limits>

#include "common/Finite.h"
#include "model/Fuselage.h"
#include "model/Plane.h"

namespace velna {
namespace {

// A model that reaches further than this is fitted as if it ended here.
constexpr double farthest = 100000;

// Where a search over the wings starts; any wing is expected to lie nearer.
constexpr double beyondWings = 10000000;

void lower(double& least, double value) {
    if (std::isfinite(value) && value < least) least = value;
}

void raise(double& most, double value) {
    if (std::isfinite(value) && value > most) most = value;
}

double minOf(std::initializer_list<double> list) {
    double least = farthest;
    for (double value : list) lower(least, value);
    return least;
}

double maxOf(std::initializer_list<double> list) {
    double most = -farthest;
    for (double value : list) raise(most, value);
    return most;
}

template <class Value>
double lowestOfWings(double start, Value value) {
    for (int i = 1; i <= nbWings; ++i) lower(start, value(Wings.alike(i)));
    return start;
}

template <class Value>
double highestOfWings(double start, Value value) {
    for (int i = 1; i <= nbWings; ++i) raise(start, value(Wings.alike(i)));
    return start;
}

double tipStart(const SymWingSections& wing) {
    return wing.pos1 + wing.pos2;
}
double tipEnd(const SymWingSections& wing) {
    return wing.pos1 + wing.pos2 + wing.length2;
}
double rootEnd(const SymWingSections& wing) {
    return wing.pos1 + wing.length1;
}

double tipBottom(const SymWingSections& wing) {
    return wing.elevation1 + wing.elevation2 - wing.length2 * wing.thickness2 / 2;
}

double tipTop(const SymWingSections& wing) {
    return wing.elevation1 + wing.elevation2 + wing.length2 * wing.thickness2 / 2;
}

double halfSpan() {
    const auto reach = [](const SymWingSections& wing) { return wing.span + wing.shift; };
    return maxOf({highestOfWings(-beyondWings, reach), reach(Stabilizer)});
}

/// Where the aircraft begins along its length, seen from the fuselage, the wings' tips and the
/// tail.
double startOfAircraft() {
    return minOf({Fuselage::current().startpoint(), lowestOfWings(beyondWings, tipStart),
                  tipStart(Stabilizer), rootEnd(Stabilizer)});
}

/// Pixels per model unit; NaN where the division fails, because there is no extent or it is beyond
/// all numbers.
double scale(double pixels, double extent) {
    const double quotient = pixels / extent;
    return std::isfinite(extent) && std::isfinite(quotient)
               ? quotient
               : std::numeric_limits<double>::quiet_NaN();
}

/// `zoom` such that `across` by `upright` model units fill 95 % of the surface. One failing
/// division fails the whole: `zoom` then stands as it is.
void fitExtents(SurfaceSize size, double across, double upright, double& zoom) {
    const double byWidth = scale(size.width, across);
    const double byHeight = scale(size.height, upright);
    if (std::isnan(byWidth) || std::isnan(byHeight)) return;
    zoom = 0.95 * minOf({byWidth, byHeight});
}

/// An extent of the model on one axis.
struct Extent {
    double low;
    double high;
    double size() const { return high - low; }
    double sum() const { return low + high; }
};

/// Puts the middle of `along` and `upright` in the middle of the surface, the second axis upward.
Transform centred(SurfaceSize size, Extent along, Extent upright, Transform at) {
    assignFinite(at.xoff, (size.width - at.zoom * along.sum()) / 2);
    assignFinite(at.yoff, (size.height + at.zoom * upright.sum()) / 2);
    return at;
}

Transform fitBoth(SurfaceSize size, Extent along, Extent upright, Transform at) {
    fitExtents(size, along.size(), upright.size(), at.zoom);
    return centred(size, along, upright, at);
}

Transform fitSection(SurfaceSize size, Extent upright, Transform at) {
    const MeshSections& body = Fuselage::current();
    assignFinite(at.zoom, scale(0.9 * size.height, upright.size()));
    const double position = body.posGet() + body.pos_offset;
    return centred(size, {position, position}, upright, at);
}

/// Across the current fuselage where it is `width` wide. Fuselages stand in HTop with their shift
/// downward, so what is upward is the mirrored extent.
Extent acrossBody(double width) {
    const double shift = Fuselage::current().shift;
    return {-(shift + width / 2), -(shift - width / 2)};
}

}  // namespace

namespace Plane {

Transform fitVTop(SurfaceSize size, Transform at) {
    const double start = startOfAircraft();
    const double end =
        maxOf({Fuselage::current().lengthPoint(), highestOfWings(-beyondWings, tipStart),
               tipEnd(Stabilizer), rootEnd(Stabilizer)});
    fitExtents(size, 2 * halfSpan(), end - start, at.zoom);
    assignFinite(at.yoff, (size.height - at.zoom * (start + end)) / 2);
    return at;
}

Transform fitFront(SurfaceSize size, Transform at) {
    const SymWingSections& first = Wings(1);
    const double lowest =
        lowestOfWings(first.elevation1 - first.length1 * first.thickness1 / 2, tipBottom);
    const double highest =
        highestOfWings(first.elevation1 + first.length1 * first.thickness1 / 2, tipTop);
    const double bottom = minOf(
        {Fuselage::current().minElevationPoint(), lowest, tipBottom(Stabilizer), Rudder.shift});
    const double top = maxOf({Fuselage::current().maxElevationPoint(), highest, tipTop(Stabilizer),
                              Rudder.shift + Rudder.span});
    fitExtents(size, 2 * halfSpan(), top - bottom, at.zoom);
    assignFinite(at.yoff, (size.height + at.zoom * (bottom + top)) / 2);
    return at;
}

Transform fitSide(SurfaceSize size, Transform at, SideExtent extent) {
    const MeshSections& body = Fuselage::current();
    Extent along{body.startpoint(), body.lengthPoint()};
    Extent upright{body.minElevationPoint(), body.maxElevationPoint()};
    if (extent == SideExtent::aircraft) {
        along = {startOfAircraft(), maxOf({body.lengthPoint(), highestOfWings(-beyondWings, tipEnd),
                                           tipEnd(Stabilizer), Rudder.pos1 + Rudder.length1,
                                           Rudder.pos1 + Rudder.pos2 + Rudder.length2})};
        upright = {minOf({body.minElevationPoint(), Rudder.shift}),
                   maxOf({body.maxElevationPoint(), Rudder.shift + Rudder.span})};
    }
    return fitBoth(size, along, upright, at);
}

Transform fitHTop(SurfaceSize size, Transform at) {
    const MeshSections& body = Fuselage::current();
    return fitBoth(size, {body.startpoint(), body.lengthPoint()}, acrossBody(body.maxWidthPoint()),
                   at);
}

Transform focusSide(SurfaceSize size, Transform at) {
    const MeshSections& body = Fuselage::current();
    const double bottom = body.elevationGet();
    return fitSection(size, {bottom, bottom + body.heightGet()}, at);
}

Transform focusHTop(SurfaceSize size, Transform at) {
    return fitSection(size, acrossBody(Fuselage::current().widthGet()), at);
}

}  // namespace Plane
}  // namespace velna
