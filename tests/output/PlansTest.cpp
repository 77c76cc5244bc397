#include <cmath>

#include "output/FuselagePlans.h"
#include "output/OutputTest.h"
#include "output/Plans.h"
#include "output/TailPlans.h"
#include "output/WingPlans.h"
#include "support/RecordingPrinter.h"

namespace velna::test {
namespace {

using Kind = PrinterCall::Kind;

class PlansTest : public OutputTest {
protected:
    static void addFuselage() {
        ++nbFuselages;
        Fuselage::resizeFuselages(project);
        Fuselage::addFuselage(project);
        ObjectList.update(Fuselages, nbFuselages);
    }

    /// The lines of the `n`th page, from 1.
    std::vector<PrinterCall> page(int n) const {
        std::vector<PrinterCall> lines;
        int current = 1;
        for (const PrinterCall& call : printer.calls) {
            if (call.kind == Kind::NewPage) ++current;
            if (call.kind == Kind::Line && current == n) lines.push_back(call);
        }
        return lines;
    }

    RecordingPrinter printer{190, 277};
};

TEST_F(PlansTest, LengthDecidesTheSheets) {
    EXPECT_EQ(printJob(PlanJob::Side, printer), Outcome());
    EXPECT_EQ(printer.pages(), 5);
}

TEST_F(PlansTest, ExactMultipleOfThePaperHasALastSheetWithoutTheFuselage) {
    Fuselages(1).pos(3) = 760;
    EXPECT_EQ(printJob(PlanJob::htop, printer), Outcome());
    EXPECT_EQ(printer.pages(), 5);
    for (const PrinterCall& line : page(5)) EXPECT_LE(line.at[2], 0);
}

TEST_F(PlansTest, SheetsAreTilesOfTheirWidth) {
    EXPECT_EQ(printJob(PlanJob::htop, printer), Outcome());
    for (int n = 1; n <= 5; ++n) EXPECT_EQ(page(n)[0].at[0], -190.0 * (n - 1));
}

TEST_F(PlansTest, SideIsTrueToScale) {
    EXPECT_EQ(printJob(PlanJob::Side, printer), Outcome());
    // The bar of the second section is 100 high and stands 200 from the first.
    const auto bars = page(1);
    EXPECT_EQ(bars[5].at[0] - bars[4].at[0], 200);
    EXPECT_EQ(bars[5].at[1] - bars[5].at[3], 100);
    EXPECT_EQ(bars[5].colour, black);
}

TEST_F(PlansTest, InchProjectPrintsInInches) {
    project.units = inches;
    Plane::switchAllToInches(project);
    PrintSelect.Side = true;
    RecordingPrinter inchPaper(7.5, 10);
    EXPECT_EQ(printPlans(inchPaper), Outcome());
    EXPECT_EQ(inchPaper.scaleMode, 5);
    EXPECT_EQ(inchPaper.pages(), 5);
    double height = 0;
    for (const PrinterCall& call : inchPaper.calls)
        if (call.kind == Kind::Line) height = std::max(height, call.at[1] - call.at[3]);
    EXPECT_DOUBLE_EQ(height, 150 / 25.4);  // the fin
}

TEST_F(PlansTest, MillimetreProjectPrintsInMillimetres) {
    PrintSelect.htop = true;
    EXPECT_EQ(printPlans(printer), Outcome());
    EXPECT_EQ(printer.scaleMode, 6);
}

TEST_F(PlansTest, NothingTickedPrintsNothing) {
    EXPECT_EQ(printPlans(printer), Outcome());
    EXPECT_TRUE(printer.calls.empty());
    EXPECT_TRUE(Plans::tickedNames(PrintSelect).empty());
}

TEST_F(PlansTest, JobsRunInTheirOrderEachByItself) {
    PrintSelect.Side = PrintSelect.htop = PrintSelect.frontSections = true;
    PrintSelect.vtop = PrintSelect.front = true;
    EXPECT_EQ(printPlans(printer), Outcome());
    const std::vector<std::string> order{"side", "sections", "vtop", "front", "htop"};
    EXPECT_EQ(printer.jobs(), order);
    EXPECT_EQ(Plans::tickedNames(PrintSelect), order);
    EXPECT_EQ(printer.count(Kind::EndDoc), 5);
    EXPECT_EQ(printer.calls.back().kind, Kind::EndDoc);
}

TEST_F(PlansTest, FrontEndsAtTheLastFuselage) {
    addFuselage();
    addFuselage();
    currentFuselage = 1;
    PrintSelect.front = true;
    EXPECT_EQ(printPlans(printer), Outcome());
    EXPECT_EQ(currentFuselage, 3);
}

TEST_F(PlansTest, EachSectionHasItsSheetWithTheCrossHair) {
    EXPECT_EQ(printJob(PlanJob::frontSections, printer), Outcome());
    EXPECT_EQ(printer.pages(), 3);
    for (int n = 1; n <= 3; ++n) {
        const auto lines = page(n);
        ASSERT_EQ(lines.size(), 2U + 8);
        EXPECT_EQ(lines[0].at, (std::array<double, 4>{95, 0, 95, 277}));
        EXPECT_EQ(lines[1].at, (std::array<double, 4>{0, 138.5, 190, 138.5}));
        EXPECT_EQ(lines[0].colour, black);
        for (std::size_t i = 2; i < lines.size(); ++i) EXPECT_EQ(lines[i].colour, project.dimColor);
    }
}

TEST_F(PlansTest, FuselageWithoutAShapeHasSheetsWithTheCrossHairAlone) {
    Fuselages(1).nb_cross = 0;
    EXPECT_EQ(printJob(PlanJob::frontSections, printer), Outcome());
    EXPECT_EQ(printer.pages(), 3);
    EXPECT_EQ(printer.lines(), 6);
}

TEST_F(PlansTest, SectionsArePrintedOneByOne) {
    SectionPlans(Fuselages(1), {1, 95, 138.5}, project.dimColor).print(printer, 2);
    EXPECT_EQ(printer.lines(), 8);
    Fuselages(1).nb_cross = 0;
    SectionPlans(Fuselages(1), {1, 95, 138.5}, project.dimColor).print(printer, 2);
    EXPECT_EQ(printer.lines(), 8);
}

TEST_F(PlansTest, TopLineTakesTheOffsetAsASectionNumber) {
    Fuselages(1).elevation_offset = 1.4;
    printSide(printer, Fuselages(1), {});
    // Section 1 takes the elevation of section 2, section 2 that of section 3.
    EXPECT_EQ(printer.calls[0].at[1], -(10 + 20));
    EXPECT_EQ(printer.calls[0].at[3], -(30 + 100));
    // Section 3 has none behind it: the offset counts as what it is.
    EXPECT_EQ(printer.calls[1].at[3], -(30 + 10 + 1.4));
}

TEST_F(PlansTest, TopLineOffsetIsRoundedHalfToEven) {
    Fuselages(1).elevation_offset = 0.5;
    printSide(printer, Fuselages(1), {});
    // 1.5 is 2, 2.5 is 2, 3.5 is none.
    EXPECT_EQ(printer.calls[0].at[1], -(10 + 20));
    EXPECT_EQ(printer.calls[0].at[3], -(10 + 100));
    EXPECT_EQ(printer.calls[1].at[3], -(30 + 10 + 0.5));
}

TEST_F(PlansTest, TopLineOffsetThatLeadsToSectionZeroTakesTheEntryThatHoldsNothing) {
    Fuselages(1).elevation_offset = -1;
    printSide(printer, Fuselages(1), {});
    // The arrays begin at 0, and nothing has been raised there.
    EXPECT_EQ(printer.calls[0].at[1], -20);
    EXPECT_EQ(printer.calls[0].at[3], -(10 + 100)) << "section 2 takes the elevation of section 1";
    Fuselages(1).elevation_offset = -2;
    printer.calls.clear();
    printSide(printer, Fuselages(1), {});
    EXPECT_EQ(printer.calls[0].at[1], -(10 + 20 - 2)) << "there is no entry before it";
    EXPECT_EQ(printer.calls[0].at[3], -100);
}

TEST_F(PlansTest, HugeOffsetsStayInsideTheArrays) {
    for (double offset : {-1E+300, -50.0, 1E+300}) {
        Fuselages(1).elevation_offset = offset;
        printer.calls.clear();
        printSide(printer, Fuselages(1), {});
        EXPECT_EQ(printer.calls[0].at[1], -(10 + 20 + offset));
    }
}

TEST_F(PlansTest, FinFromAboveIsMirroredByTheHeightOfItsRoot) {
    printVTop(printer, Rudder, {1, 100, 0});
    EXPECT_EQ(printer.lines(), 8);
    EXPECT_EQ(printer.calls[0].at[0] + printer.calls[4].at[0], 200);
    Rudder.shift = 0;
    printVTop(printer, Rudder, {1, 100, 0});
    EXPECT_EQ(printer.lines(), 12);
}

TEST_F(PlansTest, WingsFromTheFrontEachHaveACentreLine) {
    nbWings = 2;
    MainWing::addWing(project);
    for (int i = 1; i <= nbWings; ++i) printFront(printer, Wings(i), {1, 95, 60}, project.dimColor);
    ASSERT_EQ(printer.lines(), 2 * 9);
    for (std::size_t at : {8U, 17U}) {
        EXPECT_EQ(printer.calls[at].at, (std::array<double, 4>{95, 0, 95, 120}));
        EXPECT_EQ(printer.calls[at].colour, project.dimColor);
    }
}

TEST_F(PlansTest, FittedPlansTakeTheirShapeFromTheDrawingSurface) {
    RecordingPrinter wide(190, 277);
    EXPECT_EQ(printJob(PlanJob::vtop, wide, {450, 500}), Outcome());
    EXPECT_EQ(printJob(PlanJob::vtop, {printer}), Outcome());
    // Fitted by the height of 900 x 500, by the width of 450 x 500.
    const double onScreen = 0.95 * 500 / 800 * 190 / 900;
    const double narrow = 0.95 * 450 / 1400 * 190 / 450;
    const auto reach = [](const RecordingPrinter& paper) {
        double most = 0;
        for (const PrinterCall& call : paper.calls)
            if (call.kind == Kind::Line) most = std::max(most, call.at[3]);
        return most;
    };
    EXPECT_NEAR(reach(printer), 800 * onScreen, 1e-9);
    EXPECT_NEAR(reach(wide), 800 * narrow, 1e-9);
}

TEST_F(PlansTest, FuselageOfNoLengthHasOneSheet) {
    for (int i = 1; i <= 3; ++i) Fuselages(1).pos(i) = 0;
    EXPECT_EQ(printJob(PlanJob::htop, printer), Outcome());
    EXPECT_EQ(printer.pages(), 1);
}

TEST_F(PlansTest, PlanOfNoSheetsIsRefusedWithAReason) {
    for (int i = 1; i <= 3; ++i) Fuselages(1).pos(i) = -400.0 * i;
    for (PlanJob job : {PlanJob::Side, PlanJob::htop}) {
        printer.calls.clear();
        EXPECT_NE(printJob(job, printer).reason().find("before position 0"), std::string::npos);
        EXPECT_EQ(printer.pages(), 0);
        EXPECT_EQ(printer.calls.back().kind, Kind::KillDoc) << "an empty file would be left";
    }
    Fuselages(1).nb_sections = 0;
    EXPECT_NE(printJob(PlanJob::frontSections, printer).reason().find("no sections"),
              std::string::npos);
    EXPECT_EQ(printer.calls.back().kind, Kind::KillDoc);
}

TEST_F(PlansTest, PlanOfNoSheetsEndsTheJobsBehindItAsAFailureDoes) {
    Fuselages(1).pos_offset = -5000;
    PrintSelect.frontSections = PrintSelect.htop = PrintSelect.Side = true;
    EXPECT_TRUE(printPlans(printer).hasFailed());
    EXPECT_EQ(printer.jobs(), std::vector<std::string>{"side"});
}

TEST_F(PlansTest, PaperSmallerThanItsMarginsIsRefused) {
    for (double width : {0.0, -10.0}) {
        RecordingPrinter none(width, 277);
        EXPECT_TRUE(printJob(PlanJob::Side, none).hasFailed());
        EXPECT_TRUE(none.calls.empty());
    }
}

TEST_F(PlansTest, FuselageBeyondAllPaperIsRefused) {
    Fuselages(1).pos(3) = 1E+300;
    PrintSelect.Side = PrintSelect.htop = true;
    EXPECT_TRUE(printPlans(printer).hasFailed());
    EXPECT_EQ(printer.jobs(), std::vector<std::string>{"side"});
    EXPECT_EQ(printer.calls.back().kind, Kind::KillDoc);
}

TEST_F(PlansTest, ThousandSheetsAreWatchedAndCancelled) {
    Fuselages(1).pos(3) = 190 * 1000.5;
    ScriptedProgress watcher;
    progress = &watcher;
    EXPECT_EQ(printJob(PlanJob::htop, printer), Outcome());
    EXPECT_EQ(printer.pages(), 1001);
    EXPECT_EQ(watcher.questions, 1001);
    EXPECT_EQ(watcher.lastDone, 1001);
    EXPECT_EQ(watcher.lastTotal, 1001);

    ScriptedProgress cancels;
    cancels.cancelAt = 7;
    progress = &cancels;
    printer.calls.clear();
    EXPECT_EQ(printJob(PlanJob::htop, printer), Outcome::cancelled());
    EXPECT_EQ(printer.pages(), 7);
    EXPECT_EQ(printer.calls.back().kind, Kind::KillDoc);
    EXPECT_EQ(printer.count(Kind::EndDoc), 0);
}

TEST_F(PlansTest, TheTopPlanIsWatchedFuselageByFuselage) {
    for (int n = 1; n < 4; ++n) addFuselage();
    for (int n = 1; n <= 4; ++n) {
        Fuselages(n).nb_sections = 100;
        Fuselages(n).initArrays();
    }
    ScriptedProgress watcher;
    progress = &watcher;
    EXPECT_EQ(printJob(PlanJob::vtop, printer), Outcome());
    EXPECT_EQ(watcher.questions, 4);
    EXPECT_EQ(watcher.lastDone, 400);
    EXPECT_EQ(watcher.lastTotal, 400);

    ScriptedProgress cancels;
    cancels.cancelAt = 2;
    progress = &cancels;
    printer.calls.clear();
    EXPECT_EQ(printJob(PlanJob::vtop, printer), Outcome::cancelled());
    EXPECT_EQ(cancels.questions, 2);
    EXPECT_EQ(printer.calls.back().kind, Kind::KillDoc);
}

TEST_F(PlansTest, CancelEndsTheJobsBehindItToo) {
    ScriptedProgress cancels;
    cancels.cancelAt = 2;
    progress = &cancels;
    PrintSelect.Side = PrintSelect.htop = true;
    EXPECT_EQ(printPlans(printer), Outcome::cancelled());
    EXPECT_EQ(printer.jobs(), std::vector<std::string>{"side"});
}

TEST_F(PlansTest, VanishedPrinterEndsTheCommandWithItsReason) {
    printer.failure = "The printer is gone";
    PrintSelect.Side = PrintSelect.front = true;
    EXPECT_EQ(printPlans(printer).reason(), "The printer is gone");
    EXPECT_EQ(printer.jobs(), std::vector<std::string>{"side"});
}

TEST_F(PlansTest, PreviewLeavesTheProjectAsItIs) {
    addFuselage();
    currentFuselage = 1;
    const Project before = project;
    for (PlanJob job : Plans::allJobs)
        EXPECT_EQ(Plans::previewJob(project, PrintSelect, job, {printer}), Outcome());
    EXPECT_EQ(printer.jobs().size(), Plans::allJobs.size());
    EXPECT_EQ(project, before);
}

TEST_F(PlansTest, PreviewOfAJobPrintsWhatTheJobPrints) {
    RecordingPrinter real(190, 277);
    EXPECT_EQ(Plans::previewJob(project, PrintSelect, PlanJob::vtop, {printer}), Outcome());
    EXPECT_EQ(printJob(PlanJob::vtop, real), Outcome());
    ASSERT_EQ(printer.calls.size(), real.calls.size());
    for (std::size_t i = 0; i < real.calls.size(); ++i)
        EXPECT_EQ(printer.calls[i].at, real.calls[i].at);
}

}  // namespace
}  // namespace velna::test
