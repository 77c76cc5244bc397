#include <utility>

#include "editor/Views.h"
#include "model/Project.h"

namespace velna {
namespace {

constexpr SectionView sections{Plane::focusSide,
                               &AircraftViews::drawFuselagesSide,
                               &FuselageView::eraseSide,
                               &FuselageView::testPositionSide,
                               &FuselageView::initMouseValSide,
                               &EquipmentView::drawSide,
                               &AircraftViews::testEquipmentsSide,
                               false};

Transform fitFuselage(const Project& project, SurfaceSize size, Transform before) {
    return Plane::fitSide(project, size, before, SideExtent::fuselage);
}

Transform fitAircraft(const Project& project, SurfaceSize size, Transform before) {
    return Plane::fitSide(project, size, before, SideExtent::aircraft);
}

void enter(MainForm& form, const Canvas& canvas) {
    AircraftViews& views = form.views;
    const Project& project = form.project;
    const bool electronics = form.equipmentTab();
    enterSections(form, sections);
    if (electronics) {
        views.drawEquipmentsSide(canvas);
    } else {
        form.setEnabled(Control::InsRem, true);
    }
    views.drawFuselagesSide(canvas, noSection,
                            electronics ? FuselageLook::other : FuselageLook::bar);
    views.rudder.drawSide(canvas, project.Rudder, unlit, electronics);
    const auto show = [&](WingView& view, const SymWingSections& wing) {
        view.sidePoints = wing.computeSidePoints(canvas.at, std::move(view.sidePoints));
        view.drawSide(canvas, wing);
    };
    // Further panels would cover the body.
    show(views.wings(1), project.Wings(1));
    show(views.stabilizer, project.Stabilizer);
}

bool press(MainForm& form, std::int16_t button, const Pointer& pointer) {
    const bool removed = pressSections(form, button, pointer, sections);
    if (form.equipmentTab()) return false;
    TailView& rudder = form.views.rudder;
    rudder.grip.paint = rudder.testPositionSide(pointer.x, pointer.y);
    rudder.initMouseValSide(form.project.Rudder, pointer.shiftkey);
    return removed;
}

void move(MainForm& form, const Canvas& canvas, const Pointer& pointer) {
    AircraftViews& views = form.views;
    Project& project = form.project;
    if (form.equipmentTab()) {
        views.selectsEquipmentsSide(canvas, pointer);
        views.drawFuselagesSide(canvas, noSection, FuselageLook::other);
        views.rudder.drawSide(canvas, project.Rudder, unlit, true);
    } else {
        views.selectsFuselagesSide(canvas, pointer);
        views.rudder.selectsSide(canvas, project.Rudder, pointer);
    }
    views.wings(1).drawSide(canvas, project.Wings(1));
    views.stabilizer.drawSide(canvas, project.Stabilizer);
    form.updateFuselageInterface();
    if (form.equipmentTab()) form.updateEquipmentInterface();
}

void release(MainForm& form, const Canvas& /*canvas*/) {
    form.views.fuselage().grip.letGo();
    form.views.rudder.grip.letGo();
    releaseSections(form);
}

}  // namespace

constinit const ViewRow sideView{
    ViewMode::Side, Control::SideButton, &sections, fitFuselage, fitAircraft, enter, press, move,
    release};

}  // namespace velna
