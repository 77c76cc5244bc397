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
double lowestOfWings(const Project& project, double start, Value value) {
    for (int i = 1; i <= project.nbWings; ++i) lower(start, value(project.Wings(i)));
    return start;
}

template <class Value>
double highestOfWings(const Project& project, double start, Value value) {
    for (int i = 1; i <= project.nbWings; ++i) raise(start, value(project.Wings(i)));
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

double halfSpan(const Project& project) {
    const auto reach = [](const SymWingSections& wing) { return wing.span + wing.shift; };
    return maxOf({highestOfWings(project, -beyondWings, reach), reach(project.Stabilizer)});
}

/// Where the aircraft begins along its length, seen from the fuselage, the wings' tips and the
/// tail.
double startOfAircraft(const Project& project) {
    return minOf({Fuselage::current(project).startpoint(),
                  lowestOfWings(project, beyondWings, tipStart), tipStart(project.Stabilizer),
                  rootEnd(project.Stabilizer)});
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

Transform fitSection(const Project& project, SurfaceSize size, Extent upright, Transform at) {
    const MeshSections& body = Fuselage::current(project);
    assignFinite(at.zoom, scale(0.9 * size.height, upright.size()));
    const double position = body.posGet() + body.pos_offset;
    return centred(size, {position, position}, upright, at);
}

/// Across the current fuselage where it is `width` wide. Fuselages stand in HTop with their shift
/// downward, so what is upward is the mirrored extent.
Extent acrossBody(const MeshSections& body, double width) {
    const double shift = body.shift;
    return {-(shift + width / 2), -(shift - width / 2)};
}

}  // namespace

namespace Plane {

Transform fitVTop(const Project& project, SurfaceSize size, Transform at) {
    const double start = startOfAircraft(project);
    const double end = maxOf({Fuselage::current(project).lengthPoint(),
                              highestOfWings(project, -beyondWings, tipStart),
                              tipEnd(project.Stabilizer), rootEnd(project.Stabilizer)});
    fitExtents(size, 2 * halfSpan(project), end - start, at.zoom);
    assignFinite(at.yoff, (size.height - at.zoom * (start + end)) / 2);
    return at;
}

Transform fitFront(const Project& project, SurfaceSize size, Transform at) {
    const SymWingSections& first = project.Wings(1);
    const double lowest =
        lowestOfWings(project, first.elevation1 - first.length1 * first.thickness1 / 2, tipBottom);
    const double highest =
        highestOfWings(project, first.elevation1 + first.length1 * first.thickness1 / 2, tipTop);
    const double bottom = minOf({Fuselage::current(project).minElevationPoint(), lowest,
                                 tipBottom(project.Stabilizer), project.Rudder.shift});
    const double top =
        maxOf({Fuselage::current(project).maxElevationPoint(), highest, tipTop(project.Stabilizer),
               project.Rudder.shift + project.Rudder.span});
    fitExtents(size, 2 * halfSpan(project), top - bottom, at.zoom);
    assignFinite(at.yoff, (size.height + at.zoom * (bottom + top)) / 2);
    return at;
}

Transform fitSide(const Project& project, SurfaceSize size, Transform at, SideExtent extent) {
    const MeshSections& body = Fuselage::current(project);
    Extent along{body.startpoint(), body.lengthPoint()};
    Extent upright{body.minElevationPoint(), body.maxElevationPoint()};
    if (extent == SideExtent::aircraft) {
        along = {startOfAircraft(project),
                 maxOf({body.lengthPoint(), highestOfWings(project, -beyondWings, tipEnd),
                        tipEnd(project.Stabilizer), project.Rudder.pos1 + project.Rudder.length1,
                        project.Rudder.pos1 + project.Rudder.pos2 + project.Rudder.length2})};
        upright = {minOf({body.minElevationPoint(), project.Rudder.shift}),
                   maxOf({body.maxElevationPoint(), project.Rudder.shift + project.Rudder.span})};
    }
    return fitBoth(size, along, upright, at);
}

Transform fitHTop(const Project& project, SurfaceSize size, Transform at) {
    const MeshSections& body = Fuselage::current(project);
    return fitBoth(size, {body.startpoint(), body.lengthPoint()},
                   acrossBody(body, body.maxWidthPoint()), at);
}

Transform focusSide(const Project& project, SurfaceSize size, Transform at) {
    const MeshSections& body = Fuselage::current(project);
    const double bottom = body.elevationGet();
    return fitSection(project, size, {bottom, bottom + body.heightGet()}, at);
}

Transform focusHTop(const Project& project, SurfaceSize size, Transform at) {
    const MeshSections& body = Fuselage::current(project);
    return fitSection(project, size, acrossBody(body, body.widthGet()), at);
}

}  // namespace Plane
}  // namespace velna
