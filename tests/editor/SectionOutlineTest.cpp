#include <cmath>

#include <gtest/gtest.h>

#include "model/Fuselage.h"
#include "support/DrawnLines.h"
#include "support/EditorBench.h"
#include "support/EditorInHand.h"

namespace velna {
namespace {

using test::drawnLines;

class SectionOutline : public test::EditorTest {
protected:
    void SetUp() override {
        body.sel_sec = 2;
        Main.zoomSectionSet(150, 150);
        bench.forget();
    }
    std::vector<Point2D> path() {
        bench.forget();
        Main.drawSection();
        EXPECT_EQ(sectionArea.calls.front().kind, test::SurfaceCall::Kind::Clear);
        const auto lines = drawnLines(sectionArea);
        return test::penPath(lines, 0, lines.size());
    }
    void size(double width, double height) {
        body.width(2) = width;
        body.height(2) = height;
    }

    MeshSections& body = Fuselages(1);
};

TEST_F(SectionOutline, TheLongerSideFillsNineTenths) {
    const struct {
        const char* name;
        double width, height;
        double szoom, slider;
    } rows[] = {
        {"wider", 200, 50, 150 * 0.9 / 200, 150 * 50 / 200.0},
        {"taller", 50, 200, 120 * 0.9 / 200, 120},
        {"as wide as tall goes by the height", 100, 100, 120 * 0.9 / 100, 120},
        {"a line upright", 0, 60, 120 * 0.9 / 60, 120},
        {"a line across", 60, 0, 150 * 0.9 / 60, 0},
        {"wider than a negative height", 10, -20, 150 * 0.9 / 10, 150 * -20 / 10.0},
        {"both negative, the wider", -10, -20, 150 * 0.9 / -10, 150 * -20 / -10.0},
        {"no width above a negative height", 0, -20, 120 * 0.9 / -20, 120},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        size(row.width, row.height);
        window.changes.clear();
        Main.zoomSectionSet(150, 120);
        EXPECT_DOUBLE_EQ(Main.views.fuselages(1).szoom, row.szoom);
        EXPECT_EQ(Main.controls[Control::BiasSlider].height, row.slider);
        EXPECT_EQ(window.changes, (std::vector<Control>{Control::BiasSlider}));
    }
}

TEST_F(SectionOutline, APointKeepsTheFormerScale) {
    const double before = Main.views.fuselages(1).szoom;
    const double slider = Main.controls[Control::BiasSlider].height;
    size(0, 0);
    Main.zoomSectionSet(300, 300);
    EXPECT_EQ(Main.views.fuselages(1).szoom, before);
    EXPECT_EQ(Main.controls[Control::BiasSlider].height, slider);
    EXPECT_TRUE(window.changes.empty());
    size(1e-320, 1e-321);
    Main.zoomSectionSet(300, 300);
    EXPECT_EQ(Main.views.fuselages(1).szoom, before) << "a scale beyond all numbers fails";
}

TEST_F(SectionOutline, ACircleTouchesTheTopEdge) {
    const int refreshes = sectionArea.refreshes;
    const auto points = path();
    EXPECT_EQ(sectionArea.refreshes, refreshes + 1);
    ASSERT_EQ(points.size(), 9U);
    const double r = 67.5;
    const double d = r * std::sqrt(0.5);
    const Point2D expected[] = {{75 + r, r},     {75 + d, r - d}, {75, 0},
                                {75 - d, r - d}, {75 - r, r},     {75 - d, r + d},
                                {75, 2 * r},     {75 + d, r + d}, {75 + r, r}};
    for (std::size_t i = 0; i < 9; ++i) {
        EXPECT_NEAR(points[i].x, expected[i].x, 1e-9) << i;
        EXPECT_NEAR(points[i].y, expected[i].y, 1e-5) << i;
        EXPECT_EQ(points[i].y, static_cast<double>(static_cast<float>(points[i].y)));
    }
    EXPECT_EQ(sectionArea.lines(black), 8);
}

TEST_F(SectionOutline, TheBiasSetsTheWidestLineAndEachHalfHasItsExponent) {
    body.bias_curve(2) = 0.25;
    body.curvature(2) = 2;
    body.curvature2(2) = 0.5;
    const auto points = path();
    const double widest = 135 * 0.25;
    EXPECT_NEAR(points[0].y, widest, 1e-5);
    EXPECT_NEAR(points[1].x, 75 + 67.5 * 0.5, 1e-5) << "an exponent of 2 makes a straight diagonal";
    EXPECT_NEAR(points[1].y, widest / 2, 1e-5);
    EXPECT_NEAR(points[5].y, widest + 135 * 0.75 * std::pow(0.5, 0.25), 1e-4);
    EXPECT_NEAR(points[6].y, 135, 1e-4);
}

TEST_F(SectionOutline, AnExponentNearZeroIsAlmostARectangleAndALargeOneConcave) {
    body.curvature(2) = body.curvature2(2) = 0.01;
    EXPECT_NEAR(path()[1].x, 142.5, 0.5);
    body.curvature(2) = body.curvature2(2) = 3.5;
    EXPECT_LT(path()[1].x, 75 + 67.5 / 2);
}

TEST_F(SectionOutline, ASectionWithoutWidthIsALineUpright) {
    body.width(2) = 0;
    for (const Point2D& point : path()) EXPECT_EQ(point.x, 75);
}

TEST_F(SectionOutline, TwoPointsOrNoneAreTheWidestLineThereAndBack) {
    for (int n : {2, 0, 1}) {
        body.nb_cross = static_cast<std::int16_t>(n);
        const auto points = path();
        ASSERT_EQ(points.size(), 3U);
        EXPECT_EQ(points[0].x, 142.5);
        EXPECT_EQ(points[1].x, 7.5);
        EXPECT_EQ(points[2].x, 142.5);
    }
}

TEST_F(SectionOutline, AnOddNumberOfPointsKeepsTheHalfInTheLowerLoop) {
    body.nb_cross = 7;
    const auto points = path();
    // Upper: j 1 to 3; the end of the widest line; lower: j 5.5 and 6.5; back to the start.
    ASSERT_EQ(points.size(), 7U);
    const double pi = 4 * std::atan(1.0);
    EXPECT_NEAR(points[4].x, 75 + 67.5 * std::cos(2 * pi * 4.5 / 7), 1e-9);
    EXPECT_NEAR(points[5].x, 75 + 67.5 * std::cos(2 * pi * 5.5 / 7), 1e-9);
}

TEST_F(SectionOutline, OffsetsPlayNoPart) {
    const auto before = path();
    body.shift = 5;
    body.pos_offset = 9;
    body.elevation_offset = -8;
    body.elevation(2) = 77;
    EXPECT_EQ(path(), before);
}

TEST_F(SectionOutline, WithoutASelectedSectionNothingHappens) {
    const double scale = Main.views.fuselages(1).szoom;
    for (int section : {0, -1}) {
        body.sel_sec = static_cast<std::int16_t>(section);
        bench.forget();
        Main.drawSection();
        EXPECT_TRUE(sectionArea.calls.empty());
        Main.zoomSectionSet(300, 300);
        EXPECT_EQ(Main.views.fuselages(1).szoom, scale);
    }
}

TEST_F(SectionOutline, AnyNumberIsDrawnOrSkipped) {
    for (double value : {0.0, -1.0, 1e308, -1e308}) {
        size(value, -value);
        body.bias_curve(2) = value;
        body.curvature(2) = value;
        body.curvature2(2) = -value;
        Main.zoomSectionSet(150, 150);
        EXPECT_TRUE(std::isfinite(Main.views.fuselages(1).szoom));
        EXPECT_TRUE(std::isfinite(Main.controls[Control::BiasSlider].height));
        Main.views.fuselages(1).szoom = 1e308;
        EXPECT_EQ(path().size(), 9U);
    }
}

}  // namespace
}  // namespace velna
