#include <algorithm>
#include <array>
#include <cmath>
#include <set>

#include "output/OutputTest.h"
#include "output/Plans.h"
#include "output/SheetMarks.h"
#include "support/RecordingPrinter.h"

namespace velna::test {
namespace {

using Kind = PrinterCall::Kind;
using Sheet = std::vector<PrinterCall>;

class TapedSheets : public OutputTest {
protected:
    void SetUp() override { PrintSelect.overlap = true; }

    static std::vector<Sheet> sheets(const RecordingPrinter& printer) {
        std::vector<Sheet> result(1);
        for (const PrinterCall& call : printer.calls) {
            if (call.kind == Kind::NewPage)
                result.emplace_back();
            else if (call.kind == Kind::Line || call.kind == Kind::Text)
                result.back().push_back(call);
        }
        result.pop_back();
        return result;
    }

    static bool hasLine(const Sheet& sheet, const std::array<double, 4>& at) {
        return std::ranges::any_of(sheet, [&](const PrinterCall& call) {
            if (call.kind != Kind::Line || call.colour != project.dimColor) return false;
            for (std::size_t i = 0; i < 4; ++i)
                if (!(std::abs(call.at[i] - at[i]) < 1e-9)) return false;
            return true;
        });
    }

    /// Both arms: a mark is laid on its neighbour's in both directions.
    static bool hasCross(const Sheet& sheet, double x, double y, double arm) {
        return hasLine(sheet, {x - arm, y, x + arm, y}) && hasLine(sheet, {x, y - arm, x, y + arm});
    }

    static bool hasText(const Sheet& sheet, const std::string& text) {
        return std::ranges::any_of(sheet, [&](const PrinterCall& call) {
            return call.kind == Kind::Text && call.text == text;
        });
    }

