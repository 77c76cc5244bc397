#include "model/HullFigures.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "model/MeshSections.h"
#include "model/SectionRing.h"

namespace velna {

namespace {

/// Twice the area and twelve times the volume, by the distance of two sections, of what stands
/// between them; ends apart.
struct Bay {
    double area = 0;
    double volume = 0;
};

/// The length of a vector. Where the squares would vanish or overflow, the slower way keeps them.
double size(double x, double y, double z) {
    constexpr double smallest = 1e-280;
    const double squares = x * x + y * y + z * z;
    constexpr double largest = 1e300;
    const bool safe = squares > smallest && squares < largest;
    return safe ? std::sqrt(squares) : std::hypot(x, y, z);
}

/// The nearest double, or an infinity.
double rounded(Real value) {
    if (isFigure(value)) return static_cast<double>(value);
    return std::copysign(std::numeric_limits<double>::infinity(), value < 0 ? -1.0 : 1.0);
}

/// The surface between `front` and `rear`, whose lowest point stands `rise` higher, `length` apart.
/// The volume is the integral of the distance from an axis near the hull over the surface
/// (B. Mirtich, "Fast and Accurate Computation of Polyhedral Mass Properties", 1996, for a
/// polyhedron whose ends are square to that axis): they add nothing, and no place along it counts.
/// Nor does `rise`: it shears the bay, which leaves the volume.
Bay bayBetween(const SectionRing::Points& front, const SectionRing::Points& rear, double rise,
               double length) {
    Bay bay;
    // The product of two edges; (y, z) is the edge that lies in a section.
    const auto twiceArea = [&](double y1, double z1, double y2, double z2, double y, double z) {
        return size(y1 * z2 - z1 * y2, z * length, y * length);
    };
    for (std::size_t j = 0; j + 1 < front.y.size(); ++j) {
        const double y1 = front.y[j], z1 = front.z[j];
        const double y2 = front.y[j + 1], z2 = front.z[j + 1];
        const double y3 = rear.y[j], z3 = rear.z[j];
        const double y4 = rear.y[j + 1], z4 = rear.z[j + 1];
        const double up3 = z3 - z1 + rise, up4 = z4 - z1 + rise;
        bay.area += twiceArea(y2 - y1, z2 - z1, y4 - y1, up4, y2 - y1, z2 - z1) +
                    twiceArea(y4 - y1, up4, y3 - y1, up3, y4 - y3, z4 - z3);
        bay.volume += (z2 - z1) * (y1 + y2 + y4) - (y2 - y1) * (z1 + z2 + z4) +
                      (z4 - z3) * (y1 + y3 + y4) - (y4 - y3) * (z1 + z3 + z4);
    }
    return bay;
}

/// The area of the outline of the section in ordered place `i`, in units of the project.
Real outlineArea(const MeshSections& body, int i) {
    const Real scale = SectionRing::scaleOf(body, i, i);
    SectionRing::Points points;
    SectionRing(body, scale).collect(i, points);
    double area = 0;
    for (std::size_t j = 0; j + 1 < points.y.size(); ++j)
        area += points.y[j] * points.z[j + 1] - points.z[j] * points.y[j + 1];
    return std::abs(Real{area}) / 2 * scale * scale;
}

/// What a chain of numbers does.
struct Signs {
    bool above = false;
    bool below = false;

    void note(double value) {
        above = above || value > 0;
        below = below || value < 0;
    }
    bool both() const { return above && below; }
};

/// Whether the sections go back and forth, or the outline turns over on the way.
bool isFolded(const MeshSections& body) {
    Signs ways;
    Signs widths;
    Signs heights;
    for (int i = 1; i <= body.sectionCount(); ++i) {
        const int k = body.storageIndex(i);
        widths.note(body.width(k));
        heights.note(body.height(k));
        if (i == 1) continue;
        const double before = body.pos(body.storageIndex(i - 1));
        ways.above = ways.above || body.pos(k) > before;
        ways.below = ways.below || body.pos(k) < before;
    }
    return ways.both() || widths.both() || heights.both();
}

Real length(const MeshSections& body) {
    double least = body.pos(body.storageIndex(1));
    double most = least;
    for (int i = 2; i <= body.sectionCount(); ++i) {
        least = std::min(least, body.pos(body.storageIndex(i)));
        most = std::max(most, body.pos(body.storageIndex(i)));
    }
    return Real{most} - least;
}

/// The whole surface without its ends, in units of the ring's scale.
struct Surface {
    Real area = 0;
    Real volume = 0;
};

Surface surfaceOf(const MeshSections& body, Real scale) {
    SectionRing ring(body, scale);
    SectionRing::Points front;
    SectionRing::Points rear;
    const auto step = [&](const Array1<double>& values, int k, int before) {
        return rounded((Real{values(k)} - values(before)) / scale);
    };
    ring.collect(1, front);
    Surface surface;
    for (int i = 2; i <= body.sectionCount(); ++i) {
        const int before = body.storageIndex(i - 1);
        const int k = body.storageIndex(i);
        ring.collect(i, rear);
        const double length = step(body.pos, k, before);
        const Bay bay = bayBetween(front, rear, step(body.elevation, k, before), length);
        surface.area += Real{bay.area} / 2;
        surface.volume += Real{bay.volume} * length / 12;
        std::swap(front, rear);
    }
    surface.volume = std::abs(surface.volume);
    return surface;
}

}  // namespace

HullFigures hullFigures(const MeshSections& body, int number, Real millimetre) {
    HullFigures hull;
    hull.number = number;
    hull.count = body.shift == 0 ? 1 : 2;
    hull.sections = body.nb_sections;
    hull.outlinePoints = body.nb_cross;
    if (body.nb_cross < 2 || body.sectionCount() < 1) return hull;
    hull.folded = isFolded(body);
    const Real scale = SectionRing::scaleOf(body);
    const Surface surface = surfaceOf(body, scale);
    const Real unit = scale * millimetre;
    const int last = body.sectionCount();
    const bool turned = body.pos(body.storageIndex(last)) < body.pos(body.storageIndex(1));
    const auto end = [&](int i) {
        return given(outlineArea(body, i) * millimetre * millimetre, squareDecimetre);
    };
    hull.length = given(length(body) * millimetre);
    hull.wettedArea = given(surface.area * unit * unit, squareDecimetre);
    hull.frontArea = end(turned ? last : 1);
    hull.rearArea = end(turned ? 1 : last);
    if (!hull.folded) hull.volume = given(surface.volume * unit * unit * unit, cubicCentimetre);
    return hull;
}

}  // namespace velna
