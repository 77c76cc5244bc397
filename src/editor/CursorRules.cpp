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
bool applies(CursorBlock block) {
    switch (block) {
        case OverWing:
            return Main.views.wingSelected();
        case OverStabilizer:
            return Main.views.stabilizer.grip.selected;
        case OverFuselage:
            return Main.views.fuselage().grip.selected;
        case OverBox:
            return Main.views.boxSelected();
        case OverFin:
            return Main.views.rudder.grip.selected;
        case OverNothing:
            return !Main.anySelected() && !Main.ctrlkey;
        case CtrlSet:
            return Main.ctrlkey;
        case AltSet:
            return Main.altkey;
    }
    return false;
}

int selectedPart(CursorBlock block) {
    switch (block) {
        case OverWing:
            return Main.views.selectedWingPart();
        case OverStabilizer:
            return Main.views.stabilizer.grip.selected_part;
        case OverFuselage:
            return Main.views.fuselage().grip.selected_part;
        case OverFin:
            return Main.views.rudder.grip.selected_part;
        default:
            return 0;
    }
}

bool fits(const CursorRule& rule) {
    return holds(rule.vtop, Main.mode == ViewMode::VTop) && holds(rule.shift, Main.shiftkey) &&
           (rule.parts.empty() ||
            std::ranges::find(rule.parts, selectedPart(rule.block)) != rule.parts.end());
}

}  // namespace

std::span<const CursorRule> cursorRules() {
    return rules;
}

void MainForm::updateCursor() {
    const CursorRule* found = nullptr;
    std::optional<CursorBlock> settled;
    for (const CursorRule& rule : rules) {
        if (settled == rule.block || !applies(rule.block) || !fits(rule)) continue;
        found = &rule;
        settled = rule.block;
    }
    if (found) setCursor(found->shape, found->icon);
}

void MainForm::setCursor(CursorShape shape, CursorIcon icon) {
    if (cursor == shape && cursorIcon == icon) return;
    cursor = shape;
    cursorIcon = icon;
    window->setCursor(shape, icon);
}

}  // namespace velna