    /// The length of the ruler: the one line that is as long as it tells.
    static bool hasRuler(const Sheet& sheet, double length) {
        return std::ranges::any_of(sheet, [&](const PrinterCall& call) {
            return call.kind == Kind::Line && call.at[1] == call.at[3] &&
                   call.colour == project.dimColor &&
                   std::abs(call.at[2] - call.at[0] - length) < 1e-9;
        });
    }
};

TEST_F(TapedSheets, OverlapByTenMillimetres) {
    RecordingPrinter printer(190, 277);
    EXPECT_EQ(printJob(PlanJob::htop, printer), Outcome());
    const auto pages = sheets(printer);
    // 180 new millimetres a sheet behind the first 190.
    ASSERT_EQ(pages.size(), 5U);
    for (std::size_t n = 0; n < pages.size(); ++n) {
        EXPECT_EQ(pages[n][0].at[0], -180.0 * static_cast<double>(n));
        EXPECT_EQ(pages[n][0].at[1], pages[0][0].at[1]) << "side by side, in one row";
    }
    // The last sheet holds the fuselage's end.
    EXPECT_LE(pages.back()[1].at[2], 190);
}

TEST_F(TapedSheets, UntickedSheetsHaveNoMarks) {
    PrintSelect.overlap = false;
    RecordingPrinter printer(190, 277);
    EXPECT_EQ(printJob(PlanJob::Side, printer), Outcome());
    EXPECT_EQ(printer.count(Kind::Text), 0);
    EXPECT_EQ(printer.pages(), 5);
}

TEST_F(TapedSheets, MarksOfNeighboursLieOnEachOther) {
    RecordingPrinter printer(190, 277);
    EXPECT_EQ(printJob(PlanJob::htop, printer), Outcome());
    for (const Sheet& sheet : sheets(printer))
        for (double share : {0.25, 0.75}) {
            // The right edge's mark is 180 from the left edge's, which is what the sheets move by.
            EXPECT_TRUE(hasCross(sheet, 5, share * 277, 3));
            EXPECT_TRUE(hasCross(sheet, 185, share * 277, 3));
            EXPECT_TRUE(hasCross(sheet, share * 190, 5, 3));
            EXPECT_TRUE(hasCross(sheet, share * 190, 272, 3));
        }
}

TEST_F(TapedSheets, MarksOfRowsLieOnEachOtherToo) {
    Fuselages(1).width(2) = 700;
    RecordingPrinter printer(190, 277);
    EXPECT_EQ(printJob(PlanJob::htop, printer), Outcome());
    const auto pages = sheets(printer);
    ASSERT_EQ(pages.size(), 15U);
    // The lower edge's mark of one row and the upper edge's of the next are the same place of the
    // plan, which both sheets show by its first line.
    for (std::size_t n = 0; n + 5 < pages.size(); ++n) {
        EXPECT_EQ(272 - pages[n][0].at[1], 5 - pages[n + 5][0].at[1]) << n;
        EXPECT_EQ(pages[n][0].at[0], pages[n + 5][0].at[0]) << n;
    }
}

TEST_F(TapedSheets, TextsAndRulerStandInsideTheOverlap) {
    RecordingPrinter printer(190, 277);
    EXPECT_EQ(printJob(PlanJob::htop, printer), Outcome());
    for (const Sheet& sheet : sheets(printer)) {
        EXPECT_TRUE(hasLine(sheet, {12, 20, 112, 20}));
        for (double end : {12.0, 112.0}) EXPECT_TRUE(hasLine(sheet, {end, 18, end, 22})) << end;
        for (const PrinterCall& call : sheet) {
            if (call.kind != Kind::Text) continue;
            EXPECT_GE(call.at[0], 10) << call.text;
            EXPECT_GE(call.at[1], 10) << call.text;
        }
    }
}

TEST_F(TapedSheets, EachTellsItsRowAndColumn) {
    RecordingPrinter printer(190, 277);
    EXPECT_EQ(printJob(PlanJob::htop, printer), Outcome());
    const auto pages = sheets(printer);
    for (std::size_t n = 0; n < pages.size(); ++n)
        EXPECT_TRUE(hasText(pages[n], "Row 1, column " + std::to_string(n + 1)));
}

TEST_F(TapedSheets, EachHasARulerToCheckThePrinterBy) {
    RecordingPrinter printer(190, 277);
    EXPECT_EQ(printJob(PlanJob::Side, printer), Outcome());
    EXPECT_EQ(printJob(PlanJob::frontSections, printer), Outcome());
    for (const Sheet& sheet : sheets(printer)) {
        EXPECT_TRUE(hasRuler(sheet, 100));
        EXPECT_TRUE(hasText(sheet, "100 mm"));
    }
}

TEST_F(TapedSheets, InchProjectsHaveAnInchRulerAndTheSameOverlap) {
    project.units = inches;
    Plane::switchAllToInches(project);
    RecordingPrinter printer(7.5, 10);
    EXPECT_EQ(printJob(PlanJob::htop, printer), Outcome());
    const auto pages = sheets(printer);
    ASSERT_GE(pages.size(), 2U);
    EXPECT_DOUBLE_EQ(pages[1][0].at[0], -(7.5 - 10 / 25.4));
    for (const Sheet& sheet : pages) {
        EXPECT_TRUE(hasRuler(sheet, 4));
        EXPECT_TRUE(hasText(sheet, "4 inches"));
    }
}

TEST_F(TapedSheets, FinBeyondTheFuselagesEndHasItsSheet) {
    RecordingPrinter plain(190, 277);
    PrintSelect.overlap = false;
    Rudder.pos1 = 900;  // its tip ends at 1080, the fuselage at 800
    EXPECT_EQ(printJob(PlanJob::Side, plain), Outcome());
    EXPECT_EQ(plain.pages(), 5);

    PrintSelect.overlap = true;
    RecordingPrinter printer(190, 277);
    EXPECT_EQ(printJob(PlanJob::Side, printer), Outcome());
    const auto pages = sheets(printer);
    EXPECT_EQ(pages.size(), 6U);
    double reach = 0;
    for (const PrinterCall& call : pages.back())
        if (call.kind == Kind::Line && call.colour == black)
            reach = std::max({reach, call.at[0], call.at[2]});
    EXPECT_DOUBLE_EQ(reach, 1080 - 5 * 180);
}

TEST_F(TapedSheets, WingBeyondTheFuselagesEndHasItsSheet) {
    Wings(1).pos1 = 1200;
    RecordingPrinter printer(190, 277);
    EXPECT_EQ(printJob(PlanJob::Side, printer), Outcome());
    EXPECT_EQ(printer.pages(), 8);  // 10 + 8 x 180 reaches the trailing edge at 1430
}

TEST_F(TapedSheets, PlanFromAboveLiesInTheMiddleOfTheSheetsHeight) {
    RecordingPrinter printer(190, 277);
    EXPECT_EQ(printJob(PlanJob::htop, printer), Outcome());
    for (const Sheet& sheet : sheets(printer)) {
        // The plus edge goes from 10 to 50 and back to 5 beside the centre line, the other
        // likewise.
        EXPECT_EQ(sheet[0].at[1], 138.5 + 10);
        EXPECT_EQ(sheet[0].at[3], 138.5 + 50);
        EXPECT_EQ(sheet[1].at[3], 138.5 + 5);
        EXPECT_EQ(sheet[2].at[1], 138.5 - 10);
        EXPECT_EQ(sheet[2].at[3], 138.5 - 50);
    }
}

TEST_F(TapedSheets, PlanFromAboveWiderThanThePaperHasRowsOnBothSides) {
    Fuselages(1).width(2) = 700;
    RecordingPrinter printer(190, 277);
    EXPECT_EQ(printJob(PlanJob::htop, printer), Outcome());
    const auto pages = sheets(printer);
    // 700 in rows of 267 new, stacked upward from the lowest line at 138.5 + 350.
    ASSERT_EQ(pages.size(), 15U);
    EXPECT_TRUE(hasText(pages[14], "Row 3, column 5"));
    for (std::size_t row = 0; row < 3; ++row) {
        const double down = 3 * 267 + 10 - 488.5 - 267.0 * static_cast<double>(row);
        EXPECT_EQ(pages[5 * row][0].at[1], 138.5 + 10 + down) << row;
        EXPECT_EQ(pages[5 * row][2].at[3], 138.5 - 350 + down) << row;
        EXPECT_EQ(pages[5 * row + 4][0].at[0], -720) << row;
    }
}

TEST_F(TapedSheets, FirstSheetLiesAsASingleOneDoes) {
    RecordingPrinter printer(190, 277);
    EXPECT_EQ(printJob(PlanJob::Side, printer), Outcome());
    RecordingPrinter plain(190, 277);
    PrintSelect.overlap = false;
    EXPECT_EQ(printJob(PlanJob::Side, plain), Outcome());
    const Sheet taped = sheets(printer).front();
    const Sheet single = sheets(plain).front();
    for (std::size_t i = 0; i < single.size(); ++i) EXPECT_EQ(taped[i].at, single[i].at);
}

TEST_F(TapedSheets, PlanHigherThanThePaperHasRows) {
    Rudder.span = 400;
    RecordingPrinter printer(190, 277);
    EXPECT_EQ(printJob(PlanJob::Side, printer), Outcome());
    const auto pages = sheets(printer);
    ASSERT_EQ(pages.size(), 10U);
    EXPECT_TRUE(hasText(pages[0], "Row 1, column 1"));
    EXPECT_TRUE(hasText(pages[5], "Row 2, column 1"));
    // The lower row is the sheet that was there before, the upper one 267 higher.
    EXPECT_EQ(pages[5][0].at[1], 257);
    EXPECT_EQ(pages[0][0].at[1], 257 + 267);
}

TEST_F(TapedSheets, NoseBeforeTheOriginIsOnTheFirstSheet) {
    Fuselages(1).pos_offset = -50;
    RecordingPrinter printer(190, 277);
    EXPECT_EQ(printJob(PlanJob::htop, printer), Outcome());
    EXPECT_EQ(sheets(printer)[0][0].at[0], 0);
}

TEST_F(TapedSheets, PaperTooSmallToOverlapIsRefused) {
    RecordingPrinter printer(10, 277);
    EXPECT_TRUE(printJob(PlanJob::htop, printer).hasFailed());
    EXPECT_EQ(printer.calls.back().kind, Kind::KillDoc);
}

TEST_F(TapedSheets, EndlessPlanIsRefused) {
    Fuselages(1).pos(3) = 1E+300;
    RecordingPrinter printer(190, 277);
    EXPECT_TRUE(printJob(PlanJob::htop, printer).hasFailed());
    EXPECT_EQ(printer.pages(), 0);
}

TEST_F(TapedSheets, FittedPlansStayAsTheyAre) {
    RecordingPrinter printer(190, 277);
    EXPECT_EQ(printJob(PlanJob::vtop, printer), Outcome());
    EXPECT_EQ(printer.pages(), 1);
    EXPECT_EQ(printer.count(Kind::Text), 0);
}

}  // namespace
}  // namespace velna::test
