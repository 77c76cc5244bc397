#include <array>

#include "common/NumberText.h"
#include "editor/Main.h"
#include "model/Equipment.h"
#include "model/Fuselage.h"
#include "model/MainWing.h"
#include "model/ObjectList.h"
#include "model/Plane.h"

namespace velna {
namespace {

/// The frame of a view's entry: the mode and the pressed key, modifiers gone, the surface cleared
/// and fitted at the start, shown at the end. In between nothing old is on the surface to take off.
class ViewEntry {
public:
    ViewEntry(MainForm& form, std::int32_t mode, Control key) : form_(form) {
        form.shiftkey = false;
        form.ctrlkey = false;
        for (Control button :
             {Control::VTopButton, Control::FrontButton, Control::SideButton, Control::HTopButton})
            form.setChecked(button, button == key);
        form.mode = mode;
        // What another view's Clear has disabled: this view's picture must be within reach.
        if (form.pictureShownHere()) form.enablePictureEntries(true);
        form.initDrawArea();
        form.nothingToErase = true;
    }
    ~ViewEntry() {
        form_.nothingToErase = false;
        form_.DrawArea->refresh();
    }
    ViewEntry(const ViewEntry&) = delete;
    ViewEntry& operator=(const ViewEntry&) = delete;

private:
    MainForm& form_;
};

// State codes of the draws.
constexpr int wingState = 5;
constexpr int stabilizerState = 4;
constexpr int fuselageVTopState = 4;
constexpr int fuselagePlainState = 0;
constexpr int fuselageDimState = 7;
constexpr int finEditedState = 4;
constexpr int finFrontState = 5;
constexpr int finDimState = 6;

/// Only the first panel and the stabiliser show here: further panels would cover the body.
template <class DrawOutline>
void drawWingOutlines(DrawOutline drawOutline) {
    drawOutline(Wings(1));
    drawOutline(Stabilizer);
}

}  // namespace

void MainForm::initVTopView() {
    const ViewEntry entry(*this, ViewMode::VTop, Control::VTopButton);
    setEnabled(Control::HTopButton, false);
    setEnabled(Control::InsRem, false);
    MainWing::drawVTop(zoom, xoff, yoff, wingState);
    Stabilizer.drawVTop(zoom, xoff, yoff, -1, -1, -1, -1, stabilizerState);
    Fuselage::computeFuselagesVTop(zoom, xoff, yoff);
    Fuselage::drawFuselagesVTop(fuselageVTopState);
    Rudder.computeVTopPoints(zoom, xoff, yoff);
    Rudder.drawVTop();
}

void MainForm::initFrontView() {
    const ViewEntry entry(*this, ViewMode::Front, Control::FrontButton);
    setVisible(Control::FuselageVTopFrame, false);
    setEnabled(Control::HTopButton, false);
    setEnabled(Control::InsRem, false);
    MainWing::drawFront(zoom, xoff, yoff);
    Stabilizer.drawFront(zoom, xoff, yoff, -1, -1, -1, -1);
    Fuselage::current().computeFrontPoints(zoom, xoff, yoff);
    Fuselage::drawFuselageFront(zoom, xoff, yoff);
    Rudder.computeFrontPoints(zoom, xoff, yoff);
    Rudder.drawFront(finFrontState);
}

void MainForm::initSideView() {
    const ViewEntry entry(*this, ViewMode::Side, Control::SideButton);
    setVisible(Control::FuselageVTopFrame, false);
    setEnabled(Control::HTopButton, true);
    setVisible(Control::SmoothTopCommand, true);
    setVisible(Control::SmoothDownCommand, true);
    setVisible(Control::SmoothWidthCommand, false);
    const bool electronics = tab() == PanelTab::electronics;
    if (electronics) {
        Equipment::drawEquipmentsSide(zoom, xoff, yoff);
    } else {
        setEnabled(Control::InsRem, true);
    }
    Fuselage::drawFuselagesSide(zoom, xoff, yoff, -1,
                                electronics ? fuselageDimState : fuselagePlainState);
    Rudder.drawSide(zoom, xoff, yoff, -1, -1, -1, -1, electronics ? finDimState : finEditedState);
    drawWingOutlines([this](SymWingSections& wing) {
        wing.computeSidePoints(zoom, xoff, yoff);
        wing.drawSide(zoom, xoff, yoff);
    });
}

void MainForm::initHTopView() {
    const ViewEntry entry(*this, ViewMode::HTop, Control::HTopButton);
    setVisible(Control::FuselageVTopFrame, false);
    setEnabled(Control::HTopButton, true);
    setVisible(Control::SmoothTopCommand, false);
    setVisible(Control::SmoothDownCommand, false);
    setVisible(Control::SmoothWidthCommand, true);
    const bool electronics = tab() == PanelTab::electronics;
    Fuselage::drawFuselagesHTop(zoom, xoff, yoff, -1,
                                electronics ? fuselageDimState : fuselagePlainState);
    Equipment::drawEquipmentsHTop(zoom, xoff, yoff);
    drawWingOutlines([this](SymWingSections& wing) {
        wing.computeHTopPoints(zoom, xoff, yoff);
        wing.drawHTop();
    });
    setEnabled(Control::InsRem, true);
}

void MainForm::initDrawArea() {
    DrawArea->clear();
    if (pictureShownHere()) paintPicture();
    if (checked(Control::LockZoom)) return;

    // The scale that stands when a fit fails.
    zoom = 0.2;
    xoff = DrawArea->width() / 2;
    const int width = roundToInt16(DrawArea->width());
    const int height = roundToInt16(DrawArea->height());
    switch (mode) {
        case ViewMode::VTop:
            Plane::fitVTop(width, height, zoom, yoff);
            break;
        case ViewMode::Front:
            Plane::fitFront(width, height, zoom, yoff);
            break;
        case ViewMode::Side:
            Plane::fitSide(width, height, zoom, xoff, yoff);
            break;
        case ViewMode::HTop:
            Plane::fitHTop(width, height, zoom, xoff, yoff);
            break;
        default:
            break;
    }
}

void MainForm::redrawAtSameScale() {
    using View = void (MainForm::*)();
    constexpr std::array<View, 4> views{&MainForm::initVTopView, &MainForm::initFrontView,
                                        &MainForm::initSideView, &MainForm::initHTopView};
    bool& locked = controls[Control::LockZoom].checked;
    const bool before = locked;
    locked = true;
    (this->*views[static_cast<std::size_t>(mode) - 1])();
    locked = before;
}

void MainForm::refreshDrawingArea() {
    switch (mode) {
        case ViewMode::VTop:
            initVTopView();
            break;
        case ViewMode::Front:
            initFrontView();
            break;
        case ViewMode::Side:
            initSideView();
            break;
        case ViewMode::HTop:
            initHTopView();
            break;
        default:
            break;
    }
    if (renderPressed()) window->renderScene(true);
}

}  // namespace velna
