#include <gtest/gtest.h>

#include "model/Fuselage.h"
#include "support/BodyOnSurface.h"
#include "support/DrawnLines.h"
#include "support/EditorInHand.h"

namespace velna {
namespace {

using test::drawnColours;
using test::joined;
using test::repeated;
using Body = MeshSections;
using Values = Array1<double> Body::*;

// A drag of the second section 3 units to the right and 5 down, by the part and Shift.
struct SectionRow {
    const char* name;
    int part;
    bool shift;
    std::vector<std::pair<Values, double>> changes;
    int which;  // what the redraw lights; -1: no redraw
};

const SectionRow sideRows[] = {
    {"bar", 0, false, {{&Body::elevation, -5}}, 0},
    {"bar, Shift", 0, true, {{&Body::pos, 3}}, 0},
    {"top", 1, false, {{&Body::height, -5}}, 1},
    {"top, Shift", 1, true, {{&Body::height, -5}}, 1},
    {"bottom", 2, false, {{&Body::elevation, -5}, {&Body::height, 5}}, 2},
    {"bottom, Shift", 2, true, {{&Body::elevation, -5}, {&Body::height, 5}}, 2},
    {"gap", 3, false, {}, -1},
    {"gap, Shift", 3, true, {}, -1},
};

const SectionRow htopRows[] = {
    {"plus end", 5, false, {{&Body::width, 10}}, 5},
    {"plus end, Shift", 5, true, {{&Body::width, 10}}, 5},
    {"minus end", 6, false, {{&Body::width, -10}}, 5},
    {"minus end, Shift", 6, true, {{&Body::width, -10}}, 5},
    {"bar does nothing", 0, false, {}, -1},
    {"bar, Shift", 0, true, {{&Body::pos, 3}}, 0},
    {"gap", 3, false, {}, -1},
};

class FuselageHandles : public test::BodyOnSurface {
protected:
    static constexpr Values all[] = {&Body::height,    &Body::width,     &Body::pos,
                                     &Body::elevation, &Body::curvature, &Body::curvature2,
                                     &Body::bias_curve};

    std::vector<double> values() const {
        const Body& now = body;
        std::vector<double> result;
        for (Values array : all)
            for (int k = 1; k <= 3; ++k) result.push_back((now.*array)(k));
        return result;
    }

