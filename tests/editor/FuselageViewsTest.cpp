#include <gtest/gtest.h>

#include "editor/Main.h"
#include "model/Fuselage.h"
#include "model/ObjectList.h"
#include "support/BodyOnSurface.h"
#include "support/DrawnLines.h"

namespace velna {
namespace {

using test::drawnColours;
using test::drawnLines;
using test::joined;
using test::repeated;

class FuselageViews : public test::BodyOnSurface {};

TEST_F(FuselageViews, SideStandsWhereTheTransformPutsIt) {
    body.pos_offset = 5;
    body.elevation_offset = -5;
    body.drawSide(2, 400, 30, -1, 0);
    bench.forget();
    body.drawSide(2, 400, 30, -1, 0);
    const auto lines = drawnLines(area);
    ASSERT_EQ(drawnColours(area), joined({repeated(7, white), repeated(7, black)}));
    for (std::size_t start : {std::size_t{0}, std::size_t{7}}) {
        EXPECT_EQ(test::penPath(lines, start, 2),
                  (std::vector<Point2D>{{410, -20}, {810, -180}, {2010, -40}}));
        EXPECT_EQ(test::penPath(lines, start + 2, 2),
                  (std::vector<Point2D>{{410, 20}, {810, 20}, {2010, -20}}));
        EXPECT_EQ(test::penPath(lines, start + 5, 1),
                  (std::vector<Point2D>{{810, 20}, {810, -180}}))
            << "bars go from the bottom to the top";
    }
}

TEST_F(FuselageViews, SideLightsTheLineOrTheBarThatItsStateNames) {
    const auto h = highlightColor;
    const auto b = black;
    const struct {
        int selected1, which;
        std::vector<Rgb> colours;  // top line 2, bottom line 2, bars 3
    } rows[] = {
        {-1, 0, {b, b, b, b, b, b, b}}, {1, 0, {b, b, b, b, h, b, b}},
        {2, 1, {h, h, b, b, b, h, b}},  {1, 1, {h, b, b, b, h, b, b}},
        {3, 1, {b, h, b, b, b, b, h}},  {2, 2, {b, b, h, h, b, h, b}},
        {3, 2, {b, b, b, h, b, b, h}},  {2, 5, {b, b, b, b, b, h, b}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(::testing::Message() << row.selected1 << ", " << row.which);
        bench.forget();
        body.selected = false;
        body.drawSide(2, 400, 30, row.selected1, row.which);
        EXPECT_EQ(drawnColours(area), joined({repeated(7, white), row.colours}));
        EXPECT_EQ(body.selected, row.selected1 != -1);
    }
}

TEST_F(FuselageViews, AFuselageThatIsNotCurrentIsDimAndNotErasedInSide) {
    body.drawSide(2, 400, 30, 2, 7);
    EXPECT_EQ(drawnColours(area), repeated(7, dimColor));
}

TEST_F(FuselageViews, HTopStandsWhereTheTransformPutsIt) {
    body.shift = 5;
    body.drawHTop(2, 400, 30, -1, 0);
    bench.forget();
    body.drawHTop(2, 400, 30, -1, 0);
    const auto lines = drawnLines(area);
    ASSERT_EQ(drawnColours(area), joined({repeated(7, white), repeated(7, black)}));
    EXPECT_EQ(test::penPath(lines, 7, 2),
              (std::vector<Point2D>{{400, 60}, {800, 140}, {2000, 50}}));
    EXPECT_EQ(test::penPath(lines, 9, 2),
              (std::vector<Point2D>{{400, 20}, {800, -60}, {2000, 30}}));
    EXPECT_EQ(test::penPath(lines, 12, 1), (std::vector<Point2D>{{800, 140}, {800, -60}}));
}

TEST_F(FuselageViews, HTopLightsThePlusEdgeOnlyAndDimsOthers) {
    const auto h = highlightColor;
    const auto b = black;
    const struct {
        int selected1, which;
        std::vector<Rgb> colours;  // plus edge 2, minus edge 2, bars 3
    } rows[] = {
        {2, 0, {b, b, b, b, b, h, b}}, {2, 5, {h, h, b, b, b, h, b}}, {1, 5, {h, b, b, b, h, b, b}},
        {2, 6, {b, b, b, b, b, h, b}}, {2, 7, repeated(7, dimColor)},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(::testing::Message() << row.selected1 << ", " << row.which);
        bench.forget();
        body.drawHTop(2, 400, 30, row.selected1, row.which);
        EXPECT_EQ(drawnColours(area), joined({repeated(7, white), row.colours}))
            << "here a dim one is erased too";
    }
}

TEST_F(FuselageViews, OverAPictureJustPaintedNothingIsErased) {
    Main.firstPictureRefresh = true;
    body.drawSide(2, 400, 30, -1, 0);
    body.drawHTop(2, 400, 30, -1, 0);
    body.drawVTop(8);
    EXPECT_EQ(area.lines(white), 0);
    EXPECT_EQ(area.lines(black), 14);
}

TEST_F(FuselageViews, VTopGoesDownThePlusSideAndBackUpTheMinusSide) {
    body.drawVTop(4);
    EXPECT_EQ(
        test::penPath(drawnLines(area), 0, 6),
        (std::vector<Point2D>{
            {420, 30}, {500, 430}, {410, 1630}, {390, 1630}, {300, 430}, {380, 30}, {420, 30}}));
    const struct {
        int which;
        Rgb colour;
    } rows[] = {{0, highlightColor}, {4, black}, {7, dimColor}, {8, white}, {5, black}};
    for (const auto& row : rows) {
        bench.forget();
        body.drawVTop(row.which);
        EXPECT_EQ(drawnColours(area), repeated(6, row.colour)) << row.which;
    }
}

TEST_F(FuselageViews, ATwinShowsItsMirrorImageInVTopAndFront) {
    body.shift = 10;
    body.computeVTopPoints(2, 400, 30);
    body.drawVTop(4);
    ASSERT_EQ(area.calls.size(), 12U);
    EXPECT_EQ(drawnLines(area)[0].x1, 440);
    EXPECT_EQ(drawnLines(area)[6].x1, 360);
    bench.forget();
    body.computeFrontPoints(2, 400, 30);
    body.drawFront(2, 400, 30);
    ASSERT_EQ(drawnColours(area), repeated(16, dimColor));
    for (std::size_t i = 0; i < 8; ++i)
        EXPECT_EQ(drawnLines(area)[i].x1 + drawnLines(area)[i + 8].x1, 800);
    body.shift = 0;
    body.computeFrontPoints(2, 400, 30);
    bench.forget();
    body.drawVTop(4);
    body.drawFront(2, 400, 30);
    EXPECT_EQ(area.calls.size(), 6U + 8);
}

TEST_F(FuselageViews, FrontShowsTheSelectedSectionOnly) {
    body.sel_sec = 2;
    body.computeFrontPoints(2, 400, 30);
    body.drawFront(2, 400, 30);
    const auto path = test::penPath(drawnLines(area), 0, 8);
    EXPECT_EQ(path[0], (Point2D{500, -60 * 2 + 30}));
    EXPECT_DOUBLE_EQ(path[4].x, 300);
    EXPECT_DOUBLE_EQ(path[4].y, -60 * 2 + 30);
    EXPECT_EQ(path[8], path[0]);
    for (int outOfRange : {0, 4, -1}) {
        bench.forget();
        body.sel_sec = static_cast<std::int16_t>(outOfRange);
        body.drawFront(2, 400, 30);
        EXPECT_TRUE(area.calls.empty());
    }
}

TEST_F(FuselageViews, AnOddNumberOfOutlinePointsLeavesOutWhatNoLoopWrites) {
    body.sel_sec = 2;
    body.nb_cross = 7;
    body.initArrays();
    body.computeFrontPoints(1, 0, 0);
    body.drawFront(1, 0, 0);
    ASSERT_EQ(area.calls.size(), 5U);
    for (const auto& call : area.calls)
        EXPECT_FALSE(call.x2 == 0 && call.y2 == 0) << "no line goes to the origin";
}

TEST_F(FuselageViews, WithoutOutlinePointsNothingIsDrawnAndNothingHit) {
    body.nb_cross = 0;
    body.sel_sec = 2;
    body.paint = 0;
    body.initval = 77;
    body.drawSide(2, 400, 30, 1, 0);
    body.drawHTop(2, 400, 30, 1, 0);
    body.drawVTop(0);
    body.drawFront(2, 400, 30);
    body.initMouseValSide();
    body.initMouseValHTop();
    body.initMouseValVTop();
    body.selectsSide(800, 0);
    body.selectsHTop(800, 0);
    body.selectsVTop(400, 30);
    EXPECT_TRUE(area.calls.empty());
    EXPECT_FALSE(body.selected);
    EXPECT_EQ(body.initval, 77);
    EXPECT_EQ(body.testPositionSide(800, 0), 4);
    EXPECT_EQ(body.testPositionHTop(800, 100), 4);
    EXPECT_EQ(body.testPositionVTop(400, 30), 4);
    EXPECT_EQ(body.sel_sec, 2);
}

TEST_F(FuselageViews, AnyNumberInTheModelIsDrawnOrSkipped) {
    for (double value : {0.0, -1.0, 1e308, -1e308, 5e-324}) {
        for (auto array : {&MeshSections::height, &MeshSections::width, &MeshSections::pos,
                           &MeshSections::elevation})
            for (int k = 1; k <= 3; ++k) (body.*array)(k) = value;
        body.shift = body.pos_offset = body.elevation_offset = value;
        body.drawSide(2, 400, 30, -1, 0);
        body.drawHTop(2, 400, 30, -1, 0);
        body.computeFrontPoints(2, 400, 30);
        body.drawFront(2, 400, 30);
        body.selectsVTop(100, 100);
        EXPECT_EQ(body.paint, 4);
    }
}

class FuselageList : public test::BodyOnSurface {
protected:
    void SetUp() override {
        for (int i = 2; i <= 3; ++i) {
            Plane::increment(nbFuselages);
            Fuselage::resizeFuselages();
            Fuselage::addFuselage();
            Fuselages(i).pos(1) = 1000 * i;
        }
        ObjectList.update();
        currentFuselage = 2;
        test::preparePress();
        for (int i = 1; i <= 3; ++i) {
            Fuselages(i).drawSide(2, 400, 30, -1, 0);
            Fuselages(i).drawHTop(2, 400, 30, -1, 0);
            Fuselages(i).computeVTopPoints(2, 400, 30);
        }
        bench.forget();
    }
    /// Which fuselages the drawn lines begin with, in order: the first point of each figure.
    std::vector<Rgb> figures(std::size_t linesEach) const {
        const auto colours = drawnColours(area);
        std::vector<Rgb> result;
        for (std::size_t i = 0; i < colours.size(); i += linesEach) result.push_back(colours[i]);
        return result;
    }
};

TEST_F(FuselageList, TheCurrentOneIsDrawnLastOnTopOfTheOthers) {
    Fuselage::drawFuselagesSide(2, 400, 30, 1, 0);
    EXPECT_EQ(figures(7), (std::vector<Rgb>{dimColor, dimColor, white, black}));
    const auto lines = drawnLines(area);
    EXPECT_EQ(lines[0].x1, 400);
    EXPECT_EQ(lines[7].x1, 6400) << "the third";
    EXPECT_EQ(lines[14].x1, 4400) << "then the current, which alone has the given state";
    EXPECT_EQ(area.lines(highlightColor), 1);
    bench.forget();
    Fuselage::drawFuselagesHTop(2, 400, 30, 1, 5);
    EXPECT_EQ(figures(7),
              (std::vector<Rgb>{white, dimColor, white, dimColor, white, highlightColor}));
}

TEST_F(FuselageList, AnUnselectedCurrentFuselageIsDrawnTwiceInVTop) {
    Fuselage::drawFuselagesVTop(4);
    EXPECT_EQ(figures(6), (std::vector<Rgb>{dimColor, dimColor, dimColor, black}));
    EXPECT_EQ(drawnLines(area)[6].y1, 4030) << "in list order";
    bench.forget();
    Fuselages(2).selected = true;
    Fuselage::drawFuselagesVTop(0);
    EXPECT_EQ(figures(6), (std::vector<Rgb>{dimColor, dimColor, highlightColor}));
}

TEST_F(FuselageList, WhatIsNotTickedIsNeitherDrawnNorMoved) {
    ObjectList.setShown(2, false);
    ObjectList.setShown(3, false);
    Fuselage::drawFuselagesSide(2, 400, 30, -1, 0);
    Fuselage::drawFuselagesHTop(2, 400, 30, -1, 0);
    Fuselage::drawFuselagesVTop(4);
    EXPECT_EQ(area.lines(black), 0);
    EXPECT_EQ(area.lines(dimColor), 7 + 7 + 6);
    bench.forget();
    Fuselages(2).paint = 0;
    Fuselage::selectsFuselagesSide(150, 150);
    Fuselage::selectsFuselagesHTop(150, 150);
    Fuselage::selectsFuselagesVTop(150, 150);
    EXPECT_EQ(area.lines(black) + area.lines(highlightColor), 0);
    EXPECT_EQ(Fuselages(2).shift, 0);
    Fuselages(2).computeFrontPoints(2, 400, 30);
    Fuselage::drawFuselageFront(2, 400, 30);
    const auto stale = Fuselages(3).vtopPoints(1);
    Fuselage::computeFuselagesVTop(5, 0, 0);
    EXPECT_EQ(Fuselages(3).vtopPoints(1), stale);
    EXPECT_EQ(Fuselages(1).vtopPoints(1), (Point2D{50, 0}));
}

TEST_F(FuselageList, FrontShowsTheCurrentOneOnly) {
    for (int i = 1; i <= 3; ++i) Fuselages(i).computeFrontPoints(2, 400, 30);
    Fuselage::drawFuselageFront(2, 400, 30);
    EXPECT_EQ(area.calls.size(), 8U);
}

TEST_F(FuselageList, MovesDrawTheOthersDimAndAskTheCurrentOne) {
    Fuselage::selectsFuselagesSide(0, 0);
    EXPECT_EQ(figures(7), (std::vector<Rgb>{dimColor, dimColor, white, black}));
    bench.forget();
    Fuselage::selectsFuselagesHTop(0, 3000);
    EXPECT_EQ(figures(7), (std::vector<Rgb>{white, dimColor, white, black, white, dimColor}))
        << "in list order, with the current one in its place";
    bench.forget();
    Fuselage::selectsFuselagesVTop(0, 0);
    EXPECT_EQ(figures(6), (std::vector<Rgb>{dimColor, dimColor, black}));
    EXPECT_EQ(Fuselages(1).selected_part, 0);
    EXPECT_EQ(Fuselages(2).selected_part, 4);
}

}  // namespace
}  // namespace velna
