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

/// How a section view draws the fuselages, and takes the current one's old lines off.
struct SectionView {
    void (*draw)(double zoom, double xoff, double yoff, int selected1, int which);
    void (MeshSections::*erase)();
};

constexpr SectionView sideSections{Fuselage::drawFuselagesSide, &MeshSections::eraseSide};
constexpr SectionView htopSections{Fuselage::drawFuselagesHTop, &MeshSections::eraseHTop};

/// The old lines go before the arrays grow: a point that has never been drawn stands at the origin,
/// and a white line to it would cut the picture.
void insertSection(const SectionView& view) {
    MeshSections& fuselage = Fuselage::current();
    if (Main.erases()) (fuselage.*view.erase)();
    if (meshFits(&fuselage, fuselage.nb_sections + 1, fuselage.nb_cross))
        fuselage.insertSection((Main.xloc - Main.xoff) / Main.zoom - fuselage.pos_offset);
    Main.nothingToErase = true;
    view.draw(Main.zoom, Main.xoff, Main.yoff, noPart, 0);
    Main.nothingToErase = false;
}

/// A bar that stood below its new maximum runs no event: the selection may still lie on the section
/// that is gone.
void selectLastSection() {
    MeshSections& fuselage = Fuselage::current();
    if (fuselage.sel_sec <= fuselage.nb_sections) return;
    fuselage.sel_sec = fuselage.nb_sections;
    Main.updateFuselageInterface();
}

void showSectionCount(std::int16_t button) {
    Main.setScrollMaximum(Control::FuselageScroll, Fuselage::current().nb_sections);
    selectLastSection();
    if (Main.renderPressed() && button == leftButton) Main.window->renderScene(true);
}

/// Takes a section in or out where the press with Ctrl has found one; the second test meets the
/// state that the first has left, on the same `paint`. True where the press was on a bar.
bool insertOrRemoveSection(std::int16_t button, const SectionView& view) {
    MeshSections& fuselage = Fuselage::current();
    if (fuselage.paint == FuselagePart::gap) {
        insertSection(view);
        showSectionCount(button);
    }
    if (fuselage.paint != FuselagePart::bar) return false;
    fuselage.removeSection();
    Main.DrawArea->clear();
    view.draw(Main.zoom, Main.xoff, Main.yoff, noPart, 0);
    showSectionCount(button);
    return true;
}

/// True where the press has removed the section that it hit, or could have.
bool pressSide(std::int16_t button, float x, float y) {
    if (equipmentTab()) {
        Equipment::testEquipmentsSide(x, y);
        Equipment::initMouseValEquipmentsSide();
        return false;
    }
    bool removed = false;
    if (ObjectList.shown(currentFuselage)) {
        MeshSections& fuselage = Fuselage::current();
        fuselage.paint = fuselage.testPositionSide(x, y);
        fuselage.initMouseValSide();
        removed = Main.ctrlkey && insertOrRemoveSection(button, sideSections);
    }
    Rudder.paint = Rudder.testPositionSide(x, y);
    Rudder.initMouseValSide();
    return removed;
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

/// As `pressSide`.
bool pressHTop(std::int16_t button, float x, float y) {
    if (equipmentTab()) {
        Equipment::testEquipmentsHTop(x, y);
        Equipment::initMouseValEquipmentsHTop();
        return false;
    }
    if (!ObjectList.shown(currentFuselage)) return false;
    MeshSections& fuselage = Fuselage::current();
    fuselage.paint = fuselage.testPositionHTop(x, y);
    fuselage.initMouseValHTop();
    return Main.ctrlkey && insertOrRemoveSection(button, htopSections);
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
    bool removed = false;
    switch (mode) {
        case ViewMode::Side:
            removed = pressSide(button, x, y);
            break;
        case ViewMode::Front:
            pressFront(x, y);
            break;
        case ViewMode::VTop:
            pressVTop(x, y);
            break;
        case ViewMode::HTop:
            removed = pressHTop(button, x, y);
            break;
        default:
            break;
    }
    followHit();
    // The section has gone from under the pointer: the hand's next pixel must not pull the one that
    // took its place.
    if (removed) Fuselage::current().paint = FuselagePart::none;
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
