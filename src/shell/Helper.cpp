#include "shell/Helper.h"

#include <cmath>
#include <optional>
#include <string>

#include "common/NumberText.h"
#include "editor/Main.h"
#include "model/Fuselage.h"
#include "model/Plane.h"
#include "preview/Rendering.h"
#include "shell/Ports.h"
#include "shell/Startup.h"

namespace velna::Helper {

namespace {

std::optional<Point2D> demoLastPoint;
bool stopped = false;

/// A message of the script. Dismissing it with Escape ends the demonstration.
void tell(const std::string& text) {
    if (stopped) return;
    if (!Shell.dialogs->message("First use Help", text, BoxIcon::Information)) stop();
}

/// The middle of wing 1's tip in the top view, pixels of `DrawArea`.
Point2D wingTip(double zoom, double xoff, double yoff) {
    const auto& wing = Wings(1);
    return {(wing.span + wing.shift) * zoom + xoff,
            (wing.pos1 + wing.pos2 + wing.length2 / 2) * zoom + yoff};
}

void showSign(const std::string& caption, double left, double top) {
    Main.setText(Control::ShiftButton, caption);
    Shell.desktop->placeSign(roundToInt(left), roundToInt(top));
    Main.setVisible(Control::ShiftButton, true);
}

void hideSign() {
    Main.setVisible(Control::ShiftButton, false);
}

// Press and release carry button 0: the moves between them are real ones without a button held, and
// a drag works whatever the button once a part is grabbed.
void press(Point2D target) {
    if (stopped) return;
    Main.DrawArea_MouseDown(0, 0, static_cast<float>(target.x), static_cast<float>(target.y));
}

void release(Point2D target) {
    if (stopped) return;
    Main.DrawArea_MouseUp(0, 0, static_cast<float>(target.x), static_cast<float>(target.y));
}

/// From the middle of the screen to `place`.
void approach(Point2D place) {
    demoMoveCursor(Shell.desktop->screenCentre(), false);
    demoMoveCursor(place, true);
}

/// One demonstration: nothing of it is left behind when it was stopped on the way.
void runScript() {
    tell(
        "The following demonstration shows how to use\nthe Mouse, the Shift and the Control key\n"
        "The cursor will move AUTOMATICALLY");
    tell("MOUSE edits ...");
    if (!stopped) demoDragWing(Main.zoom, Main.xoff, Main.yoff);
    tell("SHIFT button for horizontal moves ...");
    if (!stopped) demoShiftDrag(Main.zoom, Main.xoff, Main.yoff);
    if (stopped) return;
    Main.selectTab(PanelTab::fuselage);
    Main.initSideView();
    tell("CTRL key for insert/remove sections ...");
    if (!stopped) demoInsertSection(Main.zoom, Main.xoff, Main.yoff);
}

}  // namespace

bool running = false;
Point2D cursorPos;
Point2D cursorTarget;

void reset() {
    running = stopped = false;
    cursorPos = cursorTarget = {};
    demoLastPoint.reset();
}

void run() {
    running = true;
    stopped = false;
    runScript();
    running = false;
    Startup::closeIfAsked();
}

void stop() {
    if (!running || stopped) return;
    stopped = true;
    Shell.desktop->enableTimer2(false);
    hideSign();
    Main.cancelGesture();
}

void demoDragWing(double zoom, double xoff, double yoff) {
    const Point2D target = wingTip(zoom, xoff, yoff);
    const Point2D place = Shell.desktop->drawAreaToWindow(target);
    approach(place);
    press(target);
    demoMoveCursor({place.x, place.y + 50}, true);
    release(target);
    demoMoveCursor({place.x + 10, place.y}, true);
}

void demoShiftDrag(double zoom, double xoff, double yoff) {
    const Point2D target = wingTip(zoom, xoff, yoff);
    const Point2D place = Shell.desktop->drawAreaToWindow(target);
    approach(place);
    if (stopped) return;
    Main.shiftkey = true;
    press(target);
    showSign("Shift key", Shell.desktop->screenCentre().x, place.y);
    demoMoveCursor({place.x - 50, place.y}, true);
    if (stopped) return;
    Main.shiftkey = false;
    release(target);
    demoMoveCursor({place.x + 60, place.y + 10}, true);
    hideSign();
}

void demoInsertSection(double zoom, double xoff, double yoff) {
    auto& fuselage = Fuselage::current();
    fuselage.sel_sec = 2;
    Main.selectTab(PanelTab::fuselage);
    const Point2D target{fuselage.posGet() * zoom + xoff - 20,
                         -(fuselage.elevationGet() + fuselage.heightGet() / 2) * zoom + yoff};
    const Point2D place = Shell.desktop->drawAreaToWindow(target);
    approach(place);
    if (stopped) return;
    showSign("Ctrl key", place.x, place.y);
    Main.ctrlkey = true;
    press(target);
    demoMoveCursor({place.x, place.y + 20}, true);
    if (stopped) return;
    Main.ctrlkey = false;
    release(target);
    demoMoveCursor({place.x + 60, place.y}, true);
    hideSign();
    if (!stopped) Shell.desktop->openPopupAtCursor();
}

void demoMoveCursor(Point2D point, bool glide) {
    if (glide && demoLastPoint) demoGlide(*demoLastPoint, point);
    demoLastPoint = point;
}

void demoGlide(Point2D from, Point2D to) {
    if (stopped) return;
    cursorPos = from;
    Shell.desktop->setCursorPosition(roundToInt(from.x), roundToInt(from.y));
    cursorTarget = to;
    Shell.desktop->enableTimer2(true);
    while (Shell.desktop->timer2Enabled()) Shell.desktop->pumpEvents();
}

void glideStep() {
    cursorPos.x = (cursorTarget.x - cursorPos.x) / 10 + cursorPos.x;
    cursorPos.y = (cursorTarget.y - cursorPos.y) / 10 + cursorPos.y;
    if (std::abs(cursorTarget.x - cursorPos.x) < 3 && std::abs(cursorTarget.y - cursorPos.y) < 3) {
        Shell.desktop->enableTimer2(false);
        return;
    }
    Shell.desktop->setCursorPosition(roundToInt(cursorPos.x), roundToInt(cursorPos.y));
    Rendering::renderScene(true);
}

}  // namespace velna::Helper
