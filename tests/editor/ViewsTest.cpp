#include <functional>
#include <vector>

#include <gtest/gtest.h>

#include "editor/StandingLines.h"
#include "model/Equipment.h"
#include "model/Fuselage.h"
#include "model/MainWing.h"
#include "model/Plane.h"
#include "support/DrawnLines.h"
#include "support/EditorBench.h"
#include "support/EditorInHand.h"

namespace velna {
namespace {

using test::drawnColours;
using test::joined;
using test::repeated;
using Kind = test::SurfaceCall::Kind;

/// What stands after all of `calls` where lines invert.
StandingLines standing(const std::vector<test::SurfaceCall>& calls) {
    StandingLines lines;
    for (const test::SurfaceCall& call : calls)
        if (call.kind == Kind::Line)
            lines.changes(call.x1, call.y1, call.x2, call.y2, call.colour == white);
    return lines;
}

class Views : public test::EditorTest {
protected:
    /// Whether the calls so far, each line inverting, have left what the view drawn anew shows.
    bool standsLikeAFreshView() {
        const auto calls = area.calls;
        bench.forget();
        Main.redrawAtSameScale();
        const bool same = standing(calls) == standing(area.calls);
        area.calls = calls;
        return same;
    }

    static constexpr Control viewKeys[] = {Control::VTopButton, Control::FrontButton,
                                           Control::SideButton, Control::HTopButton};

