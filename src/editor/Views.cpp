#include <array>
#include <utility>

#include "common/NumberText.h"
#include "editor/Fits.h"
#include "editor/Main.h"
#include "model/Fuselage.h"
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

/// Only the first panel and the stabiliser show here: further panels would cover the body.
template <class DrawOutline>
void drawWingOutlines(AircraftViews& views, DrawOutline drawOutline) {
    drawOutline(views.wings(1), Wings(1));
    drawOutline(views.stabilizer, Stabilizer);
}

}  // namespace

void MainForm::initVTopView() {
    const ViewEntry entry(*this, ViewMode::VTop, Control::VTopButton);
    const Canvas canvas = this->canvas();
    setEnabled(Control::HTopButton, false);
    setEnabled(Control::InsRem, false);
    views.drawWingsVTop(canvas);
    views.stabilizer.drawVTop(canvas, Stabilizer);
    views.computeFuselagesVTop(canvas.at);
    views.drawFuselagesVTop(canvas, FuselageLook::plain);
    views.rudder.vtopPoints = Rudder.computeVTopPoints(canvas.at, views.rudder.vtopPoints);
    views.rudder.drawVTop(canvas, Rudder);
}

void MainForm::initFrontView() {
    const ViewEntry entry(*this, ViewMode::Front, Control::FrontButton);
    const Canvas canvas = this->canvas();
    setVisible(Control::FuselageVTopFrame, false);
    setEnabled(Control::HTopButton, false);
    setEnabled(Control::InsRem, false);
    views.drawWingsFront(canvas);
    views.stabilizer.drawFront(canvas, Stabilizer);
    auto& outlines = views.fuselage().frontPoints;
    outlines = Fuselage::current().computeFrontPoints(canvas.at, std::move(outlines));
    views.drawFuselageFront(canvas);
    views.rudder.frontPoints = Rudder.computeFrontPoints(canvas.at, views.rudder.frontPoints);
    views.rudder.drawFront(canvas, Rudder);
}

void MainForm::initSideView() {
    const ViewEntry entry(*this, ViewMode::Side, Control::SideButton);
    const Canvas canvas = this->canvas();
    setVisible(Control::FuselageVTopFrame, false);
    setEnabled(Control::HTopButton, true);
    setVisible(Control::SmoothTopCommand, true);
    setVisible(Control::SmoothDownCommand, true);
    setVisible(Control::SmoothWidthCommand, false);
    const bool electronics = tab() == PanelTab::electronics;
    if (electronics) {
        views.drawEquipmentsSide(canvas);
    } else {
        setEnabled(Control::InsRem, true);
    }
    views.drawFuselagesSide(canvas, noSection,
                            electronics ? FuselageLook::other : FuselageLook::bar);
    views.rudder.drawSide(canvas, Rudder, unlit, electronics);
    drawWingOutlines(views, [&](WingView& view, const SymWingSections& wing) {
        view.sidePoints = wing.computeSidePoints(canvas.at, std::move(view.sidePoints));
        view.drawSide(canvas, wing);
    });
}

void MainForm::initHTopView() {
    const ViewEntry entry(*this, ViewMode::HTop, Control::HTopButton);
    const Canvas canvas = this->canvas();
    setVisible(Control::FuselageVTopFrame, false);
    setEnabled(Control::HTopButton, true);
    setVisible(Control::SmoothTopCommand, false);
    setVisible(Control::SmoothDownCommand, false);
    setVisible(Control::SmoothWidthCommand, true);
    const bool electronics = tab() == PanelTab::electronics;
    views.drawFuselagesHTop(canvas, noSection,
                            electronics ? FuselageLook::other : FuselageLook::bar);
    views.drawEquipmentsHTop(canvas);
    drawWingOutlines(views, [&](WingView& view, const SymWingSections& wing) {
        view.htopPoints = wing.computeHTopPoints(canvas.at, view.htopPoints);
        view.drawHTop(canvas);
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
    constexpr std::array<View, 4> entries{&MainForm::initVTopView, &MainForm::initFrontView,
                                          &MainForm::initSideView, &MainForm::initHTopView};
    bool& locked = controls[Control::LockZoom].checked;
    const bool before = locked;
    locked = true;
    (this->*entries[static_cast<std::size_t>(mode) - 1])();
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
