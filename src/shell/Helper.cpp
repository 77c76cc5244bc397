#include "shell/Helper.h"

#include <cmath>

#include "common/NumberText.h"
#include "model/Fuselage.h"

namespace velna {

/// A message of the script. Dismissing it with Escape ends the demonstration.
void Helper::tell(const std::string& text) {
    if (stopped) return;
    if (!ports.dialogs->message("First use Help", text, BoxIcon::Information)) stop();
}

/// The middle of wing 1's tip in the top view, pixels of `DrawArea`.
Point2D Helper::wingTip(double zoom, double xoff, double yoff) const {
    const Project& project = main.project;
    const SymWingSections& wing = project.Wings(1);
    return {(wing.span + wing.shift) * zoom + xoff,
            (wing.pos1 + wing.pos2 + wing.length2 / 2) * zoom + yoff};
}

void Helper::showSign(const std::string& caption, double left, double top) {
    main.setText(Control::ShiftButton, caption);
    ports.desktop->placeSign(roundToInt(left), roundToInt(top));
    main.setVisible(Control::ShiftButton, true);
}

void Helper::hideSign() {
    main.setVisible(Control::ShiftButton, false);
}

// Press and release carry button 0: the moves between them are real ones without a button held, and
// a drag works whatever the button once a part is grabbed.
void Helper::press(Point2D target) {
    if (stopped) return;
    main.DrawArea_MouseDown(0, 0, static_cast<float>(target.x), static_cast<float>(target.y));
}

void Helper::release(Point2D target) {
    if (stopped) return;
    main.DrawArea_MouseUp(0, 0, static_cast<float>(target.x), static_cast<float>(target.y));
}

/// From the middle of the screen to `place`.
void Helper::approach(Point2D place) {
    demoMoveCursor(ports.desktop->screenCentre(), false);
    demoMoveCursor(place, true);
}

/// One demonstration: nothing of it is left behind when it was stopped on the way.
void Helper::runScript() {
    tell(
        "The following demonstration shows how to use\nthe Mouse, the Shift and the Control key\n"
        "The cursor will move AUTOMATICALLY");
    tell("MOUSE edits ...");
    if (!stopped) demoDragWing(main.view.zoom, main.view.xoff, main.view.yoff);
    tell("SHIFT button for horizontal moves ...");
    if (!stopped) demoShiftDrag(main.view.zoom, main.view.xoff, main.view.yoff);
    if (stopped) return;
    main.selectTab(PanelTab::fuselage);
    main.initSideView();
    tell("CTRL key for insert/remove sections ...");
    if (!stopped) demoInsertSection(main.view.zoom, main.view.xoff, main.view.yoff);
}

void Helper::run() {
    running = true;
    stopped = false;
    runScript();
    running = false;
}

void Helper::stop() {
    if (!running || stopped) return;
    stopped = true;
    ports.desktop->enableTimer2(false);
    hideSign();
    main.cancelGesture();
}

void Helper::demoDragWing(double zoom, double xoff, double yoff) {
    const Point2D target = wingTip(zoom, xoff, yoff);
    const Point2D place = ports.desktop->drawAreaToWindow(target);
    approach(place);
    press(target);
    demoMoveCursor({place.x, place.y + 50}, true);
    release(target);
    demoMoveCursor({place.x + 10, place.y}, true);
}

void Helper::demoShiftDrag(double zoom, double xoff, double yoff) {
    const Point2D target = wingTip(zoom, xoff, yoff);
    const Point2D place = ports.desktop->drawAreaToWindow(target);
    approach(place);
    if (stopped) return;
    main.pointer.shiftkey = true;
    press(target);
    showSign("Shift key", ports.desktop->screenCentre().x, place.y);
    demoMoveCursor({place.x - 50, place.y}, true);
    if (stopped) return;
    main.pointer.shiftkey = false;
    release(target);
    demoMoveCursor({place.x + 60, place.y + 10}, true);
    hideSign();
}

void Helper::demoInsertSection(double zoom, double xoff, double yoff) {
    auto& fuselage = Fuselage::current(main.project);
    fuselage.sel_sec = 2;
    main.selectTab(PanelTab::fuselage);
    const Point2D target{fuselage.posGet() * zoom + xoff - 20,
                         -(fuselage.elevationGet() + fuselage.heightGet() / 2) * zoom + yoff};
    const Point2D place = ports.desktop->drawAreaToWindow(target);
    approach(place);
    if (stopped) return;
    showSign("Ctrl key", place.x, place.y);
    main.pointer.ctrlkey = true;
    press(target);
    demoMoveCursor({place.x, place.y + 20}, true);
    if (stopped) return;
    main.pointer.ctrlkey = false;
    release(target);
    demoMoveCursor({place.x + 60, place.y}, true);
    hideSign();
    if (!stopped) ports.desktop->openPopupAtCursor();
}

void Helper::demoMoveCursor(Point2D point, bool glide) {
    if (glide && demoLastPoint) demoGlide(*demoLastPoint, point);
    demoLastPoint = point;
}

void Helper::demoGlide(Point2D from, Point2D to) {
    if (stopped) return;
    cursorPos = from;
    ports.desktop->setCursorPosition(roundToInt(from.x), roundToInt(from.y));
    cursorTarget = to;
    ports.desktop->enableTimer2(true);
    while (ports.desktop->timer2Enabled()) ports.desktop->pumpEvents();
}

void Helper::glideStep() {
    cursorPos.x = (cursorTarget.x - cursorPos.x) / 10 + cursorPos.x;
    cursorPos.y = (cursorTarget.y - cursorPos.y) / 10 + cursorPos.y;
    if (std::abs(cursorTarget.x - cursorPos.x) < 3 && std::abs(cursorTarget.y - cursorPos.y) < 3) {
        ports.desktop->enableTimer2(false);
        return;
    }
    ports.desktop->setCursorPosition(roundToInt(cursorPos.x), roundToInt(cursorPos.y));
    rendering.renderScene(true);
}

}  // namespace velna
