#include <cmath>

#include <gtest/gtest.h>

#include "model/Fits.h"
#include "model/Fuselage.h"
#include "model/MainWing.h"
#include "model/Plane.h"
#include "support/EditorBench.h"
#include "support/EditorInHand.h"

namespace velna {
namespace {

constexpr SurfaceSize surface{900, 500};

class Fits : public test::EditorTest {
protected:
    MeshSections& body = Fuselages(1);
    double zoom = 7;
    double xoff = 11;
    double yoff = 13;

    void vtop() { take(Plane::fitVTop(project, surface, {zoom, xoff, yoff})); }
    void front() { take(Plane::fitFront(project, surface, {zoom, xoff, yoff})); }
    void side(SideExtent extent = SideExtent::fuselage) {
        take(Plane::fitSide(project, surface, {zoom, xoff, yoff}, extent));
    }
    void htop() { take(Plane::fitHTop(project, surface, {zoom, xoff, yoff})); }

    void take(const Transform& at) {
        zoom = at.zoom;
        xoff = at.xoff;
        yoff = at.yoff;
    }
};

// The default aircraft reaches from 0 to 800 along the body; its half-span is 700.

TEST_F(Fits, VTopTakesInWingsStabiliserAndCurrentFuselage) {
    vtop();
    EXPECT_EQ(zoom, 0.95 * 500 / 800);
    EXPECT_EQ(yoff, (500 - zoom * 800) / 2);
    EXPECT_EQ(xoff, 11) << "the centre line stays in the middle of the surface";

    Wings(1).shift = 800;
    vtop();
    EXPECT_EQ(zoom, 0.95 * (900 / 3000.0)) << "the half-span counts twice";
    Wings(1).shift = 0;
    Stabilizer.span = 1500;
    vtop();
    EXPECT_EQ(zoom, 0.95 * (900 / 3000.0));
    Stabilizer.span = 250;

    Wings(1).pos1 = -210;
    vtop();
    EXPECT_EQ(zoom, 0.95 * (500 / 1000.0)) << "the tip's leading edge at -200";
    Wings(1).pos1 = 180;
    Stabilizer.length2 = 310;
    vtop();
    EXPECT_EQ(zoom, 0.95 * (500 / 1000.0)) << "the stabiliser's tip ends at 1000";
    Stabilizer.length2 = 80;
    Stabilizer.length1 = 350;
    vtop();
    EXPECT_EQ(zoom, 0.95 * (500 / 1000.0)) << "or its root";
    Stabilizer.length1 = -850;
    vtop();
    EXPECT_EQ(zoom, 0.95 * (500 / 1000.0)) << "a chord turned round reaches forward";
    Stabilizer.length1 = 130;
    Stabilizer.pos2 = -850;
    vtop();
    EXPECT_EQ(zoom, 0.95 * (500 / 1000.0)) << "and so does a tip swept forward";
}

TEST_F(Fits, VTopLeavesOutTheChordOfTheWings) {
    Wings(1).length2 = 5000;
    vtop();
    EXPECT_EQ(zoom, 0.95 * 500 / 800) << "a wing counts by its tip's leading edge alone";
    Wings(1).pos2 = 820;
    vtop();
    EXPECT_EQ(zoom, 0.95 * (500 / 1000.0));
}

TEST_F(Fits, FrontTakesInBodyTipsAndFin) {
    front();
    EXPECT_EQ(zoom, 0.95 * (900 / 1400.0));
    EXPECT_EQ(yoff, (500 + zoom * (10 + 180)) / 2) << "from the body's bottom to the fin's top";
    Rudder.span = 5000;
    front();
    EXPECT_EQ(zoom, 0.95 * (500 / 5020.0));
    Rudder.span = 150;
    Wings(1).elevation2 = -3000;
    Wings(1).thickness2 = 0.1;
    front();
    EXPECT_EQ(zoom, 0.95 * (500 / (180 - (50 - 3000 - 150 * 0.1 / 2))));
    Wings(1).elevation2 = 0;
    Wings(1).thickness1 = 20;
    front();
    EXPECT_EQ(zoom, 0.95 * (500 / 4600.0)) << "of the first wing the root counts as well";
}

TEST_F(Fits, FrontAsksTheRootOfTheFirstWingOnly) {
    Plane::increment(nbWings);
    MainWing::addWing(project);
    Wings(2).thickness1 = 20;
    const double widest = 2 * (Wings(2).span + Wings(2).shift);
    front();
    EXPECT_EQ(zoom, 0.95 * (900 / widest));
}

TEST_F(Fits, SideFitsTheCurrentFuselageUnlessTheRudderTabIsOpen) {
    Rudder.pos1 = 2000;
    side();
    EXPECT_EQ(zoom, 0.95 * (900 / 800.0));
    EXPECT_EQ(xoff, (900 - zoom * 800) / 2);
    EXPECT_EQ(yoff, (500 + zoom * 120) / 2);

    side(SideExtent::aircraft);
    EXPECT_EQ(zoom, 0.95 * (900 / 2180.0)) << "the fin's tip ends at 2000 + 100 + 80";
    EXPECT_EQ(yoff, (500 + zoom * (10 + 180)) / 2);
    Rudder.length1 = 300;
    side(SideExtent::aircraft);
    EXPECT_EQ(zoom, 0.95 * (900 / 2300.0)) << "or its root";
    Rudder.pos1 = 0;
    Wings(1).pos2 = 1000;
    side(SideExtent::aircraft);
    EXPECT_EQ(zoom, 0.95 * (900 / 1330.0)) << "here the chord of a wing's tip counts";
    Main.selectTab(PanelTab::rudder);
    Main.initSideView();
    EXPECT_EQ(Main.view.zoom, zoom);
    Main.selectTab(PanelTab::wing);
    Main.initSideView();
    EXPECT_EQ(Main.view.zoom, 0.95 * (900 / 800.0));
}

TEST_F(Fits, HTopFitsTheCurrentFuselageAboutItsOwnMiddle) {
    body.shift = 30;
    body.width(2) = 600;
    htop();
    EXPECT_EQ(zoom, 0.95 * (500 / 600.0));
    EXPECT_EQ(xoff, (900 - zoom * 800) / 2);
    EXPECT_EQ(yoff, (500 - zoom * 60) / 2) << "it is drawn with its shift downward";
}

TEST_F(Fits, HTopCentresAHullThatLiesFarToOneSide) {
    body.shift = 400;
    body.sel_sec = 2;
    for (bool focus : {false, true}) {
        Main.view.focusZoom = focus;
        Main.initHTopView();
        const int section = focus ? 2 : 3;  // the last is the narrowest: it lies in the middle
        const HTopEdges& edges = Main.views.fuselage().htop;
        EXPECT_NEAR((edges.plus(section).y + edges.minus(section).y) / 2, 250, 1e-9);
        EXPECT_GT(edges.minus(2).y, 0);
        EXPECT_LT(edges.plus(2).y, 500);
    }
}

TEST_F(Fits, FocusFillsNineTenthsOfTheHeightWithTheSelectedSectionOnce) {
    body.sel_sec = 2;
    body.pos_offset = 7;
    body.elevation_offset = 1000;
    Main.view.focusZoom = true;
    Main.initSideView();
    EXPECT_EQ(Main.view.zoom, 0.9 * 500 / 100);
    EXPECT_EQ(Main.view.xoff, (900 - Main.view.zoom * 414) / 2);
    EXPECT_EQ(Main.view.yoff, (500 + Main.view.zoom * 120) / 2)
        << "the section's own elevation, without the offset";
    EXPECT_FALSE(Main.view.focusZoom);

    Main.view.focusZoom = true;
    body.shift = 4;
    Main.initHTopView();
    EXPECT_EQ(Main.view.zoom, 0.9 * 500 / 100);
    EXPECT_EQ(Main.view.yoff, (500 - Main.view.zoom * 8) / 2);
    EXPECT_FALSE(Main.view.focusZoom);
    Main.initHTopView();
    EXPECT_EQ(Main.view.zoom, 0.95 * (900 / 800.0)) << "the next redraw fits the whole again";
}

TEST_F(Fits, FocusWaitsInVTopAndFront) {
    Main.view.focusZoom = true;
    Main.initVTopView();
    Main.initFrontView();
    EXPECT_TRUE(Main.view.focusZoom);
}

TEST_F(Fits, AnEmptyExtentFailsTheZoomAndTheOffsetsFollowTheOldOne) {
    for (int k = 1; k <= 3; ++k) body.pos(k) = 100;
    side();
    EXPECT_EQ(zoom, 7);
    EXPECT_EQ(xoff, (900 - 7 * 200.0) / 2);
    EXPECT_EQ(yoff, (500 + 7 * 120.0) / 2);
    htop();
    EXPECT_EQ(zoom, 7);

    Wings(1).span = Stabilizer.span = 0;
    vtop();
    EXPECT_EQ(zoom, 7) << "an empty span fails the whole statement";
    front();
    EXPECT_EQ(zoom, 7);

    body.sel_sec = 2;
    body.height(2) = 0;
    take(Plane::focusSide(project, surface, {zoom, xoff, yoff}));
    EXPECT_EQ(zoom, 7);
    EXPECT_EQ(xoff, (900 - 7 * 200.0) / 2);
    Main.view.focusZoom = true;
    Main.initSideView();
    EXPECT_FALSE(Main.view.focusZoom) << "a focus that fails is over, too";
}

TEST_F(Fits, ARedrawWithAnEmptyExtentShowsAFifth) {
    for (int k = 1; k <= 3; ++k) body.pos(k) = 100;
    Main.initSideView();
    EXPECT_EQ(Main.view.zoom, 0.2);
    EXPECT_EQ(Main.view.xoff, (900 - 0.2 * 200) / 2);
}

TEST_F(Fits, WhatReachesPastAHundredThousandIsFittedAsIfItEndedThere) {
    Rudder.shift = -400000;
    Rudder.span = 0;
    body.elevation(1) = -300000;
    front();
    EXPECT_EQ(zoom, 0.95 * (500 / (Fuselage::current(project).maxElevationPoint() + 400000)))
        << "below there is no such end";
    for (int k = 1; k <= 3; ++k) body.pos(k) += 300000;
    Wings(1).pos1 = Stabilizer.pos1 = 250000;
    vtop();
    EXPECT_EQ(zoom, 0.95 * (500 / (300800.0 - 100000)));
    EXPECT_EQ(yoff, (500 - zoom * (100000 + 300800.0)) / 2);
    for (int k = 1; k <= 3; ++k) body.pos(k) -= 600000;
    Wings(1).pos1 = Stabilizer.pos1 = -250000;
    vtop();
    EXPECT_EQ(zoom, 0.95 * (500 / (-100000 - -300000.0)));
}

TEST_F(Fits, AVeryShortModelIsMagnifiedNoMoreThanAHundredThousandTimes) {
    body.pos(1) = 0;
    body.pos(2) = 1e-9;
    body.pos(3) = 2e-9;
    for (int k = 1; k <= 3; ++k) body.elevation(k) = 0, body.height(k) = 1e-9;
    side();
    EXPECT_EQ(zoom, 0.95 * 100000);
}

TEST_F(Fits, UntickedEmptyAndOtherFuselages) {
    ObjectList.setShown(1, false);
    body.nb_cross = 0;
    body.pos(3) = 1000;
    vtop();
    EXPECT_EQ(zoom, 0.95 * (500 / 1000.0)) << "the current one counts all the same";
    Plane::increment(nbFuselages);
    Fuselage::resizeFuselages(project);
    Fuselage::addFuselage(project);
    Fuselages(2).pos(3) = 5000;
    vtop();
    EXPECT_EQ(zoom, 0.95 * (500 / 1000.0)) << "another one never does";
    currentFuselage = 2;
    vtop();
    EXPECT_EQ(zoom, 0.95 * (500 / 5000.0));
}

TEST_F(Fits, NumbersBeyondAllMeasureLeaveAFiniteTransform) {
    for (double value : {1e308, -1e308}) {
        Wings(1).span = Wings(1).shift = Wings(1).pos1 = Wings(1).pos2 = value;
        Wings(1).elevation1 = Wings(1).elevation2 = Wings(1).length2 = value;
        Stabilizer.span = Stabilizer.shift = value;
        body.pos(3) = body.height(2) = body.elevation(2) = body.width(2) = body.shift = value;
        body.sel_sec = 2;
        const auto expectFinite = [&] {
            EXPECT_TRUE(std::isfinite(zoom) && std::isfinite(xoff) && std::isfinite(yoff));
        };
        vtop();
        expectFinite();
        front();
        expectFinite();
        for (const SideExtent extent : {SideExtent::fuselage, SideExtent::aircraft}) {
            side(extent);
            expectFinite();
        }
        htop();
        expectFinite();
        take(Plane::focusSide(project, surface, {zoom, xoff, yoff}));
        expectFinite();
        take(Plane::focusHTop(project, surface, {zoom, xoff, yoff}));
        expectFinite();
    }
}

}  // namespace
}  // namespace velna
