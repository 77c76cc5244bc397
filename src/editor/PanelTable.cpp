#include "editor/PanelTable.h"

#include <cmath>
#include <cstdint>

#include "common/Finite.h"
#include "common/NumberText.h"
#include "editor/Main.h"
#include "model/Equipment.h"
#include "model/Fuselage.h"

namespace velna {
namespace {

// The object that a row is about; of a project that cannot be changed, one that cannot be.
constexpr auto wing = [](auto& project) -> auto& {
    return project.Wings(project.currentWing);
};
constexpr auto stabilizer = [](auto& project) -> auto& {
    return project.Stabilizer;
};
constexpr auto fin = [](auto& project) -> auto& {
    return project.Rudder;
};
constexpr auto fuselage = [](auto& project) -> auto& {
    return Fuselage::current(project);
};
constexpr auto box = [](auto& project) -> auto& {
    return Equipment::current(project);
};

/// Reads and stores a plain field of the object that `object` gives.
template <auto object, auto field>
double read(const Project& project) {
    return object(project).*field;
}
template <auto object, auto field>
bool store(const PanelStore& store, double value) {
    return assignFinite(object(store.project).*field, value);
}

/// Reads and stores through the operations of the current fuselage's selected section.
template <auto getter>
double readSection(const Project& project) {
    return (fuselage(project).*getter)();
}
template <auto setter>
bool storeSection(const PanelStore& store, double value) {
    if (!std::isfinite(value)) return false;
    (fuselage(store.project).*setter)(value);
    return true;
}

template <auto object>
double readFullSpan(const Project& project) {
    return fullSpan(object(project));
}
/// The shift is the one shown beside it, so that what stands on the panel fits together.
template <auto object, Control shiftBox>
bool storeFullSpan(const PanelStore& store, double value) {
    return assignFinite(object(store.project).span,
                        value / 2 - leadingNumber(store.controls[shiftBox].text));
}

bool storeCrossPoints(const PanelStore& store, double value) {
    if (!(0 <= value && value <= 100)) return false;
    const std::int16_t count = roundToInt16(value);
    MeshSections& body = fuselage(store.project);
    if (!Fuselage::meshFits(store.project, &body, body.nb_sections, count)) return false;
    body.nb_cross = count;
    body.initArrays();
    return true;
}

template <auto field>
bool readFlag(const Project& project) {
    return fuselage(project).*field;
}
template <auto field>
void storeFlag(Project& project, bool on) {
    fuselage(project).*field = on;
}

using W = SymWingSections;
using V = VertWingSection;
using M = MeshSections;
using E = ElectroBox;
using enum TextRule;
using enum AfterCommit;

template <auto object, auto field>
constexpr PanelField plainField(Control control, int tab, TextRule rule, const char* quantity,
                                AfterCommit after = Redraw) {
    return {control, tab, read<object, field>, store<object, field>, rule, after, quantity};
}

template <auto getter, auto setter>
constexpr PanelField sectionField(Control control, const char* quantity) {
    return {control, PanelTab::fuselage, readSection<getter>, storeSection<setter>, Length, Redraw,
            quantity};
}

constexpr int tab0 = PanelTab::fuselage;
constexpr int tab1 = PanelTab::wing;
constexpr int tab2 = PanelTab::stabilizer;
constexpr int tab3 = PanelTab::rudder;
constexpr int tab4 = PanelTab::electronics;

constexpr PanelField fields[] = {
    sectionField<&M::widthGet, &M::widthSet>(Control::WidthFuselageText, "Width of the section"),
    sectionField<&M::heightGet, &M::heightSet>(Control::HeightFuselageText,
                                               "Height of the section"),
    sectionField<&M::elevationGet, &M::elevationSet>(Control::ElevationFuselageText,
                                                     "Elevation of the section's lowest point"),
    sectionField<&M::posGet, &M::posSet>(Control::PosFuselageText,
                                         "Position of the section along the fuselage"),
    plainField<fuselage, &M::elevation_offset>(Control::ElevOffsetText, tab0, Length,
                                               "Elevation of the whole fuselage"),
    {Control::NbCrossFuselageText, tab0,
     [](const Project& project) { return static_cast<double>(fuselage(project).nb_cross); },
     storeCrossPoints, Whole, BuildOutline, "Outline points of a section (0 to 100)"},
    plainField<fuselage, &M::pos_offset>(Control::PosOffsetText, tab0, Length,
                                         "Position of the whole fuselage", MovePlan),
    plainField<fuselage, &M::shift>(Control::ShiftOffsetText, tab0, Length,
                                    "Sideways offset of the whole fuselage", MovePlan),

    plainField<wing, &W::length1>(Control::LengthBText, tab1, Length, "Root chord"),
    plainField<wing, &W::length2>(Control::LengthEText, tab1, Length, "Tip chord"),
    plainField<wing, &W::pos1>(Control::PosBText, tab1, Length, "Position of the root"),
    plainField<wing, &W::pos2>(Control::PosEText, tab1, Length, "Sweep of the tip"),
    plainField<wing, &W::elevation1>(Control::ElevationBText, tab1, Length,
                                     "Elevation of the root"),
    plainField<wing, &W::elevation2>(Control::ElevationEText, tab1, Length,
                                     "Rise of the tip (dihedral)"),
    plainField<wing, &W::thickness1>(Control::ThicknessBText, tab1, Plain, "Root thickness"),
    plainField<wing, &W::thickness2>(Control::ThicknessEText, tab1, Plain, "Tip thickness"),
    plainField<wing, &W::shift>(Control::ShiftText, tab1, Length, "Sideways offset of the root",
                                RefillWing),
    {Control::SpanText, tab1, readFullSpan<wing>, storeFullSpan<wing, Control::ShiftText>, Length,
     Redraw, "Full span over both halves"},

    plainField<stabilizer, &W::length1>(Control::LengthBStabText, tab2, Length, "Root chord"),
    plainField<stabilizer, &W::length2>(Control::LengthEStabText, tab2, Length, "Tip chord"),
    plainField<stabilizer, &W::pos1>(Control::PosBStabText, tab2, Length, "Position of the root"),
    plainField<stabilizer, &W::pos2>(Control::PosEStabText, tab2, Length, "Sweep of the tip"),
    plainField<stabilizer, &W::elevation1>(Control::ElevationBStabText, tab2, Length,
                                           "Elevation of the root"),
    plainField<stabilizer, &W::elevation2>(Control::ElevationEStabText, tab2, Length,
                                           "Rise of the tip (dihedral)"),
    plainField<stabilizer, &W::thickness1>(Control::ThicknessBStabText, tab2, Plain,
                                           "Root thickness"),
    plainField<stabilizer, &W::thickness2>(Control::ThicknessEStabText, tab2, Plain,
                                           "Tip thickness"),
    plainField<stabilizer, &W::shift>(Control::ShiftStabText, tab2, Length,
                                      "Sideways offset of the root"),
    {Control::SpanStabText, tab2, readFullSpan<stabilizer>,
     storeFullSpan<stabilizer, Control::ShiftStabText>, Length, Redraw,
     "Full span over both halves"},

    plainField<fin, &V::length1>(Control::LengthBRudderText, tab3, Length, "Root chord"),
    plainField<fin, &V::length2>(Control::LengthERudderText, tab3, Length, "Tip chord"),
    plainField<fin, &V::pos1>(Control::PosBRudderText, tab3, Length, "Position of the root"),
    plainField<fin, &V::pos2>(Control::PosERudderText, tab3, Length, "Sweep of the tip"),
    plainField<fin, &V::thickness1>(Control::ThicknessBRudderText, tab3, Plain, "Root thickness"),
    plainField<fin, &V::thickness2>(Control::ThicknessERudderText, tab3, Plain, "Tip thickness"),
    plainField<fin, &V::span>(Control::SpanRudderText, tab3, Length, "Height of the fin"),
    plainField<fin, &V::shift>(Control::ShiftRudderText, tab3, Length, "Elevation of the root"),
    plainField<fin, &V::offset1>(Control::Offset1RudderText, tab3, Length,
                                 "Sideways offset of the root (twin fin)"),
    plainField<fin, &V::offset2>(Control::Offset2RudderText, tab3, Length,
                                 "Sideways lean of the tip (twin fin)"),

    plainField<box, &E::width>(Control::WidthServoText, tab4, Length, "Width of the box"),
    plainField<box, &E::height>(Control::HeightServoText, tab4, Length, "Height of the box"),
    plainField<box, &E::length>(Control::LengthServoText, tab4, Length, "Length of the box"),
    plainField<box, &E::pos>(Control::PosServoText, tab4, Length, "Position of the box"),
    plainField<box, &E::shift>(Control::ShiftServoText, tab4, Length,
                               "Sideways offset of the box's middle"),
    plainField<box, &E::elevation>(Control::ElevationServoText, tab4, Length,
                                   "Elevation of the box's underside"),
};

constexpr PanelSlider sliders[] = {
    {Control::CurvatureSlider, 1, 350, 10, readSection<&M::curvatureGet>,
     storeSection<&M::curvatureSet>, Control::Curvature2Slider, "Shape of the upper half"},
    {Control::Curvature2Slider, 1, 350, 10, readSection<&M::curvature2Get>,
     storeSection<&M::curvature2Set>, Control::CurvatureSlider, "Shape of the lower half"},
    {Control::BiasSlider, 1, 99, 5, readSection<&M::bias_curveGet>, storeSection<&M::bias_curveSet>,
     std::nullopt, "Height of the widest line"},
};

constexpr PanelCheck checks[] = {
    {Control::UniqueCurvatureCheck, readFlag<&M::uniqueCurvature>, storeFlag<&M::uniqueCurvature>,
     false, "One shape for all sections"},
    {Control::LinkedCurvaturesCheck, readFlag<&M::linkedCurvatures>,
     storeFlag<&M::linkedCurvatures>, false, "Upper and lower half alike"},
    {Control::TransparentCheck, readFlag<&M::transparent>, storeFlag<&M::transparent>, true,
     "Show the fuselage transparent"},
};

template <class Row>
const Row* findRow(std::span<const Row> rows, Control control) {
    for (const Row& row : rows)
        if (row.control == control) return &row;
    return nullptr;
}

}  // namespace

std::span<const PanelField> panelFields() {
    return fields;
}
std::span<const PanelSlider> panelSliders() {
    return sliders;
}
std::span<const PanelCheck> panelChecks() {
    return checks;
}

const PanelField* panelField(Control control) {
    return findRow(panelFields(), control);
}
const PanelSlider* panelSlider(Control control) {
    return findRow(panelSliders(), control);
}
const PanelCheck* panelCheck(Control control) {
    return findRow(panelChecks(), control);
}

double fullSpan(const SymWingSections& panel) {
    return 2 * (panel.span + panel.shift);
}

std::string panelText(const Project& project, const PanelField& field) {
    const double value = field.get(project);
    return field.rule == Length ? lengthText(value, project.units) : numberText(value);
}

std::string panelTip(const Project& project, const PanelField& field) {
    const std::string quantity = field.quantity;
    switch (field.rule) {
        case Length:
            return quantity + (project.units == inches ? " (in)" : " (mm)");
        case Plain:
            return quantity + " (fraction of the chord)";
        case Whole:
            return quantity;
    }
    return quantity;
}

std::string entryTip(const PanelStore& store, const PanelField& field) {
    const ControlState& shown = store.controls[field.control];
    switch (shown.entry) {
        case TextEntry::Filled:
        case TextEntry::Taken:
            return {};
        case TextEntry::Typed:
            return "Enter takes this number";
        case TextEntry::TakenInPart:
            return "Taken: " + numberText(leadingNumber(shown.text));
        case TextEntry::Refused:
            return "Not taken: " + panelText(store.project, field) + " stays";
    }
    return {};
}

}  // namespace velna
