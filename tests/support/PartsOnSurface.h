#pragma once

#include "model/Equipment.h"
#include "model/Fuselage.h"
#include "model/Plane.h"
#include "support/EditorInHand.h"

namespace velna::test {

/// The canvas of `Main` at another scale.
inline Canvas canvasAt(double zoom, double xoff, double yoff) {
    const Canvas now = Main.canvas();
    return {now.area, {zoom, xoff, yoff}, now.erases, now.overPicture, now.dim, now.lit};
}

/// What the pointer does with a part, by the names that its view uses.
struct GripOnSurface {
    explicit GripOnSurface(Grip& grip)
        : paint(grip.paint),
          selected(grip.selected),
          selected_part(grip.selected_part),
          initval(grip.initval),
          initval2(grip.initval2) {}

    std::int32_t& paint;
    bool& selected;
    std::int32_t& selected_part;
    double& initval;
    double& initval2;
};

/// A wing panel and its view, drawn and worked as the pointer of `Main` stands.
struct WingOnSurface : GripOnSurface {
    SymWingSections& wing;
    WingView& view;

    explicit WingOnSurface(int i) : WingOnSurface(Wings(i), Main.views.wings(i)) {}
    WingOnSurface(SymWingSections& object, WingView& itsView)
        : GripOnSurface(itsView.grip), wing(object), view(itsView) {}

    void drawFront(double zoom, double xoff, double yoff, const Lit& lit = unlit) {
        view.drawFront(canvasAt(zoom, xoff, yoff), wing, lit);
    }
    void drawVTop(double zoom, double xoff, double yoff, const Lit& lit = unlit, bool dim = false) {
        view.drawVTop(canvasAt(zoom, xoff, yoff), wing, lit, dim);
    }
    void initMouseValFront() { view.initMouseValFront(wing, Main.pointer.shiftkey); }
    void initMouseValVTop() { view.initMouseValVTop(wing, Main.pointer.shiftkey); }
    void selectsFront(float x, float y) {
        view.selectsFront(Main.canvas(), wing, Main.pointer.at(x, y));
    }
    void selectsVTop(float x, float y) {
        view.selectsVTop(Main.canvas(), wing, Main.pointer.at(x, y));
    }
    std::int32_t testPositionFront(float x, float y) const { return view.testPositionFront(x, y); }
    std::int32_t testPositionVTop(float x, float y) const { return view.testPositionVTop(x, y); }
};

/// The fin and its view.
struct FinOnSurface : GripOnSurface {
    TailView& view = Main.views.rudder;

    FinOnSurface() : GripOnSurface(Main.views.rudder.grip) {}

    void initMouseValSide() { view.initMouseValSide(Rudder, Main.pointer.shiftkey); }
    void initMouseValFront() { view.initMouseValFront(Rudder, Main.pointer.shiftkey); }
    void selectsSide(float x, float y) {
        view.selectsSide(Main.canvas(), Rudder, Main.pointer.at(x, y));
    }
    void selectsFront(float x, float y) {
        view.selectsFront(Main.canvas(), Rudder, Main.pointer.at(x, y));
    }
    void drawFront(TailView::FrontLook look = TailView::FrontLook::edited) {
        view.drawFront(Main.canvas(), Rudder, look);
    }
    void drawVTop() { view.drawVTop(Main.canvas(), Rudder); }
    void computeFrontPoints(double zoom, double xoff, double yoff) {
        view.frontPoints = Rudder.computeFrontPoints({zoom, xoff, yoff}, view.frontPoints);
    }
    void computeVTopPoints(double zoom, double xoff, double yoff) {
        view.vtopPoints = Rudder.computeVTopPoints({zoom, xoff, yoff}, view.vtopPoints);
    }
    std::int32_t testPositionSide(float x, float y) const { return view.testPositionSide(x, y); }
    std::int32_t testPositionFront(float x, float y) const { return view.testPositionFront(x, y); }
};

/// A fuselage and its view.
struct BodyPart : GripOnSurface {
    MeshSections& body;
    FuselageView& view;

    explicit BodyPart(int i)
        : GripOnSurface(Main.views.fuselages(i).grip),
          body(Fuselages(i)),
          view(Main.views.fuselages(i)) {}

    void drawSide(double zoom, double xoff, double yoff, int lit, FuselageLook look) {
        view.drawSide(canvasAt(zoom, xoff, yoff), body, lit, look);
    }
    void drawHTop(double zoom, double xoff, double yoff, int lit, FuselageLook look) {
        view.drawHTop(canvasAt(zoom, xoff, yoff), body, lit, look);
    }
    void drawVTop(FuselageLook look) { view.drawVTop(Main.canvas(), body, look); }
    void drawFront(double zoom, double xoff, double yoff) {
        view.drawFront(canvasAt(zoom, xoff, yoff), body);
    }
    void computeVTopPoints(double zoom, double xoff, double yoff) {
        view.vtopPoints = body.computeVTopPoints({zoom, xoff, yoff}, view.vtopPoints);
    }
    void computeFrontPoints(double zoom, double xoff, double yoff) {
        view.computeFront({zoom, xoff, yoff}, body);
    }
    void initMouseValSide() { view.initMouseValSide(body, Main.pointer.shiftkey); }
    void initMouseValHTop() { view.initMouseValHTop(body, Main.pointer.shiftkey); }
    void initMouseValVTop() { view.initMouseValVTop(body, Main.pointer.shiftkey); }
    void selectsSide(float x, float y) {
        view.selectsSide(Main.canvas(), body, Main.pointer.at(x, y));
    }
    void selectsHTop(float x, float y) {
        view.selectsHTop(Main.canvas(), body, Main.pointer.at(x, y));
    }
    void selectsVTop(float x, float y) {
        view.selectsVTop(Main.canvas(), body, Main.pointer.at(x, y));
    }
    std::int32_t testPositionSide(float x, float y) const {
        return view.testPositionSide(body, Main.pointer.at(x, y));
    }
    std::int32_t testPositionHTop(float x, float y) const {
        return view.testPositionHTop(body, Main.pointer.at(x, y));
    }
    std::int32_t testPositionVTop(float x, float y) const {
        return view.testPositionVTop(body, Main.pointer.at(x, y));
    }
};

/// A box and its view.
struct BoxOnSurface : GripOnSurface {
    ElectroBox& box;
    EquipmentView& view;

    explicit BoxOnSurface(int i)
        : GripOnSurface(Main.views.boxes(i).grip), box(Equipments(i)), view(Main.views.boxes(i)) {}

    void drawSide(double zoom, double xoff, double yoff, bool lit = false) {
        view.drawSide(canvasAt(zoom, xoff, yoff), box, lit);
    }
    void drawHTop(double zoom, double xoff, double yoff, bool lit = false) {
        view.drawHTop(canvasAt(zoom, xoff, yoff), box, lit);
    }
    void initMouseValSide() { view.initMouseValSide(box, Main.pointer.shiftkey); }
    void initMouseValHTop() { view.initMouseValHTop(box, Main.pointer.shiftkey); }
    void selectsSide(float x, float y) {
        view.selectsSide(Main.canvas(), box, Main.pointer.at(x, y));
    }
    void selectsHTop(float x, float y) {
        view.selectsHTop(Main.canvas(), box, Main.pointer.at(x, y));
    }
    std::int32_t testPositionSide(float x, float y) const { return view.testPositionSide(x, y); }
    std::int32_t testPositionHTop(float x, float y) const { return view.testPositionHTop(x, y); }
};

}  // namespace velna::test
