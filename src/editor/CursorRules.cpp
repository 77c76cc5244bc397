#include "editor/CursorRules.h"

#include <algorithm>
#include <optional>

#include "editor/Main.h"

namespace velna {
namespace {

constexpr int edges[] = {WingPart::tipEdge, WingPart::rootEdge};
constexpr int finEdges[] = {FinPart::tipEdge, FinPart::rootEdge};
constexpr int bars[] = {FuselagePart::bar};

using enum CursorBlock;
using enum Ask;
using enum CursorShape;
using enum CursorIcon;

// clang-format off
constexpr CursorRule rules[] = {
    // block         VTop    shift   parts     shape       picture
    {OverWing,       Either, Yes,    {},       WestEast,   None},
    {OverWing,       Either, Either, edges,    NorthSouth, None},
    {OverWing,       Either, Either, {},       Custom,     NSShapeIcon},
    {OverStabilizer, Either, Yes,    {},       WestEast,   None},
    {OverStabilizer, Either, Either, edges,    NorthSouth, None},
    {OverStabilizer, Either, Either, {},       Custom,     NSShapeIcon},
    {OverFuselage,   Yes,    Yes,    {},       NorthSouth, None},
    {OverFuselage,   Yes,    Either, {},       WestEast,   None},
    {OverFuselage,   No,     Yes,    {},       WestEast,   None},
    {OverFuselage,   No,     Either, bars,     NorthSouth, None},
    {OverFuselage,   No,     Either, {},       Custom,     NSShapeIcon},
    {OverBox,        Either, Yes,    {},       NorthSouth, None},
    {OverBox,        Either, Either, {},       WestEast,   None},
    {OverFin,        Either, Yes,    {},       NorthSouth, None},
    {OverFin,        Either, Either, finEdges, WestEast,   None},
    {OverFin,        Either, Either, {},       Custom,     EWShapeIcon},
    {OverNothing,    Either, No,     {},       Default,    None},
    {CtrlSet,        Either, Either, {},       Cross,      None},
    {AltSet,         Either, Either, {},       FourWay,    None},
};
// clang-format on

bool holds(Ask ask, bool state) {
    return ask == Either || (ask == Yes) == state;
}

/// Whether the block's subject is there at all.
bool applies(const AircraftViews& views, const PointerState& pointer, CursorBlock block) {
    switch (block) {
        case OverWing:
            return views.wingSelected();
        case OverStabilizer:
            return views.stabilizer.grip.selected;
        case OverFuselage:
            return views.fuselage().grip.selected;
        case OverBox:
            return views.boxSelected();
        case OverFin:
            return views.rudder.grip.selected;
        case OverNothing:
            return !views.anySelected() && !pointer.ctrlkey;
        case CtrlSet:
            return pointer.ctrlkey;
        case AltSet:
            return pointer.altkey;
    }
    return false;
}

int selectedPart(const AircraftViews& views, CursorBlock block) {
    switch (block) {
        case OverWing:
            return views.selectedWingPart();
        case OverStabilizer:
            return views.stabilizer.grip.selected_part;
        case OverFuselage:
            return views.fuselage().grip.selected_part;
        case OverFin:
            return views.rudder.grip.selected_part;
        default:
            return 0;
    }
}

bool fits(const AircraftViews& views, const CursorRule& rule) {
    return rule.parts.empty() ||
           std::ranges::find(rule.parts, selectedPart(views, rule.block)) != rule.parts.end();
}

}  // namespace

std::span<const CursorRule> cursorRules() {
    return rules;
}

void MainForm::updateCursor() {
    const CursorRule* found = nullptr;
    std::optional<CursorBlock> settled;
    for (const CursorRule& rule : rules) {
        if (settled == rule.block || !applies(views, pointer, rule.block) ||
            !holds(rule.vtop, view.mode == ViewMode::VTop) ||
            !holds(rule.shift, pointer.shiftkey) || !fits(views, rule))
            continue;
        found = &rule;
        settled = rule.block;
    }
    if (found) setCursor(found->shape, found->icon);
}

void MainForm::setCursor(CursorShape shape, CursorIcon icon) {
    if (pointer.cursor == shape && pointer.cursorIcon == icon) return;
    pointer.cursor = shape;
    pointer.cursorIcon = icon;
    window->setCursor(shape, icon);
}

}  // namespace velna
