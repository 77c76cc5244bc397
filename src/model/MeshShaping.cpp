#include <algorithm>
#include <cmath>
#include <vector>

#include "common/Finite.h"
#include "common/NumberText.h"
#include "model/MeshSections.h"
#include "model/Plane.h"
#include "model/SectionArrays.h"

namespace velna {

namespace {

/// The line through (p1, v1) and (p2, v2) at p; the product comes before the division.
double interpolateSection(double v1, double v2, double p1, double p2, double p) {
    return v1 + (p - p1) * (v2 - v1) / (p2 - p1);
}

/// The values that a new section takes from the surface, in order.
constexpr Array1<double> MeshSections::*interpolatedArrays[] = {
    &MeshSections::height,    &MeshSections::width,      &MeshSections::elevation,
    &MeshSections::curvature, &MeshSections::curvature2, &MeshSections::bias_curve};

/// Three quarters of `line` at ordered position i, one quarter of the straight line between its
/// neighbours there. Not a number where the neighbours stand at the same place.
double smoothValue(const MeshSections& body, const std::vector<double>& line, int i) {
    const int before = body.storageIndex(i - 1);
    const int at = body.storageIndex(i);
    const int behind = body.storageIndex(i + 1);
    const double previous = line[static_cast<std::size_t>(before)];
    const double current = line[static_cast<std::size_t>(at)];
    const double next = line[static_cast<std::size_t>(behind)];
    const double d0 = body.pos(at) - body.pos(before);
    const double d1 = body.pos(behind) - body.pos(at);
    const double d2 = body.pos(behind) - body.pos(before);
    return (current * d2 * 1.5 + (next * d0 * 0.5 + previous * d1 * 0.5)) / (d2 + d2);
}

/// A scratch line by storage index, with `value(k)` at each section's k.
template <class Value>
std::vector<double> profileLine(const MeshSections& body, Value value) {
    std::vector<double> line(static_cast<std::size_t>(body.height.upper()) + 1);
    const int sections = body.sectionCount();
    for (int i = 1; i <= sections; ++i) {
        const int k = body.storageIndex(i);
        line[static_cast<std::size_t>(k)] = value(k);
    }
    return line;
}

std::vector<double> topLine(const MeshSections& body) {
    return profileLine(
        body, [&](int k) { return body.height(k) + body.elevation(k) + body.elevation_offset; });
}

}  // namespace

double MeshSections::lengthPoint() const {
    double value = -10000000;
    const int sections = sectionCount();
    for (int k = 1; k <= sections; ++k)
        if (pos(k) > value) value = pos(k);
    assignFinite(value, value + pos_offset);
    return value;
}

double MeshSections::startpoint() const {
    double value = 10000000;
    const int sections = sectionCount();
    for (int k = 1; k <= sections; ++k)
        if (pos(k) < value) value = pos(k);
    assignFinite(value, value + pos_offset);
    return value;
}

double MeshSections::maxElevationPoint() const {
    double value = -10000000;
    const int sections = sectionCount();
    for (int k = 1; k <= sections; ++k) {
        const double top = elevation(k) + height(k) + elevation_offset;
        if (top > value) assignFinite(value, top);
    }
    return value;
}

double MeshSections::minElevationPoint() const {
    // Smaller in size than its partner's start: a body wholly above it reports this height.
    double value = 100000;
    const int sections = sectionCount();
    for (int k = 1; k <= sections; ++k) {
        const double bottom = elevation(k) + elevation_offset;
        if (bottom < value) assignFinite(value, bottom);
    }
    return value;
}

double MeshSections::maxWidthPoint() const {
    double value = -1;
    const int sections = sectionCount();
    for (int k = 1; k <= sections; ++k)
        if (width(k) > value) value = width(k);
    return value;
}

void MeshSections::insertSection(double position) {
    if (nb_cross == 0 || nb_sections < 0 || !Plane::increment(nb_sections)) return;
    initArrays();
    const std::int16_t added = nb_sections;
    const int before = storageIndex(sel_sec - 1);
    const int behind = storageIndex(sel_sec);
    assignFinite(pos(added), position);
    for (auto array : interpolatedArrays) {
        auto& values = this->*array;
        assignFinite(values(added), interpolateSection(values(before), values(behind), pos(before),
                                                       pos(behind), pos(added)));
    }
    for (int i = nb_sections; i >= 1; --i) {
        if (i == sel_sec) sectionOrder(i) = added;
        if (i > sel_sec) sectionOrder(i) = sectionOrder(i - 1);
    }
}

void MeshSections::removeSection() {
    if (nb_cross == 0 || nb_sections < 3) return;
    if (sectionCount() < nb_sections) initArrays();
    if (sel_sec < 1 || sel_sec > sectionOrder.upper()) return;
    --nb_sections;
    const int removed = sectionOrder(sel_sec);
    for (int i = sel_sec; i <= nb_sections; ++i) sectionOrder(i) = sectionOrder(i + 1);
    for (int i = 1; i <= nb_sections; ++i)
        if (sectionOrder(i) > removed) --sectionOrder(i);
    // The arrays keep their size; the last entry is left over.
    for (int i = std::max(removed, 1); i <= nb_sections; ++i)
        for (auto array : sectionArrays) (this->*array)(i) = (this->*array)(i + 1);
}

void MeshSections::smoothTop() {
    const auto line = topLine(*this);
    // All new values come from the line before the command: no section sees a neighbour moved.
    std::vector<double> result(line.size());
    for (int i = 2; i <= sectionCount() - 1; ++i)
        result[static_cast<std::size_t>(storageIndex(i))] = smoothValue(*this, line, i);
    for (int i = 2; i <= sectionCount() - 1; ++i) {
        const int k = storageIndex(i);
        assignFinite(height(k),
                     result[static_cast<std::size_t>(k)] - elevation(k) - elevation_offset);
    }
}

void MeshSections::smoothDown() {
    const auto top = topLine(*this);
    const auto bottom =
        profileLine(*this, [this](int k) { return elevation(k) + elevation_offset; });
    // The line holds the offset, and its value is stored as it is: an offset raises the inner
    // sections by itself at each command. Projects were shaped with it.
    for (int i = 2; i <= sectionCount() - 1; ++i)
        assignFinite(elevation(storageIndex(i)), smoothValue(*this, bottom, i));
    for (int i = 2; i <= sectionCount() - 1; ++i) {
        const int k = storageIndex(i);
        assignFinite(height(k), top[static_cast<std::size_t>(k)] - elevation(k) - elevation_offset);
    }
}

void MeshSections::SmoothWidth() {
    const auto line = profileLine(*this, [this](int k) { return width(k); });
    for (int i = 2; i <= sectionCount() - 1; ++i)
        assignFinite(width(storageIndex(i)), smoothValue(*this, line, i));
}

}  // namespace velna
