#include <cstdint>

#include "editor/Main.h"

namespace velna {
namespace {

/// Any modifiers, for the keys that ask for none.
constexpr int anyShift = -1;

/// A key of the drawing surface and what it does.
struct KeyCommand {
    std::int16_t keyCode;
    int shift;
    void (*run)();
};

constexpr KeyCommand keyCommands[] = {
    {'Z', anyShift, [] { Main.initVTopView(); }},
    {'C', anyShift, [] { Main.initSideView(); }},
    {'X', anyShift, [] { Main.initFrontView(); }},
    {'V', anyShift, [] { Main.initHTopView(); }},
    {'S', anyShift, [] { Main.window->renderScene(true); }},
    {'O', anyShift, [] { Main.loadBitmapAction(); }},
    {'I', anyShift,
     [] {
         if (Main.pictureShownHere()) Main.sizeBitmapAction();
     }},
    {'A', anyShift,
     [] {
         Main.focusZoom = true;
         Main.refreshDrawingArea();
     }},
    {'R', ShiftState::shift + ShiftState::ctrl, [] { Main.window->promptFrustum(); }},
};

/// An entry of the popup menu and what it does.
struct MenuEntry {
    Control control;
    void (*run)();
};

constexpr MenuEntry menuEntries[] = {
    {Control::Change,
     [] {
         // Under the custom cursor the handle changes a shape, which has one direction only.
         if (Main.cursor != CursorShape::Custom) Main.shiftkey = !Main.shiftkey;
         Main.ctrlkey = false;
     }},
    {Control::InsRem,
     [] {
         Main.ctrlkey = !Main.ctrlkey;
         Main.shiftkey = false;
     }},
    {Control::LoadBitmap, [] { Main.loadBitmapAction(); }},
    {Control::MoveBitmap, [] { Main.moveBitmapAction(); }},
    {Control::SizeBitmap, [] { Main.sizeBitmapAction(); }},
    {Control::LockZoom, [] { Main.lockZoomAction(); }},
    {Control::ClearBitmap, [] { Main.clearBitmapAction(); }},
};

/// The cursor tells along which axis a drag with Shift will move.
CursorShape constrainedCursor() {
    const AircraftViews& views = Main.views;
    const bool sideways = views.rudder.grip.selected || views.boxSelected() ||
                          (views.fuselage().grip.selected && Main.mode == ViewMode::VTop);
    return sideways ? CursorShape::WestEast : CursorShape::NorthSouth;
}

void armModifier(std::int16_t shift) {
    // Armed already, the cursor is the table's, which shows the direction of the drag to come.
    if (shift == ShiftState::shift && !Main.shiftkey && Main.anySelected() &&
        Main.cursor != CursorShape::Custom) {
        Main.setCursor(constrainedCursor());
        Main.shiftkey = true;
    }
    const bool sections = Main.mode == ViewMode::Side || Main.mode == ViewMode::HTop;
    if (shift == ShiftState::ctrl && sections) {
        if (!Main.ctrlkey) Main.setCursor(CursorShape::Cross);
        Main.ctrlkey = true;
    }
    if (shift == ShiftState::alt) Main.altkey = true;
}

}  // namespace

void MainForm::DrawArea_keydown(std::int16_t keyCode, std::int16_t shift) {
    if (anyBusy()) return;
    armModifier(shift);
    for (const KeyCommand& command : keyCommands) {
        if (command.keyCode == keyCode && (command.shift == anyShift || command.shift == shift))
            command.run();
    }
}

void MainForm::DrawArea_keyup() {
    shiftkey = false;
    ctrlkey = false;
    altkey = false;
    DrawArea_MouseUp(0, 0, -1, -1);
}

void MainForm::Form_keyup() {
    refreshDrawingArea();
}

void MainForm::menuClicked(Control entry) {
    if (!controls[entry].enabled) return;
    for (const MenuEntry& row : menuEntries)
        if (row.control == entry) row.run();
}

}  // namespace velna
