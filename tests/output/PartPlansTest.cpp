#include <algorithm>
#include <cmath>
#include <limits>

#include "output/OutputTest.h"
#include "output/PartPlans.h"
#include "support/RecordingPrinter.h"

namespace velna::test {
namespace {

using Kind = PrinterCall::Kind;

class PartPlans : public OutputTest {
protected:
    int texts(const std::string& text) const {
        return static_cast<int>(std::ranges::count_if(printer.calls, [&](const PrinterCall& call) {
            return call.kind == Kind::Text && call.text == text;
        }));
    }
    bool hasText(const std::string& text) const { return texts(text) > 0; }

    static double length(const PrinterCall& call) {
        return std::hypot(call.at[2] - call.at[0], call.at[3] - call.at[1]);
    }
    /// How many lines of this colour are that long.
    int linesOf(double wanted, Rgb colour) const {
        return static_cast<int>(std::ranges::count_if(printer.calls, [&](const PrinterCall& call) {
            return call.kind == Kind::Line && call.colour == colour &&
                   std::abs(length(call) - wanted) < 1e-9;
        }));
    }
    /// The part of the paper that black lines and texts reach.
    PartBox reach() const {
        PartBox box{1e9, 1e9, -1e9, -1e9};
        for (const PrinterCall& call : printer.calls) {
            if (call.kind != Kind::Line || call.colour != black) continue;
            box.reach({call.at[0], call.at[1]});
            box.reach({call.at[2], call.at[3]});
        }
        return box;
    }
    /// What is ticked, with a list for the words.
    Outcome print() {
        return Plans::printPlans(project, PrintSelect, {printer, {}, progress, &words});
    }

