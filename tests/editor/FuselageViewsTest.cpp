#include <gtest/gtest.h>

#include "model/Fuselage.h"
#include "support/BodyOnSurface.h"
#include "support/DrawnLines.h"
#include "support/EditorInHand.h"

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
    part.drawSide(2, 400, 30, -1, FuselageLook::bar);
    bench.forget();
    part.drawSide(2, 400, 30, -1, FuselageLook::bar);
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
    using enum FuselageLook;
    const auto h = project.highlightColor;
    const auto b = black;
    const struct {
        int selected1;
        FuselageLook which;
        std::vector<Rgb> colours;  // top line 2, bottom line 2, bars 3
    } rows[] = {
        {-1, bar, {b, b, b, b, b, b, b}},       {1, bar, {b, b, b, b, h, b, b}},
        {2, topLine, {h, h, b, b, b, h, b}},    {1, topLine, {h, b, b, b, h, b, b}},
        {3, topLine, {b, h, b, b, b, b, h}},    {2, bottomLine, {b, b, h, h, b, h, b}},
        {3, bottomLine, {b, b, b, h, b, b, h}}, {2, plusEdge, {b, b, b, b, b, h, b}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(::testing::Message() << row.selected1 << ", " << static_cast<int>(row.which));
        bench.forget();
        part.selected = false;
        part.drawSide(2, 400, 30, row.selected1, row.which);
        EXPECT_EQ(drawnColours(area), joined({repeated(7, white), row.colours}));
        EXPECT_EQ(part.selected, row.selected1 != -1);
    }
}

TEST_F(FuselageViews, AFuselageThatIsNotCurrentIsDimAndNotErasedInSide) {
    part.drawSide(2, 400, 30, 2, FuselageLook::other);
    EXPECT_EQ(drawnColours(area), repeated(7, project.dimColor));
}

TEST_F(FuselageViews, HTopStandsWhereTheTransformPutsIt) {
    body.shift = 5;
    part.drawHTop(2, 400, 30, -1, FuselageLook::bar);
    bench.forget();
    part.drawHTop(2, 400, 30, -1, FuselageLook::bar);
    const auto lines = drawnLines(area);
    ASSERT_EQ(drawnColours(area), joined({repeated(7, white), repeated(7, black)}));
    EXPECT_EQ(test::penPath(lines, 7, 2),
              (std::vector<Point2D>{{400, 60}, {800, 140}, {2000, 50}}));
    EXPECT_EQ(test::penPath(lines, 9, 2),
              (std::vector<Point2D>{{400, 20}, {800, -60}, {2000, 30}}));
    EXPECT_EQ(test::penPath(lines, 12, 1), (std::vector<Point2D>{{800, 140}, {800, -60}}));
}

TEST_F(FuselageViews, HTopLightsThePlusEdgeOnlyAndDimsOthers) {
    using enum FuselageLook;
    const auto h = project.highlightColor;
    const auto b = black;
    const struct {
        int selected1;
        FuselageLook which;
        std::vector<Rgb> colours;  // plus edge 2, minus edge 2, bars 3
    } rows[] = {
        {2, bar, {b, b, b, b, b, h, b}},           {2, plusEdge, {h, h, b, b, b, h, b}},
        {1, plusEdge, {h, b, b, b, h, b, b}},      {2, plain, {b, b, b, b, b, h, b}},
        {2, other, repeated(7, project.dimColor)},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(::testing::Message() << row.selected1 << ", " << static_cast<int>(row.which));
        bench.forget();
        part.drawHTop(2, 400, 30, row.selected1, row.which);
        EXPECT_EQ(drawnColours(area), joined({repeated(7, white), row.colours}))
            << "here a dim one is erased too";
    }
}

TEST_F(FuselageViews, OverAPictureJustPaintedNothingIsErased) {
    Main.view.firstPictureRefresh = true;
    part.drawSide(2, 400, 30, -1, FuselageLook::bar);
    part.drawHTop(2, 400, 30, -1, FuselageLook::bar);
    part.drawVTop(FuselageLook::erased);
    EXPECT_EQ(area.lines(white), 0);
    EXPECT_EQ(area.lines(black), 14);
}

