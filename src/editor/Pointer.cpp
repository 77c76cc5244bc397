#include "common/NumberText.h"
#include "editor/Main.h"
#include "editor/MeshLimit.h"
#include "model/Equipment.h"
#include "model/Fuselage.h"
#include "model/MainWing.h"
#include "model/ObjectList.h"
#include "model/Plane.h"

namespace velna {
namespace {

constexpr int leftButton = 1;
constexpr int rightButton = 2;
constexpr int noPart = -1;

bool equipmentTab() {
    return Main.tab() == PanelTab::electronics;
}

// ---- press

/// Takes a section in or out where the press with Ctrl has found one; the second test meets the
/// state that the first has left, on the same `paint`.
void insertOrRemoveSection(std::int16_t button, void (*draw)(double, double, double, int, int)) {
    MeshSections& fuselage = Fuselage::current();
    const auto showChange = [&] {
        draw(Main.zoom, Main.xoff, Main.yoff, noPart, 0);
        Main.setScrollMaximum(Control::FuselageScroll, fuselage.nb_sections);
        if (Main.renderPressed() && button == leftButton) Main.window->renderScene(true);
    };
    if (fuselage.paint == FuselagePart::gap) {
        if (meshFits(&fuselage, fuselage.nb_sections + 1, fuselage.nb_cross))
            fuselage.insertSection((Main.xloc - Main.xoff) / Main.zoom - fuselage.pos_offset);
        showChange();
    }
    if (fuselage.paint == FuselagePart::bar) {
        fuselage.removeSection();
        Main.DrawArea->clear();
        showChange();
    }
}

void pressSide(std::int16_t button, float x, float y) {
    if (equipmentTab()) {
        Equipment::testEquipmentsSide(x, y);
        Equipment::initMouseValEquipmentsSide();
        return;
    }
    if (ObjectList.shown(currentFuselage)) {
        MeshSections& fuselage = Fuselage::current();
        fuselage.paint = fuselage.testPositionSide(x, y);
        fuselage.initMouseValSide();
        if (Main.ctrlkey) insertOrRemoveSection(button, Fuselage::drawFuselagesSide);
    }
    Rudder.paint = Rudder.testPositionSide(x, y);
    Rudder.initMouseValSide();
}

void pressFront(float x, float y) {
    MainWing::testFront(x, y);
    Stabilizer.paint = Stabilizer.testPositionFront(x, y);
    Stabilizer.initMouseValFront();
    Rudder.paint = Rudder.testPositionFront(x, y);
    Rudder.initMouseValFront();
}

void pressVTop(float x, float y) {
    if (ObjectList.shown(currentFuselage)) {
        MeshSections& fuselage = Fuselage::current();
        fuselage.paint = fuselage.testPositionVTop(x, y);
        fuselage.initMouseValVTop();
    }
    MainWing::testVTop(x, y);
    Stabilizer.paint = Stabilizer.testPositionVTop(x, y);
    Stabilizer.initMouseValVTop();
}

void pressHTop(std::int16_t button, float x, float y) {
    if (equipmentTab()) {
        Equipment::testEquipmentsHTop(x, y);
        Equipment::initMouseValEquipmentsHTop();
        return;
    }
    if (!ObjectList.shown(currentFuselage)) return;
    MeshSections& fuselage = Fuselage::current();
    fuselage.paint = fuselage.testPositionHTop(x, y);
    fuselage.initMouseValHTop();
    if (Main.ctrlkey) insertOrRemoveSection(button, Fuselage::drawFuselagesHTop);
}

/// The panel follows what the press has hit, each test overruling the one before. Of the wings only
/// the first is asked: the panel edits the wing chosen in its list, which a press does not change.
void followHit() {
    if (Wings(1).paint != WingPart::none) Main.selectTab(PanelTab::wing);
    if (Stabilizer.paint != WingPart::none) Main.selectTab(PanelTab::stabilizer);
    if (Fuselage::current().paint != FuselagePart::none) {
        Main.setVisible(Control::FuselageVTopFrame, Main.mode == ViewMode::VTop);
        Main.selectTab(PanelTab::fuselage);
    }
    if (Rudder.paint != FinPart::none) Main.selectTab(PanelTab::rudder);
}

// ---- move

/// While the picture stands behind the lines, a drag takes them off by inverting, since white would
/// scratch it. A moved picture is painted afresh, so the next redraw has nothing to take off.
void movePicture(std::int16_t button, float x, float y) {
    if (button == leftButton && Main.altkey) {
        BackgroundPicture& picture = Main.pictureHere();
        picture.position = {static_cast<double>(x) - Main.xloc + picture.grab.x,
                            static_cast<double>(y) - Main.yloc + picture.grab.y};
        Main.DrawArea->clear();
        Main.paintPicture();
        Main.firstPictureRefresh = true;
    } else {
        Main.setDrawMode(button == leftButton ? DrawMode::Invert : DrawMode::Copy);
    }
}

void moveSide(float x, float y) {
    if (equipmentTab()) {
        Equipment::selectsEquipmentsSide(x, y);
        Fuselage::drawFuselagesSide(Main.zoom, Main.xoff, Main.yoff, noPart, 7);
        Rudder.drawSide(Main.zoom, Main.xoff, Main.yoff, noPart, noPart, noPart, noPart, 6);
    } else {
        Fuselage::selectsFuselagesSide(x, y);
        Rudder.selectsSide(x, y);
    }
    Wings(1).drawSide(Main.zoom, Main.xoff, Main.yoff);
    Stabilizer.drawSide(Main.zoom, Main.xoff, Main.yoff);
    Main.updateFuselageInterface();
    if (equipmentTab()) Main.updateEquipmentInterface();
}

void moveFront(float x, float y) {
    MainWing::selectsFront(x, y);
    Stabilizer.selectsFront(x, y);
    Fuselage::drawFuselageFront(Main.zoom, Main.xoff, Main.yoff);
    Rudder.selectsFront(x, y);
}

void moveVTop(float x, float y) {
    MainWing::selectsVTop(x, y);
    Stabilizer.selectsVTop(x, y);
    Fuselage::selectsFuselagesVTop(x, y);
    Rudder.drawVTop();
}

void moveHTop(float x, float y) {
    if (equipmentTab()) {
        Equipment::selectsEquipmentsHTop(x, y);
        Fuselage::drawFuselagesHTop(Main.zoom, Main.xoff, Main.yoff, noPart, 7);
    } else {
        Fuselage::selectsFuselagesHTop(x, y);
        Equipment::drawEquipmentsHTop(Main.zoom, Main.xoff, Main.yoff);
        Main.updateFuselageInterface();
    }
    Wings(1).drawHTop();
    Stabilizer.drawHTop();
}

void showLiveValues() {
    if (MainWing::anyHit()) Main.updateWingInterface();
    if (Stabilizer.paint != WingPart::none) Main.updateStabilizerInterface();
    if (Fuselage::current().paint != FuselagePart::none) Main.updateFuselageInterface();
    if (Rudder.paint != FinPart::none) Main.updateRudderInterface();
    if (Equipment::equipmentHit()) Main.updateEquipmentInterface();
}

// ---- release

/// What the section views do alike: the boxes, or the section's picture, follow what was dragged.
void releaseInside() {
    if (equipmentTab()) {
        Equipment::unpaintEquipments();
    } else {
        Main.zoomSectionSet();
    }
}

void releaseFront() {
    MainWing::clearPaint();
    MainWing::drawFront(Main.zoom, Main.xoff, Main.yoff);
    Stabilizer.paint = WingPart::none;
    Stabilizer.drawFront(Main.zoom, Main.xoff, Main.yoff, noPart, noPart, noPart, noPart);
    Rudder.paint = FinPart::none;
}

void releaseVTop() {
    MainWing::clearPaint();
    MainWing::drawVTop(Main.zoom, Main.xoff, Main.yoff, 5);
    Stabilizer.paint = WingPart::none;
    Stabilizer.drawVTop(Main.zoom, Main.xoff, Main.yoff, noPart, noPart, noPart, noPart, 4);
    Fuselage::current().paint = FuselagePart::none;
}

void releaseObjects() {
    switch (Main.mode) {
        case ViewMode::Side:
            Fuselage::current().paint = FuselagePart::none;
            Rudder.paint = FinPart::none;
            releaseInside();
            break;
        case ViewMode::Front:
            releaseFront();
            break;
        case ViewMode::VTop:
            releaseVTop();
            break;
        case ViewMode::HTop:
            Fuselage::current().paint = FuselagePart::none;
            Fuselage::drawFuselagesHTop(Main.zoom, Main.xoff, Main.yoff, noPart, 0);
            releaseInside();
            break;
        default:
            break;
    }
}

void clearHover() {
    Fuselage::current().selected = false;
    MainWing::clearSelection();
    Stabilizer.selected = false;
    Rudder.selected = false;
    Equipment::clearSelection();
}

}  // namespace

bool MainForm::anyBusy() const {
    return Equipment::equipmentHit() || MainWing::anyHit() || Stabilizer.paint != WingPart::none ||
           Rudder.paint != FinPart::none || Fuselage::current().paint != FuselagePart::none;
}

bool MainForm::anySelected() const {
    return Equipment::anySelected() || MainWing::anySelected() || Stabilizer.selected ||
           Rudder.selected || Fuselage::current().selected;
}

void MainForm::DrawArea_MouseDown(std::int16_t button, std::int16_t /*shift*/, float x, float y) {
    savedProject = false;
    if (altkey) pictureHere().grab = pictureHere().position;
    if (pictureShownHere()) {
        firstPictureRefresh = true;
        DrawArea->clear();
        paintPicture();
        DrawArea->refresh();
    }
    if (button == rightButton) {
        window->openPopup(x, y);
        return;
    }
    xloc = roundToInt16(static_cast<double>(x));
    yloc = roundToInt16(static_cast<double>(y));
    // Such a press takes the picture: the model must not go along with it.
    if (altkey && pictureShownHere()) return;
    switch (mode) {
        case ViewMode::Side:
            pressSide(button, x, y);
            break;
        case ViewMode::Front:
            pressFront(x, y);
            break;
        case ViewMode::VTop:
            pressVTop(x, y);
            break;
        case ViewMode::HTop:
            pressHTop(button, x, y);
            break;
        default:
            break;
    }
    followHit();
    DrawArea->refresh();
}

void MainForm::DrawArea_MouseMove(std::int16_t button, std::int16_t /*shift*/, float x, float y) {
    if (x == lastMouseX && y == lastMouseY) return;
    lastMouseX = x;
    lastMouseY = y;
    if (pictureShownHere()) movePicture(button, x, y);
    DrawArea->setFocus();
    switch (mode) {
        case ViewMode::Side:
            moveSide(x, y);
            break;
        case ViewMode::Front:
            moveFront(x, y);
            break;
        case ViewMode::VTop:
            moveVTop(x, y);
            break;
        case ViewMode::HTop:
            moveHTop(x, y);
            break;
        default:
            break;
    }
    firstPictureRefresh = false;
    DrawArea->refresh();
    showLiveValues();
    if (button != leftButton) updateCursor();
    if (renderPressed() && button == leftButton) window->renderScene(true);
}

void MainForm::DrawArea_MouseUp(std::int16_t button, std::int16_t /*shift*/, float /*x*/,
                                float /*y*/) {
    // The right button has only opened the menu; what that has armed waits for the next press.
    if (button == rightButton) return;
    clearHover();
    if (pictureShownHere()) {
        setDrawMode(DrawMode::Copy);
        refreshDrawingArea();
    }
    releaseObjects();
    updateCursor();
    shiftkey = false;
    ctrlkey = false;
    altkey = false;
    window->renderScene(true);
    firstPictureRefresh = false;
    DrawArea->refresh();
}

void MainForm::cancelGesture() {
    if (!anyBusy() && !shiftkey && !ctrlkey && !altkey && !firstPictureRefresh &&
        drawMode == DrawMode::Copy)
        return;
    DrawArea_MouseUp(0, 0, -1, -1);
    // The release asks the current view's objects only; the gesture may have begun in another view.
    MainWing::clearPaint();
    Stabilizer.paint = WingPart::none;
    Rudder.paint = FinPart::none;
    Fuselage::current().paint = FuselagePart::none;
    Equipment::unpaintEquipments();
    setDrawMode(DrawMode::Copy);
}

}  // namespace velna
