#include "Editing.h"

#include <algorithm>
#include <iterator>
#include <numeric>
#include <vector>

#include "editor/ViewZoom.h"
#include "model/Units.h"

namespace velna::fuzz {
namespace {

/// What hands, and only hands, would type: ordinary numbers, the edges of the types, and nonsense.
constexpr const char* typed[] = {"0",     "1",      "-1",     "0.5",  "12.75",  "100",   "-250",
                                 "1e5",   "1e-300", "1e300",  "-1e8", "32767",  "32768", "-32769",
                                 "99999", "1e308",  "-1e308", "",     " 7 mm",  "x",     "nan",
                                 "1e999", "0x10",   "1,5",    "+3",   "2e",     "--4",   "101",
                                 "2",     "3",      "7",      "8",    "1.5E+2", ".5",    "5."};

constexpr std::int16_t keyCodes[] = {16, 17,  18,  27,  33,  34, 37, 38, 39, 40, 45,  46, 65, 67,
                                     68, 69,  70,  72,  73,  76, 77, 79, 80, 82, 83,  84, 86, 87,
                                     90, 107, 109, 187, 189, 8,  9,  13, 32, 36, 113, 255};

}  // namespace

void Editing::act() {
    static constexpr void (Editing::*gestures[])() = {
        &Editing::enterView, &Editing::drag,       &Editing::drag,  &Editing::drag,
        &Editing::key,       &Editing::type,       &Editing::type,  &Editing::slide,
        &Editing::scroll,    &Editing::scroll,     &Editing::check, &Editing::push,
        &Editing::push,      &Editing::choose,     &Editing::menu,  &Editing::manage,
        &Editing::prefer,    &Editing::undoOrRedo, &Editing::look};
    window_.yes = bytes_.ConsumeBool();
    window_.text = number();
    (this->*gestures[bytes_.ConsumeIntegralInRange<std::size_t>(0, std::size(gestures) - 1)])();
}

void Editing::enterView() {
    static constexpr void (MainForm::*views[])() = {
        &MainForm::initVTopView, &MainForm::initFrontView, &MainForm::initSideView,
        &MainForm::initHTopView};
    (form_.*views[bytes_.ConsumeIntegralInRange<std::size_t>(0, std::size(views) - 1)])();
}

/// A place that something was drawn at, or any.
Point2D Editing::place() {
    if (!area_.places.empty() && bytes_.ConsumeBool()) {
        const auto last = area_.places.size() - 1;
        return area_.places[bytes_.ConsumeIntegralInRange<std::size_t>(0, last)];
    }
    return {static_cast<double>(bytes_.ConsumeIntegralInRange<int>(-200, 1100)),
            static_cast<double>(bytes_.ConsumeIntegralInRange<int>(-200, 700))};
}

/// A hand rests on the place, presses, moves a few times and lets go, or loses the grab.
void Editing::drag() {
    const auto button = static_cast<std::int16_t>(bytes_.ConsumeBool() ? 1 : 2);
    const auto shift = bytes_.ConsumeIntegralInRange<std::int16_t>(0, 7);
    const Point2D from = place();
    const auto x = static_cast<float>(from.x);
    const auto y = static_cast<float>(from.y);
    form_.DrawArea_MouseMove(0, shift, x, y);
    form_.DrawArea_MouseDown(button, shift, x, y);
    for (int moves = bytes_.ConsumeIntegralInRange<int>(0, 3); moves > 0; --moves) {
        const Point2D to = place();
        form_.DrawArea_MouseMove(button, shift, static_cast<float>(to.x), static_cast<float>(to.y));
    }
    if (bytes_.ConsumeProbability<float>() < 0.1F) {
        form_.cancelGesture();
    } else {
        form_.DrawArea_MouseUp(button, shift, x, y);
    }
}

void Editing::key() {
    form_.DrawArea_keydown(bytes_.PickValueInArray(keyCodes),
                           bytes_.ConsumeIntegralInRange<std::int16_t>(0, 7));
    if (bytes_.ConsumeBool()) form_.DrawArea_keyup();
    if (bytes_.ConsumeBool()) form_.Form_keyup();
}

std::string Editing::number() {
    return bytes_.PickValueInArray(typed);
}

Control Editing::usable(Control first, Control last) {
    const auto control = static_cast<Control>(
        bytes_.ConsumeIntegralInRange<int>(static_cast<int>(first), static_cast<int>(last)));
    const ControlState& state = form_.controls[control];
    return state.enabled && state.visible ? control : Control::count;
}

void Editing::type() {
    const Control box = usable(Control::LengthBText, Control::ElevationServoText);
    if (box == Control::count) return;
    const std::string text = number();
    form_.textEdited(box, text);
    if (box != Control::NbCrossFuselageText) form_.textKeyDown(box, text);
}

void Editing::slide() {
    const Control slider = usable(Control::CurvatureSlider, Control::BiasSlider);
    if (slider == Control::count) return;
    const int value = bytes_.ConsumeIntegralInRange<int>(0, 300);
    if (form_.controls[slider].value != value) form_.sliderChanged(slider, value);
}

void Editing::scroll() {
    const Control bar = usable(Control::IndexWingsScroll, Control::IndexServosScroll);
    if (bar == Control::count) return;
    const int value =
        bytes_.ConsumeIntegralInRange<int>(0, std::max(0, form_.controls[bar].maximum));
    if (form_.controls[bar].value != value) form_.scrollChanged(bar, value);
}

void Editing::check() {
    const Control box = usable(Control::UniqueCurvatureCheck, Control::TransparentCheck);
    if (box != Control::count) form_.checkClicked(box, !form_.checked(box));
}

void Editing::push() {
    const Control button = usable(Control::IndexWingPlusButton, Control::SmoothWidthCommand);
    if (button != Control::count)
        form_.buttonPressed(button, bytes_.ConsumeIntegralInRange<std::int16_t>(0, 7));
}

/// A tab, an option or a row of a catalogue.
void Editing::choose() {
    form_.tabClicked(bytes_.ConsumeIntegralInRange<int>(0, 4));
    const Control option = usable(Control::HorizontalServoOption, Control::AccuOption);
    if (option != Control::count && bytes_.ConsumeBool()) form_.optionClicked(option);
    const Control combo = usable(Control::ServosCombo, Control::AccuCombo);
    if (combo != Control::count && bytes_.ConsumeBool())
        form_.comboClicked(combo, bytes_.ConsumeIntegralInRange<int>(0, 3));
}

void Editing::menu() {
    const Control entry = usable(Control::Change, Control::TracePicture);
    if (entry != Control::count) form_.menuClicked(entry);
}

void Editing::manage() {
    std::vector<int> rows(form_.project.ObjectList.rows.size());
    std::iota(rows.begin(), rows.end(), 1);
    if (bytes_.ConsumeBool() && !rows.empty()) rows.resize(1);
    switch (bytes_.ConsumeIntegralInRange<int>(0, 3)) {
        case 0:
            form_.showCommand(rows);
            break;
        case 1:
            form_.hideCommand(rows);
            break;
        case 2:
            form_.rowChecked(rows.empty() ? 0 : rows.back(), bytes_.ConsumeBool());
            break;
        default:
            form_.closeManager(rows.empty() ? 0 : rows.back());
    }
}

void Editing::prefer() {
    form_.Prefs.selectUnit(bytes_.ConsumeBool() ? inches : millimetres);
    form_.Prefs.scaleTextKeyDown(number());
    form_.applyPreferences();
}

void Editing::undoOrRedo() {
    for (int steps = bytes_.ConsumeIntegralInRange<int>(1, 4); steps > 0; --steps) {
        if (bytes_.ConsumeBool()) {
            form_.undo();
        } else {
            form_.redo();
        }
    }
}

/// The wheel, sideways too, and a window of another size.
void Editing::look() {
    const Point2D at = place();
    switch (bytes_.ConsumeIntegralInRange<int>(0, 2)) {
        case 0:
            zoomAt(form_, at.x, at.y, bytes_.ConsumeFloatingPointInRange<double>(0, 3));
            break;
        case 1:
            panSideways(form_, at.x);
            break;
        default:
            area_.resize(bytes_.ConsumeIntegralInRange<int>(0, 4000),
                         bytes_.ConsumeIntegralInRange<int>(0, 3000));
            form_.initDrawArea();
    }
}

}  // namespace velna::fuzz