TEST_F(FuselageViews, VTopGoesDownThePlusSideAndBackUpTheMinusSide) {
    part.drawVTop(FuselageLook::plain);
    EXPECT_EQ(
        test::penPath(drawnLines(area), 0, 6),
        (std::vector<Point2D>{
            {420, 30}, {500, 430}, {410, 1630}, {390, 1630}, {300, 430}, {380, 30}, {420, 30}}));
    const struct {
        FuselageLook which;
        Rgb colour;
    } rows[] = {{FuselageLook::bar, project.highlightColor},
                {FuselageLook::plain, black},
                {FuselageLook::other, project.dimColor},
                {FuselageLook::erased, white},
                {FuselageLook::plusEdge, black}};
    for (const auto& row : rows) {
        bench.forget();
        part.drawVTop(row.which);
        EXPECT_EQ(drawnColours(area), repeated(6, row.colour)) << static_cast<int>(row.which);
    }
}

TEST_F(FuselageViews, ATwinShowsItsMirrorImageInVTopAndFront) {
    body.shift = 10;
    part.computeVTopPoints(2, 400, 30);
    part.drawVTop(FuselageLook::plain);
    ASSERT_EQ(area.calls.size(), 12U);
    EXPECT_EQ(drawnLines(area)[0].x1, 440);
    EXPECT_EQ(drawnLines(area)[6].x1, 360);
    bench.forget();
    part.computeFrontPoints(2, 400, 30);
    part.drawFront(2, 400, 30);
    ASSERT_EQ(drawnColours(area), repeated(16, project.dimColor));
    for (std::size_t i = 0; i < 8; ++i)
        EXPECT_EQ(drawnLines(area)[i].x1 + drawnLines(area)[i + 8].x1, 800);
    body.shift = 0;
    part.computeFrontPoints(2, 400, 30);
    bench.forget();
    part.drawVTop(FuselageLook::plain);
    part.drawFront(2, 400, 30);
    EXPECT_EQ(area.calls.size(), 6U + 8);
}

TEST_F(FuselageViews, FrontShowsTheSelectedSectionOnly) {
    body.sel_sec = 2;
    part.computeFrontPoints(2, 400, 30);
    part.drawFront(2, 400, 30);
    const auto path = test::penPath(drawnLines(area), 0, 8);
    EXPECT_EQ(path[0], (Point2D{500, -60 * 2 + 30}));
    EXPECT_DOUBLE_EQ(path[4].x, 300);
    EXPECT_DOUBLE_EQ(path[4].y, -60 * 2 + 30);
    EXPECT_EQ(path[8], path[0]);
    for (int outOfRange : {0, 4, -1}) {
        bench.forget();
        body.sel_sec = static_cast<std::int16_t>(outOfRange);
        part.drawFront(2, 400, 30);
        EXPECT_TRUE(area.calls.empty());
    }
}

// What is selected after the outline was computed stands beside it, not at the scale of another
// view and not as another section's points.
TEST_F(FuselageViews, FrontShowsASectionSelectedSinceAtTheScaleOfTheLastOutline) {
    body.sel_sec = 1;
    part.computeFrontPoints(2, 400, 30);
    part.drawFront(2, 400, 30);
    bench.forget();
    body.sel_sec = 3;
    part.drawFront(7, 1, 1);
    const auto since = drawnLines(area);
    bench.forget();
    part.computeFrontPoints(2, 400, 30);
    part.drawFront(2, 400, 30);
    const auto fresh = drawnLines(area);
    ASSERT_EQ(since.size(), 8U);
    for (std::size_t i = 0; i < 8; ++i) {
        EXPECT_EQ(since[i].x1, fresh[i].x1) << i;
        EXPECT_EQ(since[i].y1, fresh[i].y1) << i;
    }
}

// The lines stand as they were computed, until they are computed again.
TEST_F(FuselageViews, FrontShowsTheOutlineAsItWasComputedLast) {
    body.sel_sec = 2;
    part.drawFront(2, 400, 30);
    EXPECT_TRUE(area.calls.empty()) << "before the first";
    part.computeFrontPoints(2, 400, 30);
    body.width(2) = 10;
    part.drawFront(2, 400, 30);
    EXPECT_EQ(drawnLines(area)[0].x1, 500);
    bench.forget();
    body.nb_cross = 20;
    part.drawFront(2, 400, 30);
    EXPECT_TRUE(area.calls.empty()) << "points that have not been computed";
    body.sel_sec = 4;
    body.nb_sections = 4;
    body.nb_cross = 8;
    part.drawFront(2, 400, 30);
    EXPECT_TRUE(area.calls.empty()) << "a section that there was not";
}

