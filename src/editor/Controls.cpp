#include "editor/Controls.h"

#include <algorithm>

#include "editor/Main.h"

namespace velna {
namespace {

// In the order of the enumeration; `static_assert` below counts them.
// clang-format off
constexpr const char* controlNames[] = {
    // tab 1, wing
    "LengthBText", "LengthEText", "PosBText", "PosEText", "ElevationBText", "ElevationEText",
    "ThicknessBText", "ThicknessEText", "ShiftText", "SpanText",
    // tab 2, stabiliser
    "LengthBStabText", "LengthEStabText", "PosBStabText", "PosEStabText", "ElevationBStabText",
    "ElevationEStabText", "ThicknessBStabText", "ThicknessEStabText", "ShiftStabText",
    "SpanStabText",
    // tab 3, rudder
    "LengthBRudderText", "LengthERudderText", "PosBRudderText", "PosERudderText",
    "ThicknessBRudderText",
    "ThicknessERudderText", "SpanRudderText", "ShiftRudderText", "Offset1RudderText",
    "Offset2RudderText",
    // tab 0, fuselage
    "WidthFuselageText", "HeightFuselageText", "ElevationFuselageText", "PosFuselageText",
    "ElevOffsetText",
    "NbCrossFuselageText", "PosOffsetText", "ShiftOffsetText",
    // tab 4, equipment
    "WidthServoText", "HeightServoText", "LengthServoText", "PosServoText", "ShiftServoText",
    "ElevationServoText",
    // scroll bars and their labels
    "IndexWingsScroll", "FuselageScroll", "IndexFusScroll", "IndexServosScroll",
    "IdWingLabel", "FuselageSectionLabel", "IdFusLabel", "IdEquipLabel",
    // shape of the section
    "CurvatureSlider", "Curvature2Slider", "BiasSlider",
    "UniqueCurvatureCheck", "LinkedCurvaturesCheck", "TransparentCheck",
    // push buttons
    "IndexWingPlusButton", "IndexWingMinusButton", "IndexFusPlusButton", "IndexFusMinusButton",
    "IndexServosPlusButton", "IndexServosMinusButton",
    "SmoothTopCommand", "SmoothDownCommand", "SmoothWidthCommand",
    // equipment options and catalogues
    "HorizontalServoOption", "VerticalServoOption", "ServoOption", "ReceiverOption", "AccuOption",
    "ServosCombo", "ReceiverCombo", "AccuCombo",
    // frames and the tab strip
    "FuselageVTopFrame", "Parameters",
    // toolbar keys with a state
    "VTopButton", "FrontButton", "SideButton", "HTopButton", "RenderButton", "FlyingPreviewButton",
    "UndoButton", "RedoButton",
    // popup menu
    "Popup", "Change", "InsRem", "LoadBitmap", "MoveBitmap", "SizeBitmap", "LockZoom",
    "ClearBitmap", "UndoStep", "RedoStep", "StartView", "TracePicture",
    // the demonstration's floating sign
    "ShiftButton",
};
// clang-format on
static_assert(std::size(controlNames) == controlCount);

}  // namespace

const char* controlName(Control control) {
    return controlNames[static_cast<std::size_t>(control)];
}

void MainForm::setText(Control control, const std::string& text) {
    controls[control].text = text;
    setEntry(control, TextEntry::Filled);
}

void MainForm::setEntry(Control box, TextEntry entry) {
    controls[box].entry = entry;
    window->changed(box);
}

void MainForm::setVisible(Control control, bool visible) {
    if (controls[control].visible == visible) return;
    controls[control].visible = visible;
    window->changed(control);
}

void MainForm::setEnabled(Control control, bool enabled) {
    if (controls[control].enabled == enabled) return;
    controls[control].enabled = enabled;
    window->changed(control);
}

void MainForm::setChecked(Control control, bool checked) {
    if (controls[control].checked == checked) return;
    controls[control].checked = checked;
    window->changed(control);
}

void MainForm::setSlider(Control control, int value) {
    if (controls[control].value == value) return;
    controls[control].value = value;
    window->changed(control);
}

void MainForm::setScroll(Control bar, int maximum, int value) {
    ControlState& state = controls[bar];
    const int shown = std::clamp(value, 1, std::max(maximum, 1));
    const bool moved = state.value != shown;
    if (!moved && state.maximum == maximum) return;
    state.maximum = maximum;
    state.value = shown;
    window->changed(bar);
    if (moved) scrollChanged(bar, shown);
}

void MainForm::setScrollMaximum(Control bar, int maximum) {
    setScroll(bar, maximum, controls[bar].value);
}

void MainForm::selectTab(int tab) {
    if (controls[Control::Parameters].value == tab) return;
    controls[Control::Parameters].value = tab;
    window->changed(Control::Parameters);
}

}  // namespace velna
