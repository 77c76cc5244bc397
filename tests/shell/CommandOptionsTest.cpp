#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "shell/Arguments.h"
#include "shell/CommandOptions.h"
#include "shell/ExportKinds.h"

namespace velna::test {
namespace {

using Wish = Arguments::Wish;

/// What `velna --export OUT WORDS... a.vln` asks for.
Arguments exporting(const std::string& out, std::vector<std::string> words) {
    words.insert(words.begin(), {"--export", out});
    words.emplace_back("a.vln");
    return Arguments::read(words);
}

ExportRequest wanted(const std::string& out, const std::vector<std::string>& words) {
    const Arguments arguments = exporting(out, words);
    EXPECT_EQ(arguments.wish, Wish::Export) << arguments.problem;
    return arguments.exports;
}

std::string refusal(const std::string& out, const std::vector<std::string>& words) {
    const Arguments arguments = exporting(out, words);
    EXPECT_EQ(arguments.wish, Wish::Refused);
    return arguments.problem;
}

TEST(CommandOptions, EachEndingTellsItsKind) {
    for (const ExportKindRow& row : exportKinds()) {
        if (row.kind == ExportKind::Plans) continue;
        const std::string ending = row.ending;
        EXPECT_EQ(wanted("out." + ending, {}).kind, row.kind);
        EXPECT_EQ(wanted("folder/out", {"--as", ending}).kind, row.kind);
        EXPECT_EQ(wanted("out.tmp", {"--as=" + ending}).kind, row.kind);
        EXPECT_EQ(wanted("out." + ending, {"--as", ending}).kind, row.kind);
    }
    EXPECT_EQ(wanted("OUT.WRL", {}).kind, ExportKind::Model);
    EXPECT_EQ(wanted("out.pdf", {"--plan", "side"}).kind, ExportKind::Plans);
}

TEST(CommandOptions, AKindThatNothingTellsIsRefused) {
    EXPECT_EQ(refusal("out", {}), "\"out\" does not tell its kind; --as KIND does");
    EXPECT_EQ(refusal("a.wrl/out", {}), "\"a.wrl/out\" does not tell its kind; --as KIND does");
    EXPECT_EQ(refusal("out.doc", {}), "\"out.doc\" does not tell its kind; --as KIND does");
    EXPECT_EQ(refusal("out.doc", {"--as", "doc"}), "--as takes KIND, not \"doc\"");
    EXPECT_EQ(refusal("out.wrl", {"--as", "dxf"}),
              "--as dxf contradicts the ending of \"out.wrl\"");
}

TEST(CommandOptions, TheWordsOfAnExportAreKept) {
    const ExportRequest plain = wanted("o.png", {});
    EXPECT_EQ(plain.out, "o.png");
    EXPECT_EQ(plain.projects, std::vector<std::string>{"a.vln"});
    EXPECT_EQ(plain.view, ViewMode::VTop);
    EXPECT_EQ(plain.fuselage, 1);
    EXPECT_EQ(plain.size.width, 900);
    EXPECT_EQ(plain.size.height, 500);

    const ExportRequest told = wanted(
        "o.svg", {"b.vln", "--view=htop", "--size", "64", "--fuselage", "3", "--", "--odd.vln"});
    EXPECT_EQ(told.projects, (std::vector<std::string>{"b.vln", "--odd.vln", "a.vln"}));
    EXPECT_EQ(told.view, ViewMode::HTop);
    EXPECT_EQ(told.size.width, 64);
    EXPECT_EQ(told.size.height, 64);
    EXPECT_EQ(told.fuselage, 3);
}

TEST(CommandOptions, PlansAndPaperAreKept) {
    const ExportRequest told = wanted("o.pdf", {"--plan", "front", "--plan", "sections", "--paper",
                                                "A3", "--landscape", "--tape"});
    EXPECT_EQ(Plans::tickedNames(told.plans), (std::vector<std::string>{"sections", "front"}));
    EXPECT_TRUE(told.plans.overlap);
    EXPECT_TRUE(told.landscape);
    EXPECT_EQ(told.paper.width, 297);
    EXPECT_EQ(told.paper.height, 420);

    const ExportRequest free = wanted("o.pdf", {"--plan=side", "--paper", "1000x250.5"});
    EXPECT_EQ(free.paper.width, 1000);
    EXPECT_EQ(free.paper.height, 250.5);
    EXPECT_EQ(refusal("o.pdf", {"--plan=side", "--paper", "1000x250", "--landscape"}),
              "--landscape makes no sense for a --paper of WxH");
    EXPECT_EQ(refusal("o.pdf", {}), "plans need --plan side|sections|top|front|htop|wing|ribs");
}

TEST(CommandOptions, TheSmallestAndTheLargestNumbersAreTaken) {
    const ExportRequest picture = wanted("o.png", {"--size", "1x10000"});
    EXPECT_EQ(picture.size.width, 1);
    EXPECT_EQ(picture.size.height, 10000);
    EXPECT_EQ(wanted("o.dxf", {"--fuselage", "32767"}).fuselage, 32767);
    const ExportRequest page = wanted("o.pdf", {"--plan=side", "--paper", "1x5000"});
    EXPECT_EQ(page.paper.width, 1);
    EXPECT_EQ(page.paper.height, 5000);
}

TEST(CommandOptions, NonsenseIsRefusedWithWhatIsTaken) {
    for (const char* size :
         {"", "0", "0x100", "100x0", "x", "100x", "x100", "1e3", "-5", "+5", " 5", "5 ", "10x10x10",
          "10001", "99999999999999999999", "nan", "0x10"})
        EXPECT_EQ(refusal("o.png", {"--size", size}),
                  "--size takes N|WxH, not \"" + std::string(size) + "\"");
    for (const char* paper : {"", "0x0", "0x297", "210x0", "a4", "A5", "210", "210x", "-210x297",
                              "5001x100", "1e2x1e2", "infxinf", "210x297x1", "210,5x297"})
        EXPECT_EQ(
            refusal("o.pdf", {"--plan=side", "--paper", paper}),
            "--paper takes A4|A3|A2|A1|A0|Letter|Legal|WxH, not \"" + std::string(paper) + "\"");
    for (const char* number : {"", "0", "-1", "1.5", "one", "32768"})
        EXPECT_EQ(refusal("o.dxf", {"--fuselage", number}),
                  "--fuselage takes N, not \"" + std::string(number) + "\"");
    EXPECT_EQ(refusal("o.dxf", {"--view", "bottom"}),
              "--view takes top|front|side|htop, not \"bottom\"");
    EXPECT_EQ(refusal("o.pdf", {"--plan", "vtop"}),
              "--plan takes side|sections|top|front|htop|wing|ribs, not \"vtop\"");
    EXPECT_EQ(refusal("", {"--as", "wrl"}), "--export takes OUT, not \"\"");
}

TEST(CommandOptions, WhatAKindKnowsNothingOfIsRefused) {
    EXPECT_EQ(refusal("o.wrl", {"--plan", "side"}), "--plan makes no sense for .wrl");
    EXPECT_EQ(refusal("o.vln", {"--view", "side"}), "--view makes no sense for .vln");
    EXPECT_EQ(refusal("o.dxf", {"--size", "100"}), "--size makes no sense for .dxf");
    EXPECT_EQ(refusal("o.png", {"--tape"}), "--tape makes no sense for .png");
    EXPECT_EQ(refusal("o.pdf", {"--plan=side", "--view=side"}), "--view makes no sense for .pdf");
    EXPECT_EQ(refusal("o.dxf", {"--view", "top", "--view", "side"}), "--view is given twice");
    EXPECT_EQ(refusal("o.dxf", {"--export", "p.dxf"}), "--export is given twice");
    EXPECT_EQ(refusal("o.dxf", {"--tape=yes"}), "unknown option --tape=yes");
    EXPECT_EQ(refusal("o.dxf", {"--vie", "side"}), "unknown option --vie");
}

TEST(CommandOptions, PlansToBeCutAreKept) {
    const ExportRequest ribs =
        wanted("o.dxf", {"--plan", "ribs", "--spacing", "75.5", "--skin", "1.5", "--slot",
                         "30,6,4,top", "--slot=65,3,3,bottom", "--each"});
    EXPECT_EQ(ribs.cut, CutPlan::ribs);
    EXPECT_EQ(ribs.plans.wishes.stations.spacing, 75.5);
    EXPECT_EQ(ribs.plans.wishes.skin, 1.5);
    EXPECT_EQ(ribs.plans.wishes.spars.size(), 2U);
    EXPECT_TRUE(ribs.plans.wishes.each);
    EXPECT_EQ(wanted("o.svg", {"--plan", "wing", "--stations", "5"}).cut, CutPlan::wing);
    EXPECT_EQ(wanted("o.svg", {}).cut, std::nullopt);
    const ExportRequest paper = wanted("o.pdf", {"--plan=wing", "--plan=sections", "--skin=2"});
    EXPECT_EQ(Plans::tickedNames(paper.plans), (std::vector<std::string>{"sections", "wing"}));
    EXPECT_EQ(paper.plans.wishes.skin, 2);
}

TEST(CommandOptions, WhatIsWishedOfSolidsAndModelsIsKept) {
    const ExportRequest parts = wanted("o.STL", {"--each", "--cut"});
    EXPECT_EQ(parts.kind, ExportKind::Stl);
    EXPECT_EQ(parts.solids, (SolidOptions{true, true}));
    EXPECT_EQ(wanted("o.3mf", {}).kind, ExportKind::ThreeMf);
    EXPECT_EQ(wanted("o.obj", {"--cut"}).solids, (SolidOptions{false, true}));
    EXPECT_EQ(wanted("out", {"--as", "glb", "--each"}).solids, (SolidOptions{true, false}));
    EXPECT_EQ(wanted("o.wrl", {}).spelling, VrmlSpelling::Usual);
    EXPECT_EQ(wanted("o.wrl", {"--strict"}).spelling, VrmlSpelling::Strict);
}

TEST(CommandOptions, WhatSolidsAndModelsKnowNothingOfIsRefused) {
    for (const char* kind : {"stl", "3mf", "obj", "glb"}) {
        const std::string file = std::string("o.") + kind;
        const std::string end = std::string(" makes no sense for .") + kind;
        for (const char* option : {"--skin=1", "--spacing=50", "--plan=ribs", "--view=top",
                                   "--size=64", "--fuselage=1", "--strict", "--tape"}) {
            const std::string word = option;
            EXPECT_EQ(refusal(file, {word}), word.substr(0, word.find('=')) + end);
        }
    }
    EXPECT_EQ(refusal("o.dxf", {"--strict"}), "--strict makes no sense for .dxf");
    EXPECT_EQ(refusal("o.wrl", {"--cut"}), "--cut makes no sense for .wrl");
    EXPECT_EQ(refusal("o.wrl", {"--each"}), "--each makes no sense for .wrl");
    EXPECT_EQ(refusal("o.dxf", {"--plan=ribs", "--cut"}), "--cut makes no sense for .dxf");
    EXPECT_EQ(refusal("o.stl", {"--cut", "--cut"}), "--cut is given twice");
    EXPECT_EQ(refusal("o.stl", {"--cut=yes"}), "unknown option --cut=yes");
    EXPECT_EQ(refusal("o.stl", {"--as", "obj"}), "--as obj contradicts the ending of \"o.stl\"");
}

TEST(CommandOptions, PlansToBeCutAreRefusedWhereNothingIsCut) {
    EXPECT_EQ(refusal("o.dxf", {"--plan", "side"}), "--plan side makes no sense for .dxf");
    EXPECT_EQ(refusal("o.dxf", {"--plan=wing", "--plan=ribs"}), "one --plan is enough for .dxf");
    EXPECT_EQ(refusal("o.dxf", {"--skin", "1"}), "--skin needs --plan wing or --plan ribs");
    EXPECT_EQ(refusal("o.pdf", {"--plan=side", "--skin", "1"}),
              "--skin needs --plan wing or --plan ribs");
    EXPECT_EQ(refusal("o.pdf", {"--plan=ribs", "--each"}), "--each makes no sense for .pdf");
    EXPECT_EQ(refusal("o.svg", {"--each"}), "--each needs --plan wing or --plan ribs");
    EXPECT_EQ(refusal("o.svg", {"--plan=ribs", "--view=top"}),
              "--view makes no sense with such a --plan");
    EXPECT_EQ(refusal("o.svg", {"--plan=ribs", "--size=9"}),
              "--size makes no sense with such a --plan");
    EXPECT_EQ(refusal("o.png", {"--plan=ribs"}), "--plan makes no sense for .png");
    EXPECT_EQ(refusal("o.dxf", {"--plan=ribs", "--stations=3", "--spacing=9"}),
              "--stations and --spacing contradict each other");
    for (const char* stations : {"", "0", "1", "10000", "two", "2.5"})
        EXPECT_EQ(refusal("o.dxf", {"--plan=ribs", "--stations", stations}),
                  "--stations: \"" + std::string(stations) +
                      "\" is no number of stations: a whole number from 2 to 1000.");
    for (const char* slot : {"", "30", "30,6,4", "30,6,4,left", "a,6,4,top"})
        EXPECT_NE(refusal("o.dxf", {"--plan=ribs", "--slot", slot}).find("is no spar slot"),
                  std::string::npos);
}

TEST(CommandOptions, TheFiguresOfAProjectAreAskedFor) {
    const Arguments plain = Arguments::read({"--info", "a.vln"});
    EXPECT_EQ(plain.wish, Wish::Info);
    EXPECT_EQ(plain.info.project, "a.vln");
    EXPECT_FALSE(plain.info.query.json);
    EXPECT_EQ(plain.info.query.flight, Flight());

    const Arguments told =
        Arguments::read({"a.vln", "--json", "--mass", "1800", "--speed=0", "--info"});
    EXPECT_EQ(told.wish, Wish::Info);
    EXPECT_TRUE(told.info.query.json);
    EXPECT_EQ(told.info.query.flight.mass, 1800);
    EXPECT_EQ(told.info.query.flight.speed, 0);
}

TEST(CommandOptions, AMassThatIsNoneIsRefusedInOneLine) {
    for (const char* option : {"--mass", "--speed"})
        for (const char* text : {"", "-1", "-0.001", "12x", "x", "nan", "inf", "1e999", "0x10",
                                 "1,5", "1 800", "--json"}) {
            const Arguments arguments = Arguments::read({"--info", option, text, "a.vln"});
            EXPECT_EQ(arguments.wish, Wish::Refused) << text;
            EXPECT_FALSE(arguments.usageHelps);
            EXPECT_EQ(arguments.problem.find('\n'), std::string::npos);
        }
    const auto problem = [](const std::vector<std::string>& words) {
        return Arguments::read(words).problem;
    };
    EXPECT_EQ(problem({"--info", "a.vln", "--mass", "-5"}), "--mass takes G, not \"-5\"");
    EXPECT_EQ(problem({"--info"}), "--info needs a project");
    EXPECT_EQ(problem({"--info", "a.vln", "b.vln"}), "one file at a time, please");
    EXPECT_EQ(problem({"--json", "a.vln"}), "--json makes no sense without --info");
    EXPECT_EQ(problem({"--info", "--view", "top", "a.vln"}),
              "--view makes no sense without --export");
    EXPECT_EQ(problem({"--export", "o.wrl", "--mass", "3", "a.vln"}),
              "--mass makes no sense without --info");
    EXPECT_EQ(problem({"--export", "o.wrl", "--info", "a.vln"}),
              "--export and --info are two calls");
}

TEST(CommandOptions, WhatIsMissingIsTold) {
    const auto problem = [](const std::vector<std::string>& words) {
        return Arguments::read(words).problem;
    };
    EXPECT_EQ(problem({"--export"}), "--export needs OUT");
    EXPECT_EQ(problem({"--export", "o.wrl"}), "--export needs a project");
    EXPECT_EQ(problem({"--export", "o.dxf", "a.vln", "--view"}),
              "--view needs top|front|side|htop");
    EXPECT_EQ(problem({"--view", "side", "a.vln"}), "--view makes no sense without --export");
    EXPECT_EQ(problem({"--export", "o.wrl", ""}), "a file without a name");
}

TEST(CommandOptions, TheHelpTellsEveryOptionAndEveryKindOnce) {
    const std::string help = helpText();
    std::set<std::string> names;
    for (const OptionRow& option : commandOptions()) {
        EXPECT_TRUE(names.insert(option.name).second) << option.name;
        const std::string head =
            "\n  " + std::string(option.name) +
            (*option.argument ? " " + std::string(option.argument) : std::string());
        EXPECT_TRUE(help.find(head + "\n") != std::string::npos ||
                    help.find(head + "  (") != std::string::npos)
            << option.name;
        EXPECT_EQ(optionNamed(option.name), &option);
    }
    for (const ExportKindRow& row : exportKinds()) {
        EXPECT_NE(help.find(std::string("\n  .") + row.ending + "  "), std::string::npos);
        EXPECT_EQ(kindOfEnding(row.ending), &row);
        EXPECT_EQ(&rowOf(row.kind), &row);
    }
    EXPECT_EQ(optionNamed("--bogus"), nullptr);
    EXPECT_EQ(kindOfEnding(""), nullptr);
}

TEST(CommandOptions, NoLineOfTheHelpIsWiderThanATerminal) {
    std::size_t start = 0;
    const std::string help = helpText();
    for (auto end = help.find('\n'); end != std::string::npos; end = help.find('\n', start)) {
        EXPECT_LE(end - start, 90U) << help.substr(start, end - start);
        start = end + 1;
    }
}

}  // namespace
}  // namespace velna::test
