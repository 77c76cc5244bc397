#include "editor/Views.h"
#include "model/Project.h"

namespace velna {
namespace {

constexpr SectionView sections{Plane::focusHTop,
                               &AircraftViews::drawFuselagesHTop,
                               &FuselageView::eraseHTop,
                               &FuselageView::testPositionHTop,
                               &FuselageView::initMouseValHTop,
                               &EquipmentView::drawHTop,
                               &AircraftViews::testEquipmentsHTop,
                               true};

void enter(MainForm& form, const Canvas& canvas) {
    AircraftViews& views = form.views;
    const Project& project = form.project;
    enterSections(form, sections);
    views.drawFuselagesHTop(canvas, noSection,
                            form.equipmentTab() ? FuselageLook::other : FuselageLook::bar);
    views.drawEquipmentsHTop(canvas);
    const auto show = [&](WingView& view, const SymWingSections& wing) {
        view.htopPoints = wing.computeHTopPoints(canvas.at, view.htopPoints);
        view.drawHTop(canvas);
    };
    // Further panels would cover the body.
    show(views.wings(1), project.Wings(1));
    show(views.stabilizer, project.Stabilizer);
    form.setEnabled(Control::InsRem, true);
}

bool press(MainForm& form, std::int16_t button, const Pointer& pointer) {
    return pressSections(form, button, pointer, sections);
}

void move(MainForm& form, const Canvas& canvas, const Pointer& pointer) {
    AircraftViews& views = form.views;
    if (form.equipmentTab()) {
        views.selectsEquipmentsHTop(canvas, pointer);
        views.drawFuselagesHTop(canvas, noSection, FuselageLook::other);
    } else {
        views.selectsFuselagesHTop(canvas, pointer);
        views.drawEquipmentsHTop(canvas);
        form.updateFuselageInterface();
    }
    views.wings(1).drawHTop(canvas);
    views.stabilizer.drawHTop(canvas);
}

void release(MainForm& form, const Canvas& canvas) {
    form.views.fuselage().grip.letGo();
    form.views.drawFuselagesHTop(canvas, noSection, FuselageLook::bar);
    releaseSections(form);
}

}  // namespace

constinit const ViewRow htopView{
    ViewMode::HTop, Control::HTopButton, &sections, Plane::fitHTop, nullptr, enter, press, move,
    release};

}  // namespace velna
