#include "editor/Views.h"
#include "model/Fuselage.h"

namespace velna {
namespace {

void enter(MainForm& form, const Canvas& canvas) {
    AircraftViews& views = form.views;
    const Project& project = form.project;
    form.setVisible(Control::FuselageVTopFrame, false);
    form.setEnabled(Control::HTopButton, false);
    form.setEnabled(Control::InsRem, false);
    views.drawWingsFront(canvas);
    views.stabilizer.drawFront(canvas, project.Stabilizer);
    views.fuselage().computeFront(canvas.at, Fuselage::current(project));
    views.drawFuselageFront(canvas);
    TailView& rudder = views.rudder;
    rudder.frontPoints = project.Rudder.computeFrontPoints(canvas.at, rudder.frontPoints);
    rudder.drawFront(canvas, project.Rudder);
}

bool press(MainForm& form, std::int16_t /*button*/, const Pointer& pointer) {
    form.views.testWingsFront(pointer);
    WingView& stabilizer = form.views.stabilizer;
    stabilizer.grip.paint = stabilizer.testPositionFront(pointer.x, pointer.y);
    stabilizer.initMouseValFront(form.project.Stabilizer, pointer.shiftkey);
    TailView& rudder = form.views.rudder;
    rudder.grip.paint = rudder.testPositionFront(pointer.x, pointer.y);
    rudder.initMouseValFront(form.project.Rudder, pointer.shiftkey);
    return false;
}

void move(MainForm& form, const Canvas& canvas, const Pointer& pointer) {
    AircraftViews& views = form.views;
    views.selectsWingsFront(canvas, pointer);
    views.stabilizer.selectsFront(canvas, form.project.Stabilizer, pointer);
    views.drawFuselageFront(canvas);
    views.rudder.selectsFront(canvas, form.project.Rudder, pointer);
}

void release(MainForm& form, const Canvas& canvas) {
    AircraftViews& views = form.views;
    views.letGoOfWings();
    views.drawWingsFront(canvas);
    views.stabilizer.grip.letGo();
    views.stabilizer.drawFront(canvas, form.project.Stabilizer);
    views.rudder.grip.letGo();
}

}  // namespace

constinit const ViewRow frontView{
    ViewMode::Front, Control::FrontButton, nullptr, Plane::fitFront, nullptr, enter, press, move,
    release};

}  // namespace velna