    std::vector<std::string> words;
    RecordingPrinter printer{190, 277};
};

TEST_F(PartPlans, NewJobsRunBehindTheOthers) {
    for (bool PrintSelectRecord::*box :
         {&PrintSelectRecord::Side, &PrintSelectRecord::htop, &PrintSelectRecord::frontSections,
          &PrintSelectRecord::vtop, &PrintSelectRecord::front, &PrintSelectRecord::wing,
          &PrintSelectRecord::ribs})
        PrintSelect.*box = true;
    const std::vector<std::string> order{"side", "sections", "vtop", "front",
                                         "htop", "wing",     "ribs"};
    EXPECT_EQ(Plans::tickedNames(PrintSelect), order);
    RecordingPrinter paper(190, 277);
    EXPECT_EQ(Plans::printPlans(project, PrintSelect, {paper, {800, 600}, nullptr}), Outcome());
    EXPECT_EQ(paper.jobs(), order);
}

TEST_F(PartPlans, RibsLieOnTheSheetsAtTrueScale) {
    PrintSelect.wishes.stations.count = 4;
    EXPECT_EQ(printJob(PlanJob::ribs, printer), Outcome());
    for (const double chord : {230.0, 150.0, 130.0, 80.0})
        EXPECT_EQ(linesOf(chord, project.dimColor), 1) << chord;
    for (const char* name : {"wing 1, rib 1", "wing 1, rib 4"}) EXPECT_EQ(texts(name), 1) << name;
    // Where a rib is turned its text is broken.
    EXPECT_EQ(texts("stabilizer, rib 2") + texts("rib 2"), 1);
    EXPECT_TRUE(hasText("at 700.00 mm, chord 150.00 mm") ||
                (hasText("at 700.00 mm,") && hasText("chord 150.00 mm")));
    EXPECT_GE(reach().left, 0);
    EXPECT_LE(reach().right, 190);
    EXPECT_GE(reach().bottom, 0);
    EXPECT_LE(reach().top, 277);
    EXPECT_LT(printer.pages(), 5);
}

TEST_F(PartPlans, RibTooWideForTheSheetIsTurned) {
    PrintSelect.wishes.stations.count = 2;
    EXPECT_EQ(printJob(PlanJob::ribs, printer), Outcome());
    EXPECT_TRUE(std::ranges::any_of(printer.calls, [](const PrinterCall& call) {
        return call.kind == Kind::Line && call.colour == project.dimColor &&
               call.at[0] == call.at[2] && std::abs(length(call) - 230) < 1e-9;
    })) << "the chord line of the root's rib";
    EXPECT_EQ(printer.pages(), 1);
}

TEST_F(PartPlans, PartsThatJustHaveRoomShareASheet) {
    for (const auto& [width, height] : {std::pair{48.0, 50.0}, {100.0, 23.0}}) {
        CutPart part;
        part.cut = {{{0, 0}, {width, 0}, {width, height}, {0, height}}};
        part.turns = false;
        // A millimetre is left free at each edge, and four lie between the parts.
        EXPECT_EQ(PartSheets({part, part}, project, {102, 52}, false).count(), 1);
        EXPECT_GT(PartSheets({part, part}, project, {102, 51.5}, false).count(), 1);
        EXPECT_GT(PartSheets({part, part}, project, {101.5, 52}, false).count(), 1);
    }
}

TEST_F(PartPlans, RibLargerThanASheetIsCutIntoTiles) {
    Wings(1).length1 = 600;
    PrintSelect.wishes.stations.count = 2;
    EXPECT_EQ(printJob(PlanJob::ribs, printer), Outcome());
    // The small ribs on one sheet, the large one on four.
    EXPECT_EQ(printer.pages(), 1 + 4);
    EXPECT_EQ(linesOf(600, project.dimColor), 4);
    PrintSelect.overlap = true;
    printer.calls.clear();
    EXPECT_EQ(print(), Outcome());
    EXPECT_EQ(printer.pages(), 0) << "nothing is ticked";
    EXPECT_EQ(printJob(PlanJob::ribs, printer), Outcome());
    EXPECT_EQ(printer.pages(), 1 + 4);
    EXPECT_TRUE(hasText("Row 1, column 4"));
    EXPECT_EQ(texts("100 mm"), 5);
}

TEST_F(PartPlans, ATurnedRibsTextsAreBrokenToItsWidth) {
    CutPart rib;
    rib.cut.push_back({{0, -10}, {240, -10}, {240, 20}, {0, 20}});
    rib.texts = {{{20, 5}, partTextHeight, "wing 1, rib 1"},
                 {{20, -5}, partTextHeight, "at 0.00 mm, chord 240.00 mm"}};
    const CutPart upright = turned(rib);
    std::vector<std::string> lines;
    for (const PartText& text : upright.texts) lines.push_back(text.text);
    EXPECT_EQ(lines, (std::vector<std::string>{"wing 1, rib 1", "at 0.00 mm,", "chord 240.00 mm"}));
    EXPECT_NEAR(upright.box().width(), textWidth("chord 240.00 mm", partTextHeight), 1e-9);
}

TEST_F(PartPlans, TilesBeginBelowTheRulerWhereTheyHaveRoom) {
    PrintSelect.overlap = true;
    EXPECT_EQ(printJob(PlanJob::wing, printer), Outcome());
    EXPECT_GE(reach().bottom, 24);
    printer.calls.clear();
    Wings(1).length1 = 270;
    EXPECT_EQ(printJob(PlanJob::wing, printer), Outcome());
    EXPECT_EQ(printer.pages(), 4 + 2) << "and not a row more";
}

TEST_F(PartPlans, PackedSheetsLeaveRoomForTheRuler) {
    PrintSelect.overlap = true;
    EXPECT_EQ(printJob(PlanJob::ribs, printer), Outcome());
    EXPECT_EQ(texts("100 mm"), printer.pages());
    EXPECT_GE(reach().bottom, 24);
    EXPECT_LE(reach().top, 277);
}

TEST_F(PartPlans, TilesHoldTheWholePanel) {
    PrintSelect.overlap = true;
    EXPECT_EQ(printJob(PlanJob::wing, printer), Outcome());
    // Leading edge from (0, 0) to (700, 10), in each of its sheets.
    EXPECT_EQ(linesOf(std::hypot(700, 10), black), 4);
    EXPECT_TRUE(hasText("wing 1, span 700.00 mm"));
    EXPECT_TRUE(hasText("chord 230.00 mm"));
    EXPECT_TRUE(hasText("Row 1, column 4"));
    EXPECT_EQ(printer.pages(), 4 + 2) << "the stabiliser is wider than a sheet, too";
}

TEST_F(PartPlans, PanelsAreDeveloped) {
    Wings(1).span = 300;
    Wings(1).elevation2 = 400;
    Wings(1).pos2 = 0;
    EXPECT_EQ(printJob(PlanJob::wing, printer), Outcome());
    EXPECT_GE(linesOf(500, black), 1);
}

TEST_F(PartPlans, InchProjectsPrintInInches) {
    project.units = inches;
    Plane::switchAllToInches(project);
    PrintSelect.ribs = true;
    RecordingPrinter paper(7.5, 10.9);
    EXPECT_EQ(Plans::printPlans(project, PrintSelect, {paper, {}, nullptr, &words}), Outcome());
    EXPECT_EQ(paper.scaleMode, 5);
    double longest = 0;
    for (const PrinterCall& call : paper.calls)
        if (call.kind == Kind::Line) longest = std::max(longest, length(call));
    EXPECT_NEAR(longest, 230 / 25.4, 1e-9);
    EXPECT_TRUE(std::ranges::any_of(paper.calls, [](const PrinterCall& call) {
        return call.text == "at 0.000 in, chord 9.055 in" || call.text == "chord 9.055 in";
    }));
}

TEST_F(PartPlans, SectionsCarryNumberAndPositionWithTheRibs) {
    PrintSelect.frontSections = true;
    PrintSelect.ribs = true;
    EXPECT_EQ(print(), Outcome());
    for (const char* text : {"section 1", "section 3", "at 200.00 mm"})
        EXPECT_EQ(texts(text), 1) << text;
}

TEST_F(PartPlans, TextsOfSectionsStandClearOfTheCross) {
    PrintSelect.frontSections = true;
    PrintSelect.ribs = true;
    MeshSections& body = Fuselages(1);
    for (int i = 1; i <= body.sectionCount(); ++i) {
        const int k = body.storageIndex(i);
        body.width(k) = body.height(k) = i % 2 == 0 ? 120 : 20;
    }
    EXPECT_EQ(print(), Outcome());
    const double middle = printer.ScaleWidth() / 2;
    int seen = 0;
    for (const PrinterCall& call : printer.calls) {
        if (call.kind != Kind::Text || !call.text.starts_with("section")) continue;
        EXPECT_GT(call.at[0], middle) << call.text;
        ++seen;
    }
    EXPECT_EQ(seen, body.sectionCount());
}

TEST_F(PartPlans, SectionsLoseTheSkinWithTheRibs) {
    PrintSelect.frontSections = true;
    EXPECT_EQ(print(), Outcome());
    const std::vector<PrinterCall> before = printer.calls;
    printer.calls.clear();
    PrintSelect.wishes.skin = 3;
    EXPECT_EQ(print(), Outcome());
    EXPECT_EQ(printer.calls.size(), before.size()) << "only with the box of the ribs";
    const auto width = [&] {
        double least = 1e9;
        double most = -1e9;
        int page = 1;
        for (const PrinterCall& call : printer.calls) {
            page += call.kind == Kind::NewPage ? 1 : 0;
            if (call.kind != Kind::Line || call.colour == black || page != 2) continue;
            least = std::min({least, call.at[0], call.at[2]});
            most = std::max({most, call.at[0], call.at[2]});
        }
        return most - least;
    };
    const double whole = width();
    PrintSelect.ribs = true;
    printer.calls.clear();
    EXPECT_EQ(print(), Outcome());
    EXPECT_NEAR(width(), whole - 6, 0.5);
    EXPECT_LT(width(), whole - 5.99);
}

TEST_F(PartPlans, WithoutSkinSectionsLieWhereTheyDid) {
    Fuselages(1).shift = 30;
    PrintSelect.frontSections = true;
    EXPECT_EQ(print(), Outcome());
    const std::vector<PrinterCall> before = printer.calls;
    printer.calls.clear();
    PrintSelect.ribs = true;
    EXPECT_EQ(print(), Outcome());
    std::size_t n = 0;
    for (const PrinterCall& call : printer.calls) {
        if (call.kind == Kind::Text) continue;
        ASSERT_LT(n, before.size());
        if (before[n].kind == Kind::EndDoc) break;
        ASSERT_EQ(call.kind, before[n].kind) << n;
        for (std::size_t i = 0; i < 4; ++i) EXPECT_NEAR(call.at[i], before[n].at[i], 1e-9) << n;
        ++n;
    }
    EXPECT_GT(n, 50U);
    EXPECT_EQ(texts("section 2"), 2) << "on the twin too";
}

TEST_F(PartPlans, RefusedThingsLeaveWords) {
    PrintSelect.ribs = true;
    PrintSelect.frontSections = true;
    PrintSelect.wishes.skin = 12;
    Wings(1).thickness2 = 0;
    EXPECT_EQ(print(), Outcome());
    EXPECT_TRUE(std::ranges::any_of(words, [](const std::string& word) {
        return word == "wing 1, rib 8 at 700.00 mm: no rib, no area.";
    }));
    EXPECT_TRUE(std::ranges::any_of(words, [](const std::string& word) {
        return word.find("skin thicker than the section") != std::string::npos;
    }));
}

TEST_F(PartPlans, NothingToCutIsRefused) {
    PrintSelect.wishes.skin = 900;
    EXPECT_TRUE(printJob(PlanJob::ribs, printer).hasFailed());
    EXPECT_EQ(printer.calls.back().kind, Kind::KillDoc);
    PrintSelect.wishes = {};
    PrintSelect.wishes.stations.count = 1;
    for (const PlanJob job : {PlanJob::ribs, PlanJob::wing}) {
        EXPECT_TRUE(printJob(job, printer).hasFailed());
        EXPECT_EQ(printer.calls.back().kind, Kind::KillDoc);
    }
    EXPECT_EQ(printer.pages(), 0);
}

TEST_F(PartPlans, EndlessPanelsAreRefused) {
    Wings(1).span = 999999;
    Wings(1).length1 = 999999;
    EXPECT_TRUE(printJob(PlanJob::wing, printer).hasFailed());
    EXPECT_EQ(printer.pages(), 0);
    Wings(1).span = 1e300;
    EXPECT_EQ(printJob(PlanJob::wing, printer), Outcome()) << "the stabiliser is left";
}

TEST_F(PartPlans, NoPlaceIsToldAsInfinite) {
    constexpr double largest = std::numeric_limits<double>::max();
    EXPECT_EQ(lengthWithUnit(largest * 2, millimetres), "1.79769313486232E+308 mm");
    EXPECT_EQ(lengthWithUnit(-largest * 2, inches), "-7.07753202701699E+306 in");
    PrintSelect.ribs = true;
    Wings(1).span = largest;  // developed it is longer than any number
    EXPECT_EQ(print(), Outcome());
    for (const std::string& word : words) EXPECT_EQ(word.find("inf"), std::string::npos) << word;
}

TEST_F(PartPlans, PaperTooSmallToOverlapIsRefused) {
    PrintSelect.overlap = true;
    RecordingPrinter stamp(9, 9);
    EXPECT_TRUE(printJob(PlanJob::wing, stamp).hasFailed());
    EXPECT_EQ(stamp.calls.back().kind, Kind::KillDoc);
}

TEST_F(PartPlans, CancelledWorkEndsTheJob) {
    ScriptedProgress watcher;
    watcher.cancelAt = 1;
    progress = &watcher;
    PrintSelect.wishes.stations.count = 100;
    EXPECT_TRUE(printJob(PlanJob::ribs, printer).isCancelled());
    EXPECT_EQ(printer.calls.back().kind, Kind::KillDoc);
}

}  // namespace
}  // namespace velna::test
