#include "common/NumberText.h"
#include "editor/Main.h"
#include "editor/MeshLimit.h"
#include "model/Fuselage.h"
#include "model/ObjectList.h"
#include "model/Plane.h"

namespace velna {
namespace {

constexpr int leftButton = 1;
constexpr int rightButton = 2;

bool equipmentTab() {
    return Main.tab() == PanelTab::electronics;
}

// ---- press

/// How a section view draws the fuselages, and takes the current one's old lines off.
struct SectionView {
    void (AircraftViews::*draw)(const Canvas& canvas, int lit, FuselageLook look);
    void (FuselageView::*erase)(const Canvas& canvas, const MeshSections& body) const;
};

constexpr SectionView sideSections{&AircraftViews::drawFuselagesSide, &FuselageView::eraseSide};
constexpr SectionView htopSections{&AircraftViews::drawFuselagesHTop, &FuselageView::eraseHTop};

/// The old lines go before the body grows: the redraw would look for the new section's among them.
void insertSection(const SectionView& view) {
    MeshSections& fuselage = Fuselage::current();
    if (Main.erases()) (Main.views.fuselage().*view.erase)(Main.canvas(), fuselage);
    if (meshFits(&fuselage, fuselage.nb_sections + 1, fuselage.nb_cross))
        fuselage.insertSection((Main.xloc - Main.xoff) / Main.zoom - fuselage.pos_offset);
    Main.nothingToErase = true;
    (Main.views.*view.draw)(Main.canvas(), noSection, FuselageLook::bar);
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
    const std::int32_t& paint = Main.views.fuselage().grip.paint;
    if (paint == FuselagePart::gap) {
        insertSection(view);
        showSectionCount(button);
    }
    if (paint != FuselagePart::bar) return false;
    Fuselage::current().removeSection();
    Main.DrawArea->clear();
    (Main.views.*view.draw)(Main.canvas(), noSection, FuselageLook::bar);
    showSectionCount(button);
    return true;
}

/// True where the press has removed the section that it hit, or could have.
bool pressSide(std::int16_t button, const Pointer& pointer) {
    if (equipmentTab()) {
        Main.views.testEquipmentsSide(pointer);
        return false;
    }
    bool removed = false;
    if (ObjectList.shown(currentFuselage)) {
        FuselageView& view = Main.views.fuselage();
        view.grip.paint = view.testPositionSide(Fuselage::current(), pointer);
        view.initMouseValSide(Fuselage::current(), pointer.shiftkey);
        removed = pointer.ctrlkey && insertOrRemoveSection(button, sideSections);
    }
    TailView& rudder = Main.views.rudder;
    rudder.grip.paint = rudder.testPositionSide(pointer.x, pointer.y);
    rudder.initMouseValSide(Rudder, pointer.shiftkey);
    return removed;
}

void pressFront(const Pointer& pointer) {
    Main.views.testWingsFront(pointer);
    WingView& stabilizer = Main.views.stabilizer;
    stabilizer.grip.paint = stabilizer.testPositionFront(pointer.x, pointer.y);
    stabilizer.initMouseValFront(Stabilizer, pointer.shiftkey);
    TailView& rudder = Main.views.rudder;
    rudder.grip.paint = rudder.testPositionFront(pointer.x, pointer.y);
    rudder.initMouseValFront(Rudder, pointer.shiftkey);
}

void pressVTop(const Pointer& pointer) {
    if (ObjectList.shown(currentFuselage)) {
        FuselageView& view = Main.views.fuselage();
        view.grip.paint = view.testPositionVTop(Fuselage::current(), pointer);
        view.initMouseValVTop(Fuselage::current(), pointer.shiftkey);
    }
    Main.views.testWingsVTop(pointer);
    WingView& stabilizer = Main.views.stabilizer;
    stabilizer.grip.paint = stabilizer.testPositionVTop(pointer.x, pointer.y);
    stabilizer.initMouseValVTop(Stabilizer, pointer.shiftkey);
}

/// As `pressSide`.
bool pressHTop(std::int16_t button, const Pointer& pointer) {
    if (equipmentTab()) {
        Main.views.testEquipmentsHTop(pointer);
        return false;
    }
    if (!ObjectList.shown(currentFuselage)) return false;
    FuselageView& view = Main.views.fuselage();
    view.grip.paint = view.testPositionHTop(Fuselage::current(), pointer);
    view.initMouseValHTop(Fuselage::current(), pointer.shiftkey);
    return pointer.ctrlkey && insertOrRemoveSection(button, htopSections);
}

/// The panel follows what the press has hit, each test overruling the one before. Of the wings only
/// the first is asked: the panel edits the wing chosen in its list, which a press does not change.
void followHit() {
    const AircraftViews& views = Main.views;
    if (views.wings(1).grip.paint != WingPart::none) Main.selectTab(PanelTab::wing);
    if (views.stabilizer.grip.paint != WingPart::none) Main.selectTab(PanelTab::stabilizer);
    if (views.fuselage().grip.paint != FuselagePart::none) {
        Main.setVisible(Control::FuselageVTopFrame, Main.mode == ViewMode::VTop);
        Main.selectTab(PanelTab::fuselage);
    }
    if (views.rudder.grip.paint != FinPart::none) Main.selectTab(PanelTab::rudder);
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

void moveSide(const Canvas& canvas, const Pointer& pointer) {
    AircraftViews& views = Main.views;
    if (equipmentTab()) {
        views.selectsEquipmentsSide(canvas, pointer);
        views.drawFuselagesSide(canvas, noSection, FuselageLook::other);
        views.rudder.drawSide(canvas, Rudder, unlit, true);
    } else {
        views.selectsFuselagesSide(canvas, pointer);
        views.rudder.selectsSide(canvas, Rudder, pointer);
    }
    views.wings(1).drawSide(canvas, Wings(1));
    views.stabilizer.drawSide(canvas, Stabilizer);
    Main.updateFuselageInterface();
    if (equipmentTab()) Main.updateEquipmentInterface();
}

void moveFront(const Canvas& canvas, const Pointer& pointer) {
    AircraftViews& views = Main.views;
    views.selectsWingsFront(canvas, pointer);
    views.stabilizer.selectsFront(canvas, Stabilizer, pointer);
    views.drawFuselageFront(canvas);
    views.rudder.selectsFront(canvas, Rudder, pointer);
}

void moveVTop(const Canvas& canvas, const Pointer& pointer) {
    AircraftViews& views = Main.views;
    views.selectsWingsVTop(canvas, pointer);
    views.stabilizer.selectsVTop(canvas, Stabilizer, pointer);
    views.selectsFuselagesVTop(canvas, pointer);
    views.rudder.drawVTop(canvas, Rudder);
}

void moveHTop(const Canvas& canvas, const Pointer& pointer) {
    AircraftViews& views = Main.views;
    if (equipmentTab()) {
        views.selectsEquipmentsHTop(canvas, pointer);
        views.drawFuselagesHTop(canvas, noSection, FuselageLook::other);
    } else {
        views.selectsFuselagesHTop(canvas, pointer);
        views.drawEquipmentsHTop(canvas);
        Main.updateFuselageInterface();
    }
    views.wings(1).drawHTop(canvas);
    views.stabilizer.drawHTop(canvas);
}

void showLiveValues() {
    const AircraftViews& views = Main.views;
    if (views.wingHit()) Main.updateWingInterface();
    if (views.stabilizer.grip.paint != WingPart::none) Main.updateStabilizerInterface();
    if (views.fuselage().grip.paint != FuselagePart::none) Main.updateFuselageInterface();
    if (views.rudder.grip.paint != FinPart::none) Main.updateRudderInterface();
    if (views.boxHit()) Main.updateEquipmentInterface();
}

// ---- release

/// What the section views do alike: the boxes, or the section's picture, follow what was dragged.
void releaseInside() {
    if (equipmentTab()) {
        Main.views.letGoOfBoxes();
    } else {
        Main.zoomSectionSet();
    }
}

void releaseFront(const Canvas& canvas) {
    AircraftViews& views = Main.views;
    views.letGoOfWings();
    views.drawWingsFront(canvas);
    views.stabilizer.grip.paint = WingPart::none;
    views.stabilizer.drawFront(canvas, Stabilizer);
    views.rudder.grip.paint = FinPart::none;
}

void releaseVTop(const Canvas& canvas) {
    AircraftViews& views = Main.views;
    views.letGoOfWings();
    views.drawWingsVTop(canvas);
    views.stabilizer.grip.paint = WingPart::none;
    views.stabilizer.drawVTop(canvas, Stabilizer);
    views.fuselage().grip.paint = FuselagePart::none;
}

void releaseObjects() {
    switch (Main.mode) {
        case ViewMode::Side:
            Main.views.fuselage().grip.paint = FuselagePart::none;
            Main.views.rudder.grip.paint = FinPart::none;
            releaseInside();
            break;
        case ViewMode::Front:
            releaseFront(Main.canvas());
            break;
        case ViewMode::VTop:
            releaseVTop(Main.canvas());
            break;
        case ViewMode::HTop:
            Main.views.fuselage().grip.paint = FuselagePart::none;
            Main.views.drawFuselagesHTop(Main.canvas(), noSection, FuselageLook::bar);
            releaseInside();
            break;
        default:
            break;
    }
}

}  // namespace

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
            removed = pressSide(button, pointer(x, y));
            break;
        case ViewMode::Front:
            pressFront(pointer(x, y));
            break;
        case ViewMode::VTop:
            pressVTop(pointer(x, y));
            break;
        case ViewMode::HTop:
            removed = pressHTop(button, pointer(x, y));
            break;
        default:
            break;
    }
    followHit();
    // The section has gone from under the pointer: the hand's next pixel must not pull the one that
    // took its place.
    if (removed) views.fuselage().grip.paint = FuselagePart::none;
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
            moveSide(canvas(), pointer(x, y));
            break;
        case ViewMode::Front:
            moveFront(canvas(), pointer(x, y));
            break;
        case ViewMode::VTop:
            moveVTop(canvas(), pointer(x, y));
            break;
        case ViewMode::HTop:
            moveHTop(canvas(), pointer(x, y));
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
    views.clearHover();
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
    views.letGo();
    setDrawMode(DrawMode::Copy);
}

}  // namespace velna