    static void enter(int mode) {
        Main.view.mode = mode;
        Main.refreshDrawingArea();
    }
};

TEST_F(Views, EntryPressesItsKeyAndClearsShiftAndCtrlButNotAlt) {
    void (MainForm::*const entries[])() = {&MainForm::initVTopView, &MainForm::initFrontView,
                                           &MainForm::initSideView, &MainForm::initHTopView};
    for (int mode = 1; mode <= 4; ++mode) {
        SCOPED_TRACE(mode);
        Main.pointer.shiftkey = Main.pointer.ctrlkey = Main.pointer.altkey = true;
        const auto entry = entries[mode - 1];
        (Main.*entry)();
        EXPECT_EQ(Main.view.mode, mode);
        EXPECT_FALSE(Main.pointer.shiftkey);
        EXPECT_FALSE(Main.pointer.ctrlkey);
        EXPECT_TRUE(Main.pointer.altkey);
        for (int key = 1; key <= 4; ++key) EXPECT_EQ(Main.checked(viewKeys[key - 1]), key == mode);
        EXPECT_FALSE(Main.view.nothingToErase);
    }
}

TEST_F(Views, EntryShowsAndEnablesWhatBelongsToTheView) {
    const auto visible = [](Control c) { return Main.controls[c].visible; };
    const auto enabled = [](Control c) { return Main.controls[c].enabled; };
    const struct {
        int mode;
        bool htop, insRem, smoothTop, smoothWidth;
    } rows[] = {{ViewMode::Side, true, true, true, false},
                {ViewMode::HTop, true, true, false, true},
                {ViewMode::Front, false, false, false, true},
                {ViewMode::VTop, false, false, false, true}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.mode);
        Main.setVisible(Control::FuselageVTopFrame, true);
        enter(row.mode);
        EXPECT_EQ(enabled(Control::HTopButton), row.htop);
        EXPECT_EQ(enabled(Control::InsRem), row.insRem);
        EXPECT_EQ(visible(Control::SmoothTopCommand), row.smoothTop);
        EXPECT_EQ(visible(Control::SmoothDownCommand), row.smoothTop);
        EXPECT_EQ(visible(Control::SmoothWidthCommand), row.smoothWidth);
        EXPECT_EQ(visible(Control::FuselageVTopFrame), row.mode == ViewMode::VTop)
            << "only the view from above leaves the frame as it is";
    }
}

TEST_F(Views, SideUnderTheElectronicsTabLeavesInsertRemoveAlone) {
    Main.selectTab(PanelTab::electronics);
    Main.setEnabled(Control::InsRem, false);
    Main.initSideView();
    EXPECT_FALSE(Main.controls[Control::InsRem].enabled);
    Main.setEnabled(Control::InsRem, true);
    Main.initSideView();
    EXPECT_TRUE(Main.controls[Control::InsRem].enabled);
    Main.setEnabled(Control::InsRem, false);
    Main.initHTopView();
    EXPECT_TRUE(Main.controls[Control::InsRem].enabled) << "from above it is enabled all the same";
}

// What each view draws, in order, by the number and colour of its lines: wing and stabiliser 8
// lines, the body's plan 6, its section 8, its two edges and bars 7, the fin 4, a root section 16,
// a box 4.
TEST_F(Views, EachViewDrawsItsObjectsInOrder) {
    Rudder.shift = 0;
    const auto b = black;
    const auto d = project.dimColor;
    const struct {
        int mode, tab;
        std::vector<Rgb> colours;
    } rows[] = {
        {ViewMode::VTop, PanelTab::wing,
         joined({repeated(16, b), repeated(6, d), repeated(6, b), repeated(4, d)})},
        {ViewMode::Front, PanelTab::wing,
         joined({repeated(16, b), repeated(8, d), repeated(4, b)})},
        {ViewMode::Side, PanelTab::wing, joined({repeated(7 + 4, b), repeated(16 + 16, d)})},
        {ViewMode::Side, PanelTab::electronics,
         joined({repeated(4, b), repeated(7 + 4 + 16 + 16, d)})},
        {ViewMode::HTop, PanelTab::wing, joined({repeated(7 + 4, b), repeated(8 + 8, d)})},
        {ViewMode::HTop, PanelTab::electronics,
         joined({repeated(7, d), repeated(4, b), repeated(8 + 8, d)})},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(::testing::Message() << row.mode << ", tab " << row.tab);
        Main.selectTab(row.tab);
        bench.forget();
        enter(row.mode);
        EXPECT_EQ(area.calls.front().kind, Kind::Clear);
        EXPECT_EQ(area.count(Kind::Clear), 1);
        EXPECT_EQ(drawnColours(area), row.colours);
        EXPECT_EQ(area.refreshes, 1);
    }
}

TEST_F(Views, AnEntryErasesNothingWhateverStoodThereBefore) {
    for (int tab : {PanelTab::wing, PanelTab::electronics})
        for (int mode : {1, 2, 3, 4, 3, 1}) {
            Main.selectTab(tab);
            enter(mode);
            Wings(1).pos1 += 1;
            Fuselages(1).pos(2) += 1;
            bench.forget();
            enter(mode);
            EXPECT_EQ(area.lines(white), 0) << mode;
            EXPECT_FALSE(Main.view.firstPictureRefresh) << "an entry does not touch it";
        }
    bench.forget();
    Main.views.wings(1).drawVTop(Main.canvas(), Wings(1));
    EXPECT_EQ(area.lines(white), 8) << "the next redraw does again";
}

TEST_F(Views, TheFinIsDrawnInANewlyEnteredFrontView) {
    Main.initFrontView();
    EXPECT_EQ(area.lines(black), 16 + 4);
    bench.forget();
    Main.view.firstPictureRefresh = true;
    Main.initFrontView();
    EXPECT_EQ(area.lines(black), 16 + 4) << "nothing of an older drawing is on the surface";
    bench.forget();
    Main.views.rudder.drawFront(Main.canvas(), Rudder);
    EXPECT_EQ(area.lines(black), 0) << "but not by a move over a picture just painted";
}

TEST_F(Views, AFinDraggedOverAPictureLeavesNoLinesBehind) {
    Main.initFrontView();
    Main.pictureHere().shown = true;
    const auto x = static_cast<float>(
        (Main.views.rudder.frontPoints[3].x + Main.views.rudder.frontPoints[4].x) / 2);
    const auto y = static_cast<float>(Main.views.rudder.frontPoints[4].y);
    Main.DrawArea_MouseDown(1, 0, x, y);
    ASSERT_EQ(Main.views.rudder.grip.paint, FinPart::tipEdge);
    bench.forget();
    Main.DrawArea_MouseMove(1, 0, x + 10, y);
    for (int step = 2; step <= 6; ++step) {
        Main.DrawArea_MouseMove(1, 0, x + 10.0F * static_cast<float>(step), y);
        EXPECT_TRUE(standsLikeAFreshView()) << step;
    }
}

TEST_F(Views, ADragOverAPictureLeavesWhatStandsStillStanding) {
    for (int tab : {PanelTab::wing, PanelTab::electronics})
        for (int mode : {1, 2, 3, 4}) {
            SCOPED_TRACE(std::to_string(tab) + " " + std::to_string(mode));
            Main.selectTab(tab);
            enter(mode);
            Main.pictureHere().shown = true;
            Main.DrawArea_MouseDown(1, 0, 3, 3);
            bench.forget();
            for (int step = 1; step <= 5; ++step) {
                Main.DrawArea_MouseMove(1, 0, 3, 3.0F + static_cast<float>(step));
                // The fin of the front view comes with the second move.
                if (step == 1) continue;
                EXPECT_TRUE(standsLikeAFreshView()) << step;
            }
            Main.DrawArea_MouseUp(1, 0, 3, 9);
        }
}

TEST_F(Views, AnEntryKeepsTheHoverState) {
    Main.views.wings(1).grip.selected = Main.views.stabilizer.grip.selected = true;
    Main.views.fuselages(1).grip.selected = true;
    enter(ViewMode::VTop);
    EXPECT_TRUE(Main.views.wings(1).grip.selected && Main.views.stabilizer.grip.selected &&
                Main.views.fuselages(1).grip.selected);
    EXPECT_EQ(area.lines(project.highlightColor), 0);
    EXPECT_EQ(area.lines(black), 16 + 6);
    EXPECT_EQ(area.lines(project.dimColor), 8) << "a lit current fuselage is drawn once";
    Main.views.wings(1).grip.selected = Main.views.stabilizer.grip.selected = false;
    enter(ViewMode::Front);
    EXPECT_FALSE(Main.views.wings(1).grip.selected || Main.views.stabilizer.grip.selected);
}

TEST_F(Views, SideAndHTopShowTheFirstPanelOnly) {
    enter(ViewMode::Side);
    const auto side = area.calls.size();
    enter(ViewMode::HTop);
    const auto both = area.calls.size();
    Plane::increment(nbWings);
    MainWing::addWing(project);
    bench.forget();
    enter(ViewMode::Side);
    EXPECT_EQ(area.calls.size(), side);
    enter(ViewMode::HTop);
    EXPECT_EQ(area.calls.size(), both);
}

TEST_F(Views, LockZoomKeepsTheTransformOfWhateverView) {
    Main.setChecked(Control::LockZoom, true);
    Main.view.zoom = 3;
    Main.view.xoff = 5;
    Main.view.yoff = 7;
    for (int mode = 1; mode <= 4; ++mode) {
        Wings(1).span += 100;
        enter(mode);
        EXPECT_EQ(Main.view.zoom, 3);
        EXPECT_EQ(Main.view.xoff, 5);
        EXPECT_EQ(Main.view.yoff, 7);
    }
    Main.setChecked(Control::LockZoom, false);
    enter(ViewMode::VTop);
    EXPECT_EQ(Main.view.xoff, 450);
    EXPECT_NE(Main.view.zoom, 3);
}

TEST_F(Views, ASurfaceOfAnotherSizeIsFittedInWholePixels) {
    area.resize(901, 500.5);
    enter(ViewMode::VTop);
    EXPECT_EQ(Main.view.xoff, 450.5);
    EXPECT_EQ(Main.view.zoom, 0.95 * (500 / 800.0)) << "halves to even";
}

TEST_F(Views, APictureShownHereIsPaintedFirst) {
    area.pictures["plan.bmp"] = {100, 60};
    Main.view.mode = ViewMode::Side;
    Main.pictureHere().shown = true;
    Main.pictureHere().file = "plan.bmp";
    Main.pictureHere().size = {100, 60};
    bench.forget();
    Main.refreshDrawingArea();
    ASSERT_GT(area.calls.size(), 2U);
    EXPECT_EQ(area.calls[0].kind, Kind::Clear);
    EXPECT_EQ(area.calls[1].kind, Kind::Picture);
    EXPECT_EQ(area.calls[2].kind, Kind::Line);
    EXPECT_EQ(area.lines(white), 0);
    bench.forget();
    enter(ViewMode::VTop);
    EXPECT_EQ(area.count(Kind::Picture), 0) << "another view has its own";
}

TEST_F(Views, ARefreshRendersOnlyWithItsKeyPressed) {
    Main.refreshDrawingArea();
    EXPECT_EQ(window.renders, 0);
    Main.setChecked(Control::RenderButton, true);
    Main.refreshDrawingArea();
    EXPECT_EQ(window.rebuilds, 1);
    Main.initVTopView();
    EXPECT_EQ(window.renders, 1) << "an entry alone does not touch the picture";
}

TEST_F(Views, ARedrawFitsTheModelAnew) {
    const double before = Main.view.zoom;
    Wings(1).span = 5000;
    Main.refreshDrawingArea();
    EXPECT_LT(Main.view.zoom, before);
}

TEST_F(Views, AnUntickedCurrentFuselageIsLeftOutButStillFitted) {
    ObjectList.setShown(1, false);
    const double zoom = Main.view.zoom;
    enter(ViewMode::VTop);
    EXPECT_EQ(area.lines(black), 16);
    EXPECT_EQ(Main.view.zoom, zoom);
    bench.forget();
    enter(ViewMode::Front);
    EXPECT_EQ(area.lines(project.dimColor), 0);
}

}  // namespace
}  // namespace velna
