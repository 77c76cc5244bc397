// A printer that is off its scale is told longer or shorter lines.

#include "qt/PaperFile.h"

namespace velna {
namespace {

TEST_F(Paper, CorrectedPrinterIsToldLongerLines) {
    auto paper = surface();
    paper->setCorrection({1.02, 0.99});
    paper->setScaleMode(6);
    // Less of the plan has room where lines come out longer.
    EXPECT_NEAR(paper->ScaleWidth(), 186 / 1.02, 1e-9);
    EXPECT_NEAR(paper->ScaleHeight(), 269 / 0.99, 1e-9);
    paper->StartDoc("side", nullptr);
    paper->Line(20, 30, 120, 30, black);
    paper->Line(20, 30, 20, 130, black);
    paper->Line(-50, 60, 500, 60, black);
    paper->Text(50, 50, "100 mm");
    ASSERT_EQ(paper->EndDoc(), Outcome());
    const auto lines = linesOf(job("side"), 1);
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_NEAR(lines[0].length(), 102, 0.01);
    EXPECT_NEAR(lines[1].length(), 99, 0.01);
    EXPECT_NEAR(lines[2].length(), 186, 0.01) << "to the edges of the printable area";
    EXPECT_NEAR(lines[0].x1, 10 + 20 * 1.02, 0.2);
}

TEST_F(Paper, CorrectionOfOneIsNone) {
    auto plain = surface();
    auto corrected = surface();
    corrected->setCorrection({1, 1});
    EXPECT_EQ(corrected->ScaleWidth(), plain->ScaleWidth());
    for (QtPrinterSurface* paper : {plain.get(), corrected.get()}) {
        paper->StartDoc(paper == plain.get() ? "side" : "front", nullptr);
        paper->Line(0.123, 7, 99.987, 123.456, black);
        ASSERT_EQ(paper->EndDoc(), Outcome());
    }
    const auto one = linesOf(job("side"), 1), other = linesOf(job("front"), 1);
    ASSERT_EQ(one.size(), 1U);
    ASSERT_EQ(other.size(), 1U);
    EXPECT_EQ(one[0].x2, other[0].x2);
    EXPECT_EQ(one[0].y2, other[0].y2);
}

}  // namespace
}  // namespace velna