    template <class Press, class Move>
    void expectDrag(const SectionRow& row, Press press, Move move) {
        SCOPED_TRACE(row.name);
        // The second section in order lies third in storage.
        body.sectionOrder(2) = 3;
        body.sectionOrder(3) = 2;
        for (Values array : all)
            for (int k = 1; k <= 3; ++k) (body.*array)(k) = (body.*array)(k)*1.1 + 0.1;
        place();
        Main.pointer.shiftkey = row.shift;
        body.sel_sec = 2;
        part.paint = row.part;
        const auto before = values();
        press();
        move(106.0F, 110.0F);

        auto expected = before;
        for (const auto& [array, by] : row.changes)
            for (std::size_t a = 0; a < std::size(all); ++a)
                if (all[a] == array) expected[a * 3 + 2] += by;
        const auto after = values();
        for (std::size_t i = 0; i < after.size(); ++i) EXPECT_NEAR(after[i], expected[i], 1e-9);
        EXPECT_EQ(area.calls.empty(), row.which == -1);
        move(100.0F, 100.0F);
        EXPECT_EQ(values(), before) << "bit for bit";
        part.paint = FuselagePart::none;
    }
};

TEST_F(FuselageHandles, SideDragsChangeTheSelectedSectionAndComeBack) {
    for (const SectionRow& row : sideRows)
        expectDrag(
            row, [&] { part.initMouseValSide(); },
            [&](float x, float y) { part.selectsSide(x, y); });
}

TEST_F(FuselageHandles, HTopDragsChangeTheSelectedSectionAndComeBack) {
    for (const SectionRow& row : htopRows)
        expectDrag(
            row, [&] { part.initMouseValHTop(); },
            [&](float x, float y) { part.selectsHTop(x, y); });
}

TEST_F(FuselageHandles, ADragLightsWhatItsRowNames) {
    const auto h = project.highlightColor;
    const auto b = black;
    const struct {
        int part;
        std::vector<Rgb> side;
    } sides[] = {
        {0, {b, b, b, b, b, h, b}}, {1, {h, h, b, b, b, h, b}}, {2, {b, b, h, h, b, h, b}}};
    for (const auto& row : sides) {
        place();
        body.sel_sec = 2;
        part.paint = row.part;
        part.initMouseValSide();
        part.selectsSide(100, 101);
        EXPECT_EQ(drawnColours(area), joined({repeated(7, white), row.side})) << row.part;
        EXPECT_TRUE(part.selected);
    }
    for (int grabbed : {5, 6, 0}) {
        place();
        part.paint = grabbed;
        Main.pointer.shiftkey = true;
        part.initMouseValHTop();
        part.selectsHTop(101, 101);
        const auto edge = grabbed == 0 ? b : h;
        EXPECT_EQ(drawnColours(area), joined({repeated(7, white), {edge, edge, b, b, b, h, b}}))
            << grabbed;
    }
}

TEST_F(FuselageHandles, StartValuesAreTheTablesOwn) {
    body.sel_sec = 2;
    const struct {
        int part;
        bool shift;
        double initval;
    } rows[] = {{0, true, 200}, {0, false, 10}, {1, false, 100}, {2, false, 10}, {3, false, 200}};
    for (const auto& row : rows) {
        part.paint = row.part;
        Main.pointer.shiftkey = row.shift;
        part.initMouseValSide();
        EXPECT_EQ(part.initval, row.initval) << row.part;
    }
    part.paint = 2;
    part.initMouseValSide();
    EXPECT_EQ(part.initval2, 110) << "the top line that is held";
    Main.pointer.shiftkey = false;
    for (int grabbed : {5, 6}) {
        part.paint = grabbed;
        part.initMouseValHTop();
        EXPECT_EQ(part.initval, 100);
    }
    part.paint = 0;
    part.initMouseValHTop();
    EXPECT_EQ(part.initval, 200) << "also without Shift";
}

TEST_F(FuselageHandles, ABarGrabbedFromAboveMovesOnceShiftIsPressed) {
    body.sel_sec = 2;
    part.paint = 0;
    part.initMouseValHTop();
    part.selectsHTop(120, 100);
    EXPECT_EQ(body.pos(2), 200);
    EXPECT_TRUE(area.calls.empty());
    Main.pointer.shiftkey = true;
    part.selectsHTop(120, 100);
    EXPECT_EQ(body.pos(2), 210);
    Main.pointer.shiftkey = false;
    part.selectsHTop(140, 100);
    EXPECT_EQ(body.pos(2), 210) << "and stays where it is once Shift is let go";
}

TEST_F(FuselageHandles, ADragMayMakeHeightAndWidthNegative) {
    body.sel_sec = 2;
    part.paint = 1;
    part.initMouseValSide();
    part.selectsSide(100, 500);
    EXPECT_EQ(body.height(2), -100);
    part.paint = 5;
    part.initMouseValHTop();
    part.selectsHTop(100, -100);
    EXPECT_EQ(body.width(2), -100);
}

TEST_F(FuselageHandles, VTopMovesTheWholeFuselageSidewaysOrWithShiftAlong) {
    part.paint = 0;
    body.shift = 0.1;
    body.pos_offset = 0.7;
    part.initMouseValVTop();
    part.selectsVTop(106, 110);
    EXPECT_EQ(body.shift, 3.1);
    EXPECT_EQ(body.pos_offset, 0.7);
    part.selectsVTop(100, 100);
    EXPECT_EQ(body.shift, 0.1);
    Main.pointer.shiftkey = true;
    part.initMouseValVTop();
    bench.forget();
    part.selectsVTop(106, 110);
    EXPECT_EQ(body.pos_offset, 5.7);
    EXPECT_EQ(drawnColours(area), joined({repeated(12, white), repeated(12, black)}))
        << "off with the old figure and its twin, then the new in black";
    EXPECT_EQ(test::drawnLines(area)[12].y1, 2 * 5.7 + 30);
    part.selectsVTop(100, 100);
    EXPECT_EQ(body.pos_offset, 0.7);
}

TEST_F(FuselageHandles, WithNoSectionSelectedADragChangesNothing) {
    for (int section : {0, 4}) {
        body.sel_sec = static_cast<std::int16_t>(section);
        for (int grabbed : {0, 1, 2, 3}) {
            part.paint = grabbed;
            const auto before = values();
            part.initMouseValSide();
            EXPECT_EQ(part.initval, 0);
            part.selectsSide(150, 150);
            EXPECT_EQ(values(), before);
        }
    }
}

TEST_F(FuselageHandles, SideHitsTheBarThenItsEndsAndTheHighestSectionWins) {
    // The second bar stands at x 800 from y 10 up to y -190.
    const struct {
        float x, y;
        int part, section;
    } rows[] = {
        {800, -100, 0, 2},    {802.9F, -100, 0, 2}, {803, -100, 4, 1},  {800, -189, 1, 2},
        {802, -192.9F, 1, 2}, {800, -193, 4, 1},    {800, 12.9F, 2, 2}, {800, 13, 4, 1},
        {400, 0, 0, 1},       {2000, -35, 0, 3},    {2000, -32, 2, 3},
    };
    for (const auto& row : rows) {
        body.sel_sec = 1;
        EXPECT_EQ(part.testPositionSide(row.x, row.y), row.part) << row.x << " " << row.y;
        EXPECT_EQ(body.sel_sec, row.section) << row.x << " " << row.y;
    }
    body.pos(3) = 200;
    place();
    EXPECT_EQ(part.testPositionSide(800, -38), 0);
    EXPECT_EQ(body.sel_sec, 3) << "of two on one place the later";
}

TEST_F(FuselageHandles, AGapAnswersOnlyWithCtrlAndBetweenItsBars) {
    EXPECT_EQ(part.testPositionSide(600, 0), 4);
    EXPECT_EQ(body.sel_sec, 1);
    Main.pointer.ctrlkey = true;
    EXPECT_EQ(part.testPositionSide(600, 0), 3);
    EXPECT_EQ(body.sel_sec, 2) << "the section behind the gap";
    EXPECT_EQ(part.testPositionSide(1999, -100), 4)
        << "on the bar's edge and above the third section";
    EXPECT_EQ(part.testPositionSide(1996, -100), 3) << "beside the second section's height";
    EXPECT_EQ(body.sel_sec, 3);
    EXPECT_EQ(part.testPositionSide(1997, -100), 4) << "three pixels from the bar";
    EXPECT_EQ(part.testPositionSide(600, 10), 4) << "the bottom's own row is outside";
    EXPECT_EQ(part.testPositionSide(600, -190), 4);

    body.pos(2) = 3;
    place();
    for (float x = 400; x <= 406; x += 0.5F)
        EXPECT_NE(part.testPositionSide(x, -100), 3) << "a gap of six pixels has no middle";
}

TEST_F(FuselageHandles, HTopBarsReachUpToTheNegativeOfThePlusEdge) {
    // The second bar runs from y 130 to y -70; the test goes up to y -130.
    const struct {
        float x, y;
        int part, section;
    } rows[] = {
        {800, 100, 0, 2},    {800, -129, 0, 2},   {800, -130, 4, 1},
        {800, 127.5F, 5, 2}, {800, 132.9F, 5, 2}, {800, 133, 4, 1},
        {800, -70, 6, 2},    {802, -72.9F, 6, 2}, {803, 100, 4, 1},
    };
    for (const auto& row : rows) {
        body.sel_sec = 1;
        EXPECT_EQ(part.testPositionHTop(row.x, row.y), row.part) << row.x << " " << row.y;
        EXPECT_EQ(body.sel_sec, row.section) << row.x << " " << row.y;
    }
    Main.pointer.ctrlkey = true;
    EXPECT_EQ(part.testPositionHTop(600, 100), 3);
    EXPECT_EQ(body.sel_sec, 2);
    EXPECT_EQ(part.testPositionHTop(600, 130), 4);
    EXPECT_EQ(part.testPositionHTop(600, -70), 4) << "a gap does end at the minus edge";
    Main.pointer.ctrlkey = false;
    EXPECT_EQ(part.testPositionHTop(600, 100), 4);
}

TEST_F(FuselageHandles, VTopIsTakenByItsFirstSectionOnly) {
    body.sel_sec = 3;
    EXPECT_EQ(part.testPositionVTop(400, 32.9F), 0);
    EXPECT_EQ(part.testPositionVTop(400, 33), 4);
    EXPECT_EQ(part.testPositionVTop(420, 30), 4) << "strictly between its ends";
    EXPECT_EQ(part.testPositionVTop(380, 30), 4);
    EXPECT_EQ(part.testPositionVTop(400, 430), 4);
    EXPECT_EQ(body.sel_sec, 3) << "not touched";
}

TEST_F(FuselageHandles, SideHoverLightsBarsAndEndsOnly) {
    const struct {
        float x, y;
        int part;
        bool selected;
    } rows[] = {{800, -100, 0, true},
                {800, -190, 1, true},
                {800, 10, 2, true},
                {600, 0, 3, false},
                {0, 0, 4, false}};
    Main.pointer.ctrlkey = true;
    for (const auto& row : rows) {
        bench.forget();
        part.selectsSide(row.x, row.y);
        EXPECT_EQ(part.selected_part, row.part);
        EXPECT_EQ(part.selected, row.selected);
        EXPECT_EQ(area.lines(project.highlightColor) > 0, row.selected);
        EXPECT_EQ(area.calls.size(), 14U);
    }
}

TEST_F(FuselageHandles, AHoverSelectsTheSection) {
    part.selectsSide(800, -100);
    EXPECT_EQ(body.sel_sec, 2);
    part.selectsSide(0, 0);
    EXPECT_EQ(body.sel_sec, 2) << "and keeps it";
    Main.pointer.ctrlkey = true;
    part.selectsSide(1500, -30);
    EXPECT_EQ(body.sel_sec, 3) << "a gap with Ctrl does too";
}

TEST_F(FuselageHandles, HTopHoverDrawsTwiceWhenItsHighlightGoes) {
    part.selectsHTop(800, 130);
    EXPECT_EQ(part.selected_part, 5);
    EXPECT_TRUE(part.selected);
    EXPECT_EQ(area.lines(project.highlightColor), 3);
    bench.forget();
    part.selectsHTop(800, -70);
    EXPECT_EQ(part.selected_part, 6);
    EXPECT_EQ(area.lines(project.highlightColor), 3);
    bench.forget();
    part.selectsHTop(0, 3000);
    EXPECT_EQ(area.calls.size(), 28U);
    EXPECT_FALSE(part.selected);
    bench.forget();
    part.selectsHTop(0, 3001);
    EXPECT_EQ(area.calls.size(), 14U);
    EXPECT_EQ(area.lines(project.highlightColor), 0);
}

TEST_F(FuselageHandles, AHoverOverAGapFromAboveLeavesThePicture) {
    part.selectsHTop(800, 130);
    bench.forget();
    Main.pointer.ctrlkey = true;
    part.selectsHTop(600, 0);
    EXPECT_EQ(part.selected_part, 3);
    EXPECT_TRUE(part.selected);
    EXPECT_TRUE(area.calls.empty());
}

TEST_F(FuselageHandles, VTopHoverLightsAndUnlightsWithoutErasing) {
    part.selectsVTop(400, 30);
    EXPECT_TRUE(part.selected);
    EXPECT_EQ(drawnColours(area), repeated(6, project.highlightColor));
    bench.forget();
    part.selectsVTop(0, 0);
    EXPECT_FALSE(part.selected);
    EXPECT_EQ(drawnColours(area), repeated(6, black));
}

}  // namespace
}  // namespace velna