TEST_F(FuselageViews, AnOddNumberOfOutlinePointsLeavesOutWhatNoLoopWrites) {
    body.sel_sec = 2;
    body.nb_cross = 7;
    body.initArrays();
    part.computeFrontPoints(1, 0, 0);
    part.drawFront(1, 0, 0);
    ASSERT_EQ(area.calls.size(), 5U);
    for (const auto& call : area.calls)
        EXPECT_FALSE(call.x2 == 0 && call.y2 == 0) << "no line goes to the origin";
}

TEST_F(FuselageViews, WithoutOutlinePointsNothingIsDrawnAndNothingHit) {
    body.nb_cross = 0;
    body.sel_sec = 2;
    part.paint = 0;
    part.initval = 77;
    part.drawSide(2, 400, 30, 1, FuselageLook::bar);
    part.drawHTop(2, 400, 30, 1, FuselageLook::bar);
    part.drawVTop(FuselageLook::bar);
    part.drawFront(2, 400, 30);
    part.initMouseValSide();
    part.initMouseValHTop();
    part.initMouseValVTop();
    part.selectsSide(800, 0);
    part.selectsHTop(800, 0);
    part.selectsVTop(400, 30);
    EXPECT_TRUE(area.calls.empty());
    EXPECT_FALSE(part.selected);
    EXPECT_EQ(part.initval, 77);
    EXPECT_EQ(part.testPositionSide(800, 0), 4);
    EXPECT_EQ(part.testPositionHTop(800, 100), 4);
    EXPECT_EQ(part.testPositionVTop(400, 30), 4);
    EXPECT_EQ(body.sel_sec, 2);
}

TEST_F(FuselageViews, AnyNumberInTheModelIsDrawnOrSkipped) {
    for (double value : {0.0, -1.0, 1e308, -1e308, 5e-324}) {
        for (auto array : {&MeshSections::height, &MeshSections::width, &MeshSections::pos,
                           &MeshSections::elevation})
            for (int k = 1; k <= 3; ++k) (body.*array)(k) = value;
        body.shift = body.pos_offset = body.elevation_offset = value;
        part.drawSide(2, 400, 30, -1, FuselageLook::bar);
        part.drawHTop(2, 400, 30, -1, FuselageLook::bar);
        part.computeFrontPoints(2, 400, 30);
        part.drawFront(2, 400, 30);
        part.selectsVTop(100, 100);
        EXPECT_EQ(part.paint, 4);
    }
}

