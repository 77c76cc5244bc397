#include "editor/Views.h"
#include "model/Fuselage.h"

namespace velna {
namespace {

void enter(MainForm& form, const Canvas& canvas) {
    AircraftViews& views = form.views;
    const Project& project = form.project;
    form.setEnabled(Control::HTopButton, false);
    form.setEnabled(Control::InsRem, false);
    views.drawWingsVTop(canvas);
    views.stabilizer.drawVTop(canvas, project.Stabilizer);
    views.computeFuselagesVTop(canvas.at);
    views.drawFuselagesVTop(canvas, FuselageLook::plain);
    views.rudder.vtopPoints = project.Rudder.computeVTopPoints(canvas.at, views.rudder.vtopPoints);
    views.rudder.drawVTop(canvas, project.Rudder);
}

bool press(MainForm& form, std::int16_t /*button*/, const Pointer& pointer) {
    Project& project = form.project;
    if (project.ObjectList.shown(project.currentFuselage)) {
        FuselageView& view = form.views.fuselage();
        MeshSections& body = Fuselage::current(project);
        view.grip.paint = view.testPositionVTop(body, pointer);
        view.initMouseValVTop(body, pointer.shiftkey);
    }
    form.views.testWingsVTop(pointer);
    WingView& stabilizer = form.views.stabilizer;
    stabilizer.grip.paint = stabilizer.testPositionVTop(pointer.x, pointer.y);
    stabilizer.initMouseValVTop(project.Stabilizer, pointer.shiftkey);
    return false;
}

void move(MainForm& form, const Canvas& canvas, const Pointer& pointer) {
    AircraftViews& views = form.views;
    views.selectsWingsVTop(canvas, pointer);
    views.stabilizer.selectsVTop(canvas, form.project.Stabilizer, pointer);
    views.selectsFuselagesVTop(canvas, pointer);
    views.rudder.drawVTop(canvas, form.project.Rudder);
}

void release(MainForm& form, const Canvas& canvas) {
    AircraftViews& views = form.views;
    views.letGoOfWings();
    views.drawWingsVTop(canvas);
    views.stabilizer.grip.letGo();
    views.stabilizer.drawVTop(canvas, form.project.Stabilizer);
    views.fuselage().grip.letGo();
}

}  // namespace

constinit const ViewRow vtopView{
    ViewMode::VTop, Control::VTopButton, nullptr, Plane::fitVTop, nullptr, enter, press, move,
    release};

}  // namespace velna
