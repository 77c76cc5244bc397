#include "model/MeshSections.h"

#include <algorithm>
#include <iterator>

#include "common/Finite.h"
#include "model/SectionArrays.h"
#include "model/Units.h"

namespace velna {

namespace {

/// The numbers of a section that are lengths.
constexpr Array1<double> MeshSections::*sectionLengths[] = {
    &MeshSections::height, &MeshSections::width, &MeshSections::pos, &MeshSections::elevation};

constexpr double MeshSections::*bodyLengths[] = {&MeshSections::shift, &MeshSections::pos_offset,
                                                 &MeshSections::elevation_offset};

/// The default shape, a row for each of `sectionArrays`.
constexpr double defaultShape[][3] = {
    {20, 100, 10}, {20, 100, 10}, {0, 200, 800},   {10, 10, 30},
    {1, 1, 1},     {1, 1, 1},     {0.5, 0.5, 0.5},
};
static_assert(std::size(defaultShape) == std::size(sectionArrays));

constexpr std::int16_t defaultSections = 3;
constexpr std::int16_t defaultCross = 8;

double divided(double value, double by) {
    return value / by;
}

double multiplied(double value, double by) {
    return value * by;
}

}  // namespace

MeshSections::MeshSections(int unit, const Point3D& color) {
    nb_sections = defaultSections;
    nb_cross = defaultCross;
    initArrays();
    for (std::int16_t i = 1; i <= defaultSections; ++i) {
        sectionOrder(i) = i;
        for (std::size_t array = 0; array < std::size(sectionArrays); ++array)
            (this->*sectionArrays[array])(i) = defaultShape[array][i - 1];
    }
    color_ = color;
    if (unit == inches) switchToInches();
}

MeshSections::MeshSections(std::int16_t sections, std::int16_t cross)
    : nb_sections(sections), nb_cross(cross) {
    initArrays();
}

MeshSections MeshSections::copyShapeAndSelectLast() {
    MeshSections copy(nb_sections, nb_cross);
    // The values are read as the panel reads them, by the selected section; the selection stays at
    // the last one.
    for (int i = 1; i <= copy.sectionCount(); ++i) {
        sel_sec = copy.sectionOrder(i) = static_cast<std::int16_t>(i);
        copy.height(i) = heightGet();
        copy.width(i) = widthGet();
        copy.pos(i) = posGet();
        copy.elevation(i) = elevationGet();
        copy.curvature(i) = curvatureGet();
        copy.curvature2(i) = curvature2Get();
        copy.bias_curve(i) = bias_curveGet();
    }
    // Offsets, editor scale and picture are not taken over: the copy lies on the centre line and is
    // meant to be reshaped.
    copy.transparent = transparent;
    copy.color_ = color_;
    copy.uniqueCurvature = uniqueCurvature;
    copy.linkedCurvatures = linkedCurvatures;
    return copy;
}

void MeshSections::initArrays() {
    const int sections = std::max<int>(nb_sections, 0);
    for (auto array : sectionArrays) (this->*array).resize(sections);
    sectionOrder.resize(sections);
}

int MeshSections::sectionCount() const {
    int count = std::min<int>(nb_sections, sectionOrder.upper());
    for (auto array : sectionArrays) count = std::min(count, (this->*array).upper());
    return std::max(count, 0);
}

int MeshSections::storageIndex(int i) const {
    if (i < 0 || i > sectionOrder.upper()) return 0;
    const int k = sectionOrder(i);
    return 0 <= k && k <= height.upper() ? k : 0;
}

void MeshSections::fillCurvatureArrays() {
    const int sections = sectionCount();
    for (int k = 1; k <= sections; ++k) {
        curvature2(k) = curvature(k);
        bias_curve(k) = 0.5;
    }
}

double MeshSections::widthGet() const {
    return sectionSelected() ? width(storageIndex(sel_sec)) : 0;
}

double MeshSections::heightGet() const {
    return sectionSelected() ? height(storageIndex(sel_sec)) : 0;
}

double MeshSections::elevationGet() const {
    return sectionSelected() ? elevation(storageIndex(sel_sec)) : 0;
}

double MeshSections::posGet() const {
    return sectionSelected() ? pos(storageIndex(sel_sec)) : 0;
}

double MeshSections::curvatureGet() const {
    return sectionSelected() ? curvature(storageIndex(sel_sec)) : 0;
}

double MeshSections::curvature2Get() const {
    return sectionSelected() ? curvature2(storageIndex(sel_sec)) : 0;
}

double MeshSections::bias_curveGet() const {
    return sectionSelected() ? bias_curve(storageIndex(sel_sec)) : 0;
}

void MeshSections::widthSet(double w) {
    if (sectionSelected()) assignFinite(width(storageIndex(sel_sec)), w);
}

void MeshSections::heightSet(double h) {
    if (sectionSelected()) assignFinite(height(storageIndex(sel_sec)), h);
}

void MeshSections::elevationSet(double e) {
    if (sectionSelected()) assignFinite(elevation(storageIndex(sel_sec)), e);
}

void MeshSections::posSet(double e) {
    if (sectionSelected()) assignFinite(pos(storageIndex(sel_sec)), e);
}

/// The shape setters: all sections together, or the selected one.
void MeshSections::setOnShape(Array1<double>& values, double value) {
    if (!sectionSelected()) return;
    if (!uniqueCurvature) {
        assignFinite(values(storageIndex(sel_sec)), value);
        return;
    }
    for (int k = 1; k <= sectionCount(); ++k) assignFinite(values(k), value);
}

void MeshSections::curvatureSet(double e) {
    setOnShape(curvature, e);
}

void MeshSections::curvature2Set(double e) {
    setOnShape(curvature2, e);
}

void MeshSections::bias_curveSet(double e) {
    setOnShape(bias_curve, e);
}

void MeshSections::changeLengths(double (*change)(double, double), double operand) {
    for (auto field : bodyLengths) assignFinite(this->*field, change(this->*field, operand));
    for (int i = 1; i <= sectionCount(); ++i) {
        const int k = storageIndex(i);
        for (auto array : sectionLengths) {
            double& value = (this->*array)(k);
            assignFinite(value, change(value, operand));
        }
    }
}

void MeshSections::switchToInches() {
    changeLengths(divided, Plane::millimetresPerInch);
}

void MeshSections::switchToMillimeters() {
    changeLengths(multiplied, Plane::millimetresPerInch);
}

void MeshSections::rescale(double k) {
    changeLengths(multiplied, k);
}

}  // namespace velna