class DrawnFuselages : public test::BodyOnSurface {
protected:
    void SetUp() override {
        for (int i = 2; i <= 3; ++i) {
            Plane::increment(nbFuselages);
            Fuselage::resizeFuselages(project);
            Fuselage::addFuselage(project);
            Fuselages(i).pos(1) = 1000 * i;
        }
        ObjectList.update(Fuselages, nbFuselages);
        currentFuselage = 2;
        test::preparePress();
        for (int i = 1; i <= 3; ++i) {
            test::BodyPart(i).drawSide(2, 400, 30, -1, FuselageLook::bar);
            test::BodyPart(i).drawHTop(2, 400, 30, -1, FuselageLook::bar);
            test::BodyPart(i).computeVTopPoints(2, 400, 30);
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

TEST_F(DrawnFuselages, TheCurrentOneIsDrawnLastOnTopOfTheOthers) {
    Main.views.drawFuselagesSide(test::canvasAt(2, 400, 30), 1, FuselageLook::bar);
    EXPECT_EQ(figures(7), (std::vector<Rgb>{project.dimColor, project.dimColor, white, black}));
    const auto lines = drawnLines(area);
    EXPECT_EQ(lines[0].x1, 400);
    EXPECT_EQ(lines[7].x1, 6400) << "the third";
    EXPECT_EQ(lines[14].x1, 4400) << "then the current, which alone has the given state";
    EXPECT_EQ(area.lines(project.highlightColor), 1);
    bench.forget();
    Main.views.drawFuselagesHTop(test::canvasAt(2, 400, 30), 1, FuselageLook::plusEdge);
    EXPECT_EQ(figures(7), (std::vector<Rgb>{white, project.dimColor, white, project.dimColor, white,
                                            project.highlightColor}));
}

TEST_F(DrawnFuselages, AnUnselectedCurrentFuselageIsDrawnTwiceInVTop) {
    Main.views.drawFuselagesVTop(Main.canvas(), FuselageLook::plain);
    EXPECT_EQ(figures(6),
              (std::vector<Rgb>{project.dimColor, project.dimColor, project.dimColor, black}));
    EXPECT_EQ(drawnLines(area)[6].y1, 4030) << "in list order";
    bench.forget();
    Main.views.fuselages(2).grip.selected = true;
    Main.views.drawFuselagesVTop(Main.canvas(), FuselageLook::bar);
    EXPECT_EQ(figures(6),
              (std::vector<Rgb>{project.dimColor, project.dimColor, project.highlightColor}));
}

TEST_F(DrawnFuselages, WhatIsNotTickedIsNeitherDrawnNorMoved) {
    ObjectList.setShown(2, false);
    ObjectList.setShown(3, false);
    Main.views.drawFuselagesSide(test::canvasAt(2, 400, 30), -1, FuselageLook::bar);
    Main.views.drawFuselagesHTop(test::canvasAt(2, 400, 30), -1, FuselageLook::bar);
    Main.views.drawFuselagesVTop(Main.canvas(), FuselageLook::plain);
    EXPECT_EQ(area.lines(black), 0);
    EXPECT_EQ(area.lines(project.dimColor), 7 + 7 + 6);
    bench.forget();
    Main.views.fuselages(2).grip.paint = 0;
    Main.views.selectsFuselagesSide(Main.canvas(), Main.pointer.at(150, 150));
    Main.views.selectsFuselagesHTop(Main.canvas(), Main.pointer.at(150, 150));
    Main.views.selectsFuselagesVTop(Main.canvas(), Main.pointer.at(150, 150));
    EXPECT_EQ(area.lines(black) + area.lines(project.highlightColor), 0);
    EXPECT_EQ(Fuselages(2).shift, 0);
    test::BodyPart(2).computeFrontPoints(2, 400, 30);
    Main.views.drawFuselageFront(test::canvasAt(2, 400, 30));
    const auto stale = Main.views.fuselages(3).vtopPoints(1);
    Main.views.computeFuselagesVTop({5, 0, 0});
    EXPECT_EQ(Main.views.fuselages(3).vtopPoints(1), stale);
    EXPECT_EQ(Main.views.fuselages(1).vtopPoints(1), (Point2D{50, 0}));
}

TEST_F(DrawnFuselages, FrontShowsTheCurrentOneOnly) {
    for (int i = 1; i <= 3; ++i) test::BodyPart(i).computeFrontPoints(2, 400, 30);
    Main.views.drawFuselageFront(test::canvasAt(2, 400, 30));
    EXPECT_EQ(area.calls.size(), 8U);
}

TEST_F(DrawnFuselages, MovesDrawTheOthersDimAndAskTheCurrentOne) {
    Main.views.selectsFuselagesSide(Main.canvas(), Main.pointer.at(0, 0));
    EXPECT_EQ(figures(7), (std::vector<Rgb>{project.dimColor, project.dimColor, white, black}));
    bench.forget();
    Main.views.selectsFuselagesHTop(Main.canvas(), Main.pointer.at(0, 3000));
    EXPECT_EQ(figures(7),
              (std::vector<Rgb>{white, project.dimColor, white, black, white, project.dimColor}))
        << "in list order, with the current one in its place";
    bench.forget();
    Main.views.selectsFuselagesVTop(Main.canvas(), Main.pointer.at(0, 0));
    EXPECT_EQ(figures(6), (std::vector<Rgb>{project.dimColor, project.dimColor, black}));
    EXPECT_EQ(Main.views.fuselages(1).grip.selected_part, 0);
    EXPECT_EQ(Main.views.fuselages(2).grip.selected_part, 4);
}

}  // namespace
}  // namespace velna
