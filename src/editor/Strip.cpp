#include "editor/Strip.h"

#include <cmath>
#include <cstdint>

#include "common/NumberText.h"
#include "editor/Main.h"
#include "editor/PanelTable.h"
#include "editor/Tracing.h"
#include "model/Fuselage.h"
#include "model/Project.h"

namespace velna {
namespace {

/// The coordinates of the aircraft that a view shows: x along its length, y across it, z upward.
struct AxisRow {
    std::int32_t mode;
    char right;   ///< the one that grows to the right of the screen
    char other;   ///< the one that lies along the screen's height
    double down;  ///< 1 where that one grows down the screen, -1 where it grows up
};

constexpr AxisRow axes[] = {
    {ViewMode::VTop, 'y', 'x', 1},
    {ViewMode::Front, 'y', 'z', -1},
    {ViewMode::Side, 'x', 'z', -1},
    {ViewMode::HTop, 'x', 'y', -1},
};

const char* unitText(const Project& project) {
    return project.units == inches ? " in" : " mm";
}

/// A hundredth of a millimetre, a thousandth of an inch: finer than anybody builds.
std::string lengthDigits(double length, const Project& project) {
    return fixedText(length, project.units == inches ? 3 : 2);
}

std::string digits(double value, TextRule rule, const Project& project) {
    switch (rule) {
        case TextRule::Length:
            return lengthDigits(value, project);
        case TextRule::Plain:
            return fixedText(value, 4);
        case TextRule::Whole:
            return fixedText(value, 0);
    }
    return {};
}

std::string placeText(const MainForm& form) {
    if (!form.strip.pointer) return {};
    const ViewState& view = form.view;
    const AxisRow& axis = axes[view.mode - 1];
    // With the nose to the left a hull's shift goes down the screen and a box's goes up. What is
    // edited there reads as in its own box.
    const bool hull = view.mode == ViewMode::HTop && !form.equipmentTab();
    const double right = (form.strip.pointer->x - view.xoff) / view.zoom;
    const double other = (form.strip.pointer->y - view.yoff) / view.zoom * (hull ? 1 : axis.down);
    // A view of next to nothing is so near that its pixels lie beyond all numbers.
    if (!std::isfinite(right) || !std::isfinite(other)) return {};
    const auto named = [&](char name, double value) {
        return std::string(1, name) + ' ' + lengthDigits(value, form.project);
    };
    const std::string one = named(axis.right, right), two = named(axis.other, other);
    return (axis.right < axis.other ? one + "  " + two : two + "  " + one) + unitText(form.project);
}

std::string valueText(const Project& project, const HeldField& field,
                      const std::optional<double>& before) {
    const TextRule rule = panelField(field.box)->rule;
    std::string text = std::string(fieldName(field.box)) + ' ' + digits(field.value, rule, project);
    if (rule == TextRule::Length) text += unitText(project);
    const std::string change = digits(field.value - before.value_or(field.value), rule, project);
    if (change.find_first_of("123456789") == std::string::npos) return text;
    return text + (change.front() == '-' ? ", " : ", +") + change;
}

std::string heldText(const MainForm& form, const HeldField& now) {
    for (const auto& start : form.strip.atPress)
        if (start && start->box == now.box) return valueText(form.project, now, start->value);
    return valueText(form.project, now, std::nullopt);
}

/// The parts that the panel shows.
std::array<int, 4> currentParts(const Project& project) {
    return {project.currentWing, project.currentFuselage, Fuselage::current(project).sel_sec,
            project.currentEquipment};
}

double boxValue(const Project& project, Control box) {
    return panelField(box)->get(project);
}

/// The box may have come to show another part meanwhile, whose number has not changed by the
/// difference.
std::string visitText(const Project& project, const StripState::Visit& visit) {
    const bool samePart = visit.current == currentParts(project);
    return valueText(project, {visit.box, boxValue(project, visit.box)},
                     samePart ? std::optional(visit.value) : std::nullopt);
}

}  // namespace

StripText stripText(const MainForm& form) {
    StripText text{placeText(form), tracingHint(form)};
    if (!text.value.empty()) return text;
    if (const auto held = heldField(form)) {
        text.value = heldText(form, *held);
    } else if (form.strip.visit && !form.anyBusy()) {
        text.value = visitText(form.project, *form.strip.visit);
    }
    return text;
}

void enterField(MainForm& form, Control box) {
    form.strip.visit.reset();
    if (!panelField(box)) return;
    form.strip.visit = {box, boxValue(form.project, box), currentParts(form.project)};
}

void leaveField(MainForm& form) {
    form.strip.visit.reset();
}

void rememberHeld(MainForm& form) {
    form.strip.atPress = {heldField(form, false), heldField(form, true)};
}

}  // namespace velna
