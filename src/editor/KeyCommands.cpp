#include <cstdint>

#include "editor/Views.h"

namespace velna {
namespace {

/// Any modifiers, for the keys that ask for none.
constexpr int anyShift = -1;

/// A key of the drawing surface and what it does.
struct KeyCommand {
    std::int16_t keyCode;
    int shift;
    void (*run)(MainForm& form);
};

constexpr KeyCommand keyCommands[] = {
    {'Z', anyShift, [](MainForm& form) { form.initVTopView(); }},
    {'C', anyShift, [](MainForm& form) { form.initSideView(); }},
    {'X', anyShift, [](MainForm& form) { form.initFrontView(); }},
    {'V', anyShift, [](MainForm& form) { form.initHTopView(); }},
    {'S', anyShift, [](MainForm& form) { form.window->renderScene(true); }},
    {'O', anyShift, [](MainForm& form) { form.loadBitmapAction(); }},
    {'I', anyShift,
     [](MainForm& form) {
         if (form.pictureShownHere()) form.sizeBitmapAction();
     }},
    {'A', anyShift,
     [](MainForm& form) {
         form.view.focusZoom = true;
         form.refreshDrawingArea();
     }},
    {'R', ShiftState::shift + ShiftState::ctrl,
     [](MainForm& form) { form.window->promptFrustum(); }},
};

/// An entry of the popup menu and what it does.
struct MenuEntry {
    Control control;
    void (*run)(MainForm& form);
};

constexpr MenuEntry menuEntries[] = {
    {Control::Change,
     [](MainForm& form) {
         PointerState& pointer = form.pointer;
         // Under the custom cursor the handle changes a shape, which has one direction only.
         if (pointer.cursor != CursorShape::Custom) pointer.shiftkey = !pointer.shiftkey;
         pointer.ctrlkey = false;
     }},
    {Control::InsRem,
     [](MainForm& form) {
         form.pointer.ctrlkey = !form.pointer.ctrlkey;
         form.pointer.shiftkey = false;
     }},
    {Control::LoadBitmap, [](MainForm& form) { form.loadBitmapAction(); }},
    {Control::MoveBitmap, [](MainForm& form) { form.moveBitmapAction(); }},
    {Control::SizeBitmap, [](MainForm& form) { form.sizeBitmapAction(); }},
    {Control::LockZoom, [](MainForm& form) { form.lockZoomAction(); }},
    {Control::ClearBitmap, [](MainForm& form) { form.clearBitmapAction(); }},
    {Control::UndoStep, [](MainForm& form) { form.window->undo(); }},
    {Control::RedoStep, [](MainForm& form) { form.window->redo(); }},
    {Control::StartView, [](MainForm& form) { form.window->showStartView(); }},
    {Control::TracePicture, beginTracing},
};

/// The cursor tells along which axis a drag with Shift will move.
CursorShape constrainedCursor(const AircraftViews& views, std::int32_t mode) {
    const bool sideways = views.rudder.grip.selected || views.boxSelected() ||
                          (views.fuselage().grip.selected && mode == ViewMode::VTop);
    return sideways ? CursorShape::WestEast : CursorShape::NorthSouth;
}

void armModifier(MainForm& form, std::int16_t shift) {
    PointerState& pointer = form.pointer;
    // Armed already, the cursor is the table's, which shows the direction of the drag to come.
    if (shift == ShiftState::shift && !pointer.shiftkey && form.anySelected() &&
        pointer.cursor != CursorShape::Custom) {
        form.setCursor(constrainedCursor(form.views, form.view.mode));
        pointer.shiftkey = true;
    }
    if (shift == ShiftState::ctrl && viewOf(form.view.mode).sections) {
        if (!pointer.ctrlkey) form.setCursor(CursorShape::Cross);
        pointer.ctrlkey = true;
    }
    if (shift == ShiftState::alt) pointer.altkey = true;
}

}  // namespace

void MainForm::DrawArea_keydown(std::int16_t keyCode, std::int16_t shift) {
    if (anyBusy()) return;
    armModifier(*this, shift);
    for (const KeyCommand& command : keyCommands) {
        if (command.keyCode == keyCode && (command.shift == anyShift || command.shift == shift))
            command.run(*this);
    }
}

void MainForm::DrawArea_keyup() {
    pointer.releaseKeys();
    DrawArea_MouseUp(0, 0, -1, -1);
}

void MainForm::Form_keyup() {
    refreshDrawingArea();
}

void MainForm::menuClicked(Control entry) {
    if (!controls[entry].enabled) return;
    for (const MenuEntry& row : menuEntries)
        if (row.control == entry) row.run(*this);
}

}  // namespace velna
