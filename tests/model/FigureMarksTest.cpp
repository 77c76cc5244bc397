#include <algorithm>
#include <vector>

#include "model/FigureMarks.h"
#include "support/FreshModel.h"

namespace velna {
namespace {

class FigureMarksTest : public FreshModel {
protected:
    static std::vector<MarkLine> marks(MarkView view, const Transform& at = {2, 100, 50}) {
        return figureMarks(project, figuresOf(project), view, at, 5);
    }

    /// The middle of all lines of a kind.
    static Point2D middle(const std::vector<MarkLine>& lines, bool range) {
        Point2D least{1e300, 1e300};
        Point2D most{-1e300, -1e300};
        for (const MarkLine& line : lines) {
            if (line.range != range) continue;
            for (const Point2D& end : {line.from, line.to}) {
                least = {std::min(least.x, end.x), std::min(least.y, end.y)};
                most = {std::max(most.x, end.x), std::max(most.y, end.y)};
            }
        }
        return {(least.x + most.x) / 2, (least.y + most.y) / 2};
    }
};

TEST_F(FigureMarksTest, LieOnTheMiddlePlaneAtTheirX) {
    const Figures figures = figuresOf(project);
    const double quarter = *figures.wing.quarterX;
    const double range = (*figures.balance.margin15X + *figures.balance.margin5X) / 2;
    const auto up = marks(MarkView::NoseUp);
    EXPECT_DOUBLE_EQ(middle(up, false).x, 100);
    EXPECT_DOUBLE_EQ(middle(up, false).y, quarter * 2 + 50);
    EXPECT_DOUBLE_EQ(middle(up, true).x, 100);
    EXPECT_DOUBLE_EQ(middle(up, true).y, range * 2 + 50);
    const auto left = marks(MarkView::NoseLeft);
    EXPECT_DOUBLE_EQ(middle(left, false).x, quarter * 2 + 100);
    EXPECT_DOUBLE_EQ(middle(left, false).y, 50);
    Wings(1).elevation1 = 30;
    const auto side = marks(MarkView::Side);
    EXPECT_DOUBLE_EQ(middle(side, false).y, 50 - 60);
    EXPECT_DOUBLE_EQ(middle(side, true).x, range * 2 + 100);
}

TEST_F(FigureMarksTest, AreInTheProjectsUnit) {
    const auto before = marks(MarkView::NoseUp, {1, 0, 0});
    Plane::switchAllToInches(project);
    project.units = inches;
    const auto after = marks(MarkView::NoseUp, {25.4, 0, 0});
    ASSERT_EQ(after.size(), before.size());
    for (std::size_t n = 0; n < after.size(); ++n)
        EXPECT_NEAR(after[n].from.y, before[n].from.y, 1e-9);
}

TEST_F(FigureMarksTest, WhatIsNotKnownHasNoMark) {
    Stabilizer.pos1 = -500;
    const auto quarterOnly = marks(MarkView::NoseUp);
    EXPECT_EQ(quarterOnly.size(), 4U);
    Wings(1).span = 0;
    EXPECT_TRUE(marks(MarkView::NoseUp).empty());
    Wings(1).span = 700;
    EXPECT_TRUE(marks(MarkView::NoseUp, {1e308, 0, 0}).empty());
}

}  // namespace
}  // namespace velna
