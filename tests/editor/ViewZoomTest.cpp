#include <cmath>
#include <limits>

#include "editor/ViewZoom.h"
#include "model/Fuselage.h"
#include "support/Drag.h"
#include "support/EditorBench.h"

namespace velna {
namespace {

using test::drag;
using test::SurfaceCall;

class ViewZoom : public test::EditorTest {
protected:
    /// The place in the model, in its own units, under a pixel.
    static Point2D under(double x, double y) {
        return {(x - Main.view.xoff) / Main.view.zoom, (y - Main.view.yoff) / Main.view.zoom};
    }
    static Point2D pixelOf(Point2D model) {
        return {Main.view.xoff + Main.view.zoom * model.x,
                Main.view.yoff + Main.view.zoom * model.y};
    }
    void loadPicture() {
        area.pictures["plan.bmp"] = {400, 200};
        window.pictureFiles = {"plan.bmp"};
        Main.loadBitmapAction();
    }
    const Transform fitted = Main.view.transform();
};

TEST_F(ViewZoom, TheModelUnderThePointerStaysThere) {
    const Point2D model = under(720, 130);
    for (int i = 0; i < 12; ++i) zoomAt(Main, 720, 130, 1.19);
    EXPECT_NEAR(Main.view.zoom, fitted.zoom * std::pow(1.19, 12), 1e-9);
    EXPECT_NEAR(pixelOf(model).x, 720, 1e-6);
    EXPECT_NEAR(pixelOf(model).y, 130, 1e-6);
    for (int i = 0; i < 20; ++i) zoomAt(Main, 720, 130, 1 / 1.19);
    EXPECT_NEAR(pixelOf(model).x, 720, 1e-6);
    EXPECT_NEAR(pixelOf(model).y, 130, 1e-6);
}

TEST_F(ViewZoom, AThousandStepsEndAtTheLimitsAndStillHoldThePoint) {
    const Point2D model = under(10, 490);
    for (int i = 0; i < 1000; ++i) zoomAt(Main, 10, 490, 1.3);
    EXPECT_NEAR(Main.view.zoom, fitted.zoom * nearestView, 1e-6 * fitted.zoom);
    EXPECT_NEAR(pixelOf(model).x, 10, 0.5);
    EXPECT_NEAR(pixelOf(model).y, 490, 0.5);
    for (int i = 0; i < 1000; ++i) zoomAt(Main, 10, 490, 0.7);
    EXPECT_NEAR(Main.view.zoom, fitted.zoom * farthestView, 1e-6 * fitted.zoom);
    EXPECT_NEAR(pixelOf(model).x, 10, 0.5);
    EXPECT_NEAR(pixelOf(model).y, 490, 0.5);
}

TEST_F(ViewZoom, FactorsThatAreNoneChangeNothing) {
    area.calls.clear();
    for (const double factor : {0.0, -1.0, 1.0, std::nan("")}) zoomAt(Main, 100, 100, factor);
    const double infinity = std::numeric_limits<double>::infinity();
    panSideways(Main, infinity);
    panSideways(Main, std::nan(""));
    panSideways(Main, 0);
    zoomAt(Main, infinity, 100, 2);
    EXPECT_EQ(Main.view.transform(), fitted);
    EXPECT_TRUE(area.calls.empty());
    zoomAt(Main, 450, 250, infinity);
    EXPECT_NEAR(Main.view.zoom, fitted.zoom * nearestView, 1e-6 * fitted.zoom);
    EXPECT_TRUE(std::isfinite(Main.view.xoff));
}

TEST_F(ViewZoom, EachViewIsDrawnAnewWithoutAnOldLine) {
    for (const auto enter : {&MainForm::initVTopView, &MainForm::initFrontView,
                             &MainForm::initSideView, &MainForm::initHTopView}) {
        (Main.*enter)();
        Main.pointer.lastMouseX = Main.pointer.lastMouseY = 0;
        area.calls.clear();
        zoomAt(Main, 300, 200, 2);
        ASSERT_FALSE(area.calls.empty());
        EXPECT_EQ(area.calls[0].kind, SurfaceCall::Kind::Clear);
        EXPECT_GT(area.lines(black), 0);
    }
}

TEST_F(ViewZoom, TheNextFitTakesTheViewBack) {
    zoomAt(Main, 300, 200, 3);
    panSideways(Main, 40);
    ASSERT_NE(Main.view.transform(), fitted);
    Main.refreshDrawingArea();
    EXPECT_EQ(Main.view.transform(), fitted);
    EXPECT_EQ(Main.view.byHand, Transform{});
}

TEST_F(ViewZoom, LockZoomKeepsItOverEditsAndViews) {
    zoomAt(Main, 300, 200, 3);
    Main.menuClicked(Control::LockZoom);
    const Transform zoomed = Main.view.transform();
    test::type(Control::SpanText, "5000");
    EXPECT_EQ(Main.view.transform(), zoomed);
    Main.initFrontView();
    EXPECT_EQ(Main.view.transform(), zoomed);
    zoomAt(Main, 450, 250, 2);
    EXPECT_NEAR(Main.view.zoom, zoomed.zoom * 2, 1e-12);
    Main.menuClicked(Control::LockZoom);
    Main.initVTopView();
    EXPECT_NE(Main.view.transform(), zoomed);
}

TEST_F(ViewZoom, HitsAndDragsFollowTheNewScale) {
    const Point2D tip = under(866, 170);
    zoomAt(Main, 866, 170, 4);
    panSideways(Main, -100);
    const auto [x, y] = pixelOf(tip);
    EXPECT_NEAR(x, 766, 1e-6);
    const double sweep = Wings(1).pos2;
    auto gesture = drag(Main).press(static_cast<float>(x), static_cast<float>(y));
    ASSERT_EQ(Main.views.wings(1).grip.paint, WingPart::tipEdge);
    gesture.move(static_cast<float>(x), static_cast<float>(y) + 40);
    EXPECT_NEAR(Wings(1).pos2, sweep + 40 / (fitted.zoom * 4), 1e-4);
    gesture.release();
}

TEST_F(ViewZoom, WhatLiesUnderThePointerLightsWithoutAMove) {
    drag(Main).hover(866, 170);
    ASSERT_TRUE(Main.views.wings(1).grip.selected);
    const CursorShape cursor = Main.pointer.cursor;
    zoomAt(Main, 866, 170, 1.5);
    EXPECT_TRUE(Main.views.wings(1).grip.selected);
    EXPECT_EQ(Main.pointer.cursor, cursor);
    EXPECT_GT(area.lines(project.highlightColor), 0);
    zoomAt(Main, 100, 100, 4);
    EXPECT_FALSE(Main.views.wings(1).grip.selected) << "the tip has gone from under the pointer";
}

TEST_F(ViewZoom, ADragIsLeftAlone) {
    auto gesture = drag(Main).press(866, 170).move(870, 170);
    area.calls.clear();
    zoomAt(Main, 300, 200, 2);
    panSideways(Main, 50);
    EXPECT_EQ(Main.view.transform(), fitted);
    EXPECT_TRUE(area.calls.empty());
    gesture.release();
}

TEST_F(ViewZoom, AnArmedModifierStaysArmed) {
    Main.initSideView();
    Main.DrawArea_keydown(17, ShiftState::ctrl);
    zoomAt(Main, 300, 200, 2);
    EXPECT_TRUE(Main.pointer.ctrlkey);
    EXPECT_FALSE(Main.pointer.shiftkey);
}

TEST_F(ViewZoom, NeitherTheAircraftNorItsSavingIsTouched) {
    const Project before = project;
    zoomAt(Main, 300, 200, 2);
    panSideways(Main, 30);
    EXPECT_TRUE(project == before);
    EXPECT_TRUE(Main.savedProject);
    EXPECT_EQ(window.renders, 0) << "the picture in three dimensions has not changed";
}

TEST_F(ViewZoom, APanLeavesAStripInSight) {
    for (int i = 0; i < 100; ++i) panSideways(Main, 60);
    EXPECT_NEAR(Main.view.byHand.xoff, 0.9 * 900, 1e-9);
    for (int i = 0; i < 100; ++i) panSideways(Main, -60);
    EXPECT_NEAR(Main.view.byHand.xoff, -0.9 * 900, 1e-9);
}

TEST_F(ViewZoom, ThePictureGoesWithTheDrawingAndComesBackWithTheFit) {
    loadPicture();
    Main.menuClicked(Control::LockZoom);
    Main.refreshDrawingArea();
    const auto [position, size] = Main.shownPicture();
    const Point2D corner = under(position.x, position.y);
    zoomAt(Main, 500, 220, 2.5);
    panSideways(Main, 33);
    EXPECT_NEAR(pixelOf(corner).x, Main.shownPicture().position.x, 1e-9);
    EXPECT_NEAR(pixelOf(corner).y, Main.shownPicture().position.y, 1e-9);
    EXPECT_DOUBLE_EQ(Main.shownPicture().size.x, size.x * 2.5);
    const auto painted = area.sinceClear();
    ASSERT_FALSE(painted.empty());
    EXPECT_EQ(painted[0].kind, SurfaceCall::Kind::Picture);
    EXPECT_EQ(painted[0].x1, Main.shownPicture().position.x);
    EXPECT_EQ(painted[0].x2, Main.shownPicture().size.x);
    EXPECT_EQ(area.lines(white), 0) << "a white line would scratch it";
    Main.menuClicked(Control::LockZoom);
    Main.refreshDrawingArea();
    EXPECT_EQ(Main.shownPicture().position, position) << "bit for bit";
    EXPECT_EQ(Main.shownPicture().size, size);
}

TEST_F(ViewZoom, APictureMovedInALargerViewFollowsTheHand) {
    loadPicture();
    Main.menuClicked(Control::LockZoom);
    zoomAt(Main, 450, 250, 4);
    const Point2D before = Main.shownPicture().position;
    Main.DrawArea_keydown(18, ShiftState::alt);
    auto gesture = drag(Main).press(400, 240).move(430, 220);
    EXPECT_NEAR(Main.shownPicture().position.x, before.x + 30, 1e-9);
    EXPECT_NEAR(Main.shownPicture().position.y, before.y - 20, 1e-9);
    gesture.release();
}

TEST_F(ViewZoom, APictureLoadedInALargerViewStandsInItsMiddle) {
    Main.menuClicked(Control::LockZoom);
    zoomAt(Main, 100, 100, 2);
    loadPicture();
    const auto [position, size] = Main.shownPicture();
    EXPECT_NEAR(position.x + size.x / 2, 450, 1e-9);
    EXPECT_NEAR(position.y + size.y / 2, 250, 1e-9);
    EXPECT_EQ(Main.pictureHere().scale, 100);
}

}  // namespace
}  // namespace velna
