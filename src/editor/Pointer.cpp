#include "common/NumberText.h"
#include "editor/Views.h"

namespace velna {
namespace {

/// The panel follows what the press has hit, each test overruling the one before. Of the wings only
/// the first is asked: the panel edits the wing chosen in its list, which a press does not change.
void followHit(MainForm& form) {
    const AircraftViews& views = form.views;
    if (views.wings(1).grip.held()) form.selectTab(PanelTab::wing);
    if (views.stabilizer.grip.held()) form.selectTab(PanelTab::stabilizer);
    if (views.fuselage().grip.held()) {
        form.setVisible(Control::FuselageVTopFrame, form.view.mode == ViewMode::VTop);
        form.selectTab(PanelTab::fuselage);
    }
    if (views.rudder.grip.held()) form.selectTab(PanelTab::rudder);
}

/// While the picture stands behind the lines, a drag takes them off by inverting, since white would
/// scratch it. A moved picture is painted afresh, so the next redraw has nothing to take off.
void movePicture(MainForm& form, std::int16_t button, float x, float y) {
    if (button == MouseButton::left && form.pointer.altkey) {
        BackgroundPicture& picture = form.pictureHere();
        const double larger = form.view.byHand.zoom;
        picture.position = {(static_cast<double>(x) - form.pointer.xloc) / larger + picture.grab.x,
                            (static_cast<double>(y) - form.pointer.yloc) / larger + picture.grab.y};
        form.DrawArea->clear();
        form.paintPicture();
        form.view.firstPictureRefresh = true;
    } else {
        form.setDrawMode(button == MouseButton::left ? DrawMode::Invert : DrawMode::Copy);
    }
}

void showLiveValues(MainForm& form) {
    const AircraftViews& views = form.views;
    if (views.wingHit()) form.updateWingInterface();
    if (views.stabilizer.grip.held()) form.updateStabilizerInterface();
    if (views.fuselage().grip.held()) form.updateFuselageInterface();
    if (views.rudder.grip.held()) form.updateRudderInterface();
    if (views.boxHit()) form.updateEquipmentInterface();
}

}  // namespace

void MainForm::DrawArea_MouseDown(std::int16_t button, std::int16_t /*shift*/, float x, float y) {
    // The picture is no part of the project.
    if (tracing.active) return tracePress(*this, button, {x, y});
    savedProject = false;
    if (pointer.altkey) pictureHere().grab = pictureHere().position;
    if (pictureShownHere()) {
        view.firstPictureRefresh = true;
        DrawArea->clear();
        paintPicture();
        DrawArea->refresh();
    }
    if (button == MouseButton::right) {
        window->openPopup(x, y);
        return;
    }
    beginGesture();
    pointer.xloc = roundToInt16(static_cast<double>(x));
    pointer.yloc = roundToInt16(static_cast<double>(y));
    // Such a press takes the picture: the model must not go along with it.
    if (pointer.altkey && pictureShownHere()) return;
    const bool removed = viewOf(view.mode).press(*this, button, pointer.at(x, y));
    followHit(*this);
    rememberHeld(*this);
    // The section has gone from under the pointer: the hand's next pixel must not pull the one that
    // took its place.
    if (removed) views.fuselage().grip.letGo();
    DrawArea->refresh();
}

void MainForm::DrawArea_MouseMove(std::int16_t button, std::int16_t /*shift*/, float x, float y) {
    strip.pointer = {x, y};
    if (tracing.active) return;
    if (x == pointer.lastMouseX && y == pointer.lastMouseY) return;
    pointer.lastMouseX = x;
    pointer.lastMouseY = y;
    if (pictureShownHere()) movePicture(*this, button, x, y);
    DrawArea->setFocus();
    viewOf(view.mode).move(*this, canvas(), pointer.at(x, y));
    view.firstPictureRefresh = false;
    DrawArea->refresh();
    showLiveValues(*this);
    if (button != MouseButton::left) updateCursor();
    if (renderPressed() && button == MouseButton::left) window->renderScene(true);
}

void MainForm::DrawArea_MouseUp(std::int16_t button, std::int16_t /*shift*/, float /*x*/,
                                float /*y*/) {
    // The right button has only opened the menu; what that has armed waits for the next press.
    if (button == MouseButton::right) return;
    if (tracing.active) return traceRelease(*this, button);
    nameGesture();
    views.clearHover();
    if (pictureShownHere()) {
        setDrawMode(DrawMode::Copy);
        refreshDrawingArea();
    }
    viewOf(view.mode).release(*this, canvas());
    updateCursor();
    pointer.releaseKeys();
    window->renderScene(true);
    view.firstPictureRefresh = false;
    DrawArea->refresh();
    endGesture();
}

void MainForm::cancelGesture() {
    if (!anyBusy() && !pointer.anyKey() && !view.firstPictureRefresh &&
        view.drawMode == DrawMode::Copy)
        return endGesture();
    DrawArea_MouseUp(0, 0, -1, -1);
    // The release asks the current view's objects only; the gesture may have begun in another view.
    views.letGo();
    setDrawMode(DrawMode::Copy);
}

}  // namespace velna
