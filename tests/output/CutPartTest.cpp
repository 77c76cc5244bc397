#include <gtest/gtest.h>

#include "output/CutPart.h"

namespace velna::test {
namespace {

/// What a line of the largest letters needs on its side of the axis: the letters, what hangs below
/// them, and 0.8 mm before the axis and before the edge.
constexpr double room = 0.8 + 0.25 * partTextHeight + partTextHeight + 0.8;

CutPart board(double bottom, double top) {
    CutPart part;
    part.cut = {{{0, bottom}, {100, bottom}, {100, top}, {0, top}}};
    return part;
}

const std::vector<std::string> twoLines{"wing 1", "rib 3"};

TEST(Label, StandsOnBothSidesOfTheAxis) {
    CutPart part = board(-20, 20);
    label(part, twoLines, {});
    ASSERT_EQ(part.texts.size(), 2u);
    EXPECT_EQ(part.texts[0].text, "wing 1");
    EXPECT_EQ(part.texts[0].height, partTextHeight);
    EXPECT_GT(part.texts[0].at.y, 0);
    EXPECT_LT(part.texts[1].at.y + partTextHeight, 0);
}

TEST(Label, StandsAboveTheAxisWhereNothingIsBelow) {
    CutPart part = board(-1, 20);
    label(part, twoLines, {});
    ASSERT_EQ(part.texts.size(), 2u);
    EXPECT_GT(part.texts[1].at.y, 0);
    EXPECT_GT(part.texts[0].at.y, part.texts[1].at.y + partTextHeight);
}

TEST(Label, ThatJustHasRoomHasTheLargestLetters) {
    CutPart part = board(-room, room);
    label(part, twoLines, {});
    EXPECT_EQ(part.texts.at(0).height, partTextHeight);
    for (const auto& [bottom, top] : {std::pair{-room + 0.01, room}, {-room, room - 0.01}}) {
        part = board(bottom, top);
        label(part, twoLines, {});
        EXPECT_LT(part.texts.at(0).height, partTextHeight);
        EXPECT_LT(part.texts[0].at.y + part.texts[0].height, top);
        EXPECT_GT(part.texts.at(1).at.y, bottom);
    }
}

TEST(Label, OnPaperHasItsOneHeightAndStandsBelowWhereThatHasNoRoom) {
    CutPart part = board(-4, 4);
    label(part, twoLines, {millimetres, true});
    ASSERT_EQ(part.texts.size(), 2u);
    for (const PartText& text : part.texts) {
        EXPECT_EQ(text.height, partTextHeight);
        EXPECT_LT(text.at.y + text.height, -4);
    }
    EXPECT_GT(part.texts[0].at.y, part.texts[1].at.y + partTextHeight);
    EXPECT_LT(part.box().bottom, part.texts[1].at.y) << "what hangs below belongs to it";
}

TEST(Label, StandsWhereThePartIsHighest) {
    CutPart part;
    part.cut = {{{0, -10}, {100, -10}, {100, 30}, {50, 10}, {0, 10}}};
    label(part, twoLines, {});
    EXPECT_GT(part.texts.at(0).at.x, 50);
}

TEST(Label, BesideALineStandsToItsRight) {
    CutPart part = board(-20, 20);
    labelBeside(part, twoLines, {}, 0, 30);
    for (const PartText& text : part.texts) EXPECT_GT(text.at.x, 30);
    CutPart low = board(-1, 1);
    labelBeside(low, twoLines, {}, 0, 30);
    for (const PartText& text : low.texts) EXPECT_GT(text.at.x, 30);
}

TEST(Label, OfATurnedPartStandsBelowItAndBreaksBehindCommas) {
    CutPart part = board(-3, 3);
    part.texts = {{{0, 0}, partTextHeight, "wing 1, rib 3, 250 mm"}};
    const CutPart upright = turned(part);
    std::vector<std::string> lines;
    for (const PartText& text : upright.texts) {
        lines.push_back(text.text);
        EXPECT_LT(text.at.y + text.height, 0);
    }
    EXPECT_EQ(lines, (std::vector<std::string>{"wing 1,", "rib 3,", "250 mm"}));
    EXPECT_EQ(upright.cut[0][2].x, -3);
    EXPECT_EQ(upright.cut[0][2].y, 100);
}

}  // namespace
}  // namespace velna::test
