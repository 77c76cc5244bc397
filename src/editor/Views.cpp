#include <utility>

#include "common/NumberText.h"
#include "editor/Main.h"
#include "model/Fits.h"
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

SurfaceSize MainForm::drawAreaSize() const {
    return {roundToInt16(DrawArea->width()), roundToInt16(DrawArea->height())};
}

Transform MainForm::fitted(Transform before) {
    const SurfaceSize size = drawAreaSize();
    // The key A fits once.
    const bool section = focusZoom && (mode == ViewMode::Side || mode == ViewMode::HTop);
    if (section) focusZoom = false;
    switch (mode) {
        case ViewMode::VTop:
            return Plane::fitVTop(size, before);
        case ViewMode::Front:
            return Plane::fitFront(size, before);
        case ViewMode::Side:
            if (section) return Plane::focusSide(size, before);
            return Plane::fitSide(
                size, before,
                tab() == PanelTab::rudder ? SideExtent::aircraft : SideExtent::fuselage);
        case ViewMode::HTop:
            return section ? Plane::focusHTop(size, before) : Plane::fitHTop(size, before);
        default:
            return before;
    }
}

void MainForm::initDrawArea() {
    DrawArea->clear();
    if (pictureShownHere()) paintPicture();
    if (checked(Control::LockZoom) || keepsScale) return;
    Transform before = Plane::unfitted(drawAreaSize(), yoff);
    before.xoff = DrawArea->width() / 2;
    const Transform at = fitted(before);
    zoom = at.zoom;
    xoff = at.xoff;
    yoff = at.yoff;
}

void MainForm::redrawAtSameScale() {
    keepsScale = true;
    enterView();
    keepsScale = false;
}

void MainForm::enterView() {
    switch (mode) {
        case ViewMode::VTop:
            return initVTopView();
        case ViewMode::Front:
            return initFrontView();
        case ViewMode::Side:
            return initSideView();
        case ViewMode::HTop:
            return initHTopView();
        default:
            return;
    }
}

void MainForm::refreshDrawingArea() {
    enterView();
    if (renderPressed()) window->renderScene(true);
}

}  // namespace velna
