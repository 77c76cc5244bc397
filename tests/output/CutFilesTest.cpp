#include <algorithm>
#include <cmath>
#include <filesystem>

#include "common/NumberText.h"
#include "output/CutDrawing.h"
#include "output/CutFiles.h"
#include "output/OutputTest.h"

namespace velna::test {
namespace {

/// A file of pairs of lines, each a code and a value.
struct DxfPair {
    std::string code;
    std::string value;
};

std::vector<DxfPair> pairsOf(const std::string& bytes) {
    std::vector<std::string> lines;
    for (std::size_t at = 0; at < bytes.size();) {
        const std::size_t end = bytes.find("\r\n", at);
        lines.push_back(bytes.substr(at, end - at));
        at = end + 2;
    }
    std::vector<DxfPair> pairs;
    for (std::size_t i = 0; i + 1 < lines.size(); i += 2) pairs.push_back({lines[i], lines[i + 1]});
    return pairs;
}

std::size_t countOf(const std::string& bytes, const std::string& text) {
    std::size_t count = 0;
    for (auto at = bytes.find(text); at != std::string::npos; at = bytes.find(text, at + 1))
        ++count;
    return count;
}

/// What stands between two texts, the first time that they come.
std::string textBetween(const std::string& bytes, const std::string& before,
                        const std::string& after) {
    const std::size_t start = bytes.find(before);
    if (start == std::string::npos) return {};
    const std::size_t from = start + before.size();
    return bytes.substr(from, bytes.find(after, from) - from);
}

class CutFiles : public OutputTest {
protected:
    Outcome save(CutPlan plan, CutFormat format) {
        words.clear();
        return saveCutPlan(project, plan, format, wishes, target, words);
    }
    std::string bytes() const { return bytesOf(target); }

    RibWishes wishes;
    std::vector<std::string> words;
    std::string target = folder / "set.dxf";
};

TEST_F(CutFiles, DxfNamesItsUnitAndHasALayerAKind) {
    wishes.stations.count = 4;
    EXPECT_EQ(save(CutPlan::ribs, CutFormat::dxf), Outcome());
    const std::string file = bytes();
    EXPECT_NE(file.find("$INSUNITS\r\n70\r\n4\r\n"), std::string::npos);
    EXPECT_EQ(countOf(file, "\r\nPOLYLINE\r\n8\r\ncut\r\n"), 8U);
    EXPECT_EQ(countOf(file, "\r\nLINE\r\n8\r\nengrave\r\n"), 8U);
    EXPECT_EQ(countOf(file, "\r\nTEXT\r\n8\r\ntext\r\n"), 16U);
    EXPECT_TRUE(words.empty());
    EXPECT_TRUE(file.ends_with("EOF\r\n"));
}

/// The point of a variable in the head of a DXF file; NaN where it is not there.
Point2D headPoint(const std::vector<DxfPair>& pairs, const std::string& name) {
    for (std::size_t i = 0; i + 2 < pairs.size(); ++i) {
        if (pairs[i].code != "9" || pairs[i].value != name || pairs[i + 1].code != "10") continue;
        return {leadingNumber(pairs[i + 1].value), leadingNumber(pairs[i + 2].value)};
    }
    return {std::nan(""), std::nan("")};
}

TEST_F(CutFiles, DxfTellsHowFarItsLinesReach) {
    wishes.stations.count = 4;
    EXPECT_EQ(save(CutPlan::ribs, CutFormat::dxf), Outcome());
    const auto pairs = pairsOf(bytes());
    const Point2D least = headPoint(pairs, "$EXTMIN");
    const Point2D most = headPoint(pairs, "$EXTMAX");
    Point2D reached;
    for (std::size_t i = 0; i + 3 < pairs.size(); ++i) {
        if (pairs[i].value != "VERTEX") continue;
        const double x = leadingNumber(pairs[i + 2].value);
        const double y = leadingNumber(pairs[i + 3].value);
        EXPECT_GE(x, least.x);
        EXPECT_GE(y, least.y);
        reached = {std::max(reached.x, x), std::max(reached.y, y)};
    }
    EXPECT_GT(reached.x, 0);
    EXPECT_GE(most.x, reached.x);
    EXPECT_GE(most.y, reached.y);
    EXPECT_LT(most.x, reached.x + 10) << "and not farther";
}

TEST_F(CutFiles, RibsKeepTheirPointsInTheFile) {
    wishes.stations.count = 2;
    wishes.each = true;
    EXPECT_EQ(save(CutPlan::ribs, CutFormat::dxf), Outcome());
    const auto pairs = pairsOf(bytesOf(folder / "set-wing-1-rib-001.dxf"));
    Loop points;
    for (std::size_t i = 0; i + 3 < pairs.size(); ++i)
        if (pairs[i].value == "VERTEX")
            points.push_back(
                {leadingNumber(pairs[i + 2].value), leadingNumber(pairs[i + 3].value)});
    const Rib rib = ribAt(Wings(1), millimetres, {0, 0});
    ASSERT_EQ(points.size(), rib.outline.size());
    for (std::size_t i = 0; i < points.size(); ++i) {
        EXPECT_NEAR(points[i].x - points[0].x, rib.outline[i].x - rib.outline[0].x, 2e-6);
        EXPECT_NEAR(points[i].y - points[0].y, rib.outline[i].y - rib.outline[0].y, 2e-6);
    }
}

TEST_F(CutFiles, SvgIsInMillimetres) {
    target = folder / "set.svg";
    EXPECT_EQ(save(CutPlan::wing, CutFormat::svg), Outcome());
    const std::string file = bytes();
    const std::string width = textBetween(file, " width=\"", "mm\"");
    const std::string height = textBetween(file, " height=\"", "mm\"");
    EXPECT_GT(leadingNumber(width), 700);
    EXPECT_EQ(textBetween(file, "viewBox=\"", "\""), "0 0 " + width + ' ' + height);
    for (const char* group : {"<g id=\"cut\"", "<g id=\"engrave\"", "<g id=\"text\""})
        EXPECT_EQ(countOf(file, group), 1U) << group;
    // Two panels, six stations between root and tip of each.
    EXPECT_EQ(countOf(file, " Z\""), 2U);
    EXPECT_EQ(countOf(file, "<path"), 2U + 12U);
    EXPECT_NE(file.find(">chord 230.00 mm<"), std::string::npos);
}

TEST_F(CutFiles, InchProjectsAreInMillimetresToo) {
    EXPECT_EQ(save(CutPlan::ribs, CutFormat::dxf), Outcome());
    const auto before = pairsOf(bytes());
    project.units = inches;
    Plane::switchAllToInches(project);
    EXPECT_EQ(save(CutPlan::ribs, CutFormat::dxf), Outcome());
    const auto after = pairsOf(bytes());
    ASSERT_EQ(after.size(), before.size());
    for (std::size_t i = 0; i < after.size(); ++i) {
        if (before[i].code != "10" && before[i].code != "20") continue;
        EXPECT_NEAR(leadingNumber(after[i].value), leadingNumber(before[i].value), 1e-5);
    }
}

TEST_F(CutFiles, SectionsCarryNumberAndPosition) {
    wishes.skin = 2;
    target = folder / "set.svg";
    EXPECT_EQ(save(CutPlan::sections, CutFormat::svg), Outcome());
    EXPECT_EQ(countOf(bytes(), " Z\""), 3U);
    EXPECT_NE(bytes().find(">section 2<"), std::string::npos);
    EXPECT_NE(bytes().find(">at 200.00 mm<"), std::string::npos);
}

TEST_F(CutFiles, EachRibHasItsOwn) {
    wishes.stations.count = 3;
    wishes.each = true;
    target = folder / "my set.v2.svg";
    const auto named = cutPlanFiles(project, CutPlan::ribs, wishes, target);
    ASSERT_EQ(named.size(), 6U);
    EXPECT_EQ(named[0], folder / "my set.v2-wing-1-rib-001.svg");
    EXPECT_EQ(named[5], folder / "my set.v2-stabilizer-rib-003.svg");
    EXPECT_EQ(save(CutPlan::ribs, CutFormat::svg), Outcome());
    for (const std::string& file : named) EXPECT_TRUE(std::filesystem::exists(file)) << file;
    EXPECT_EQ(folder.count(), 6);
}

TEST_F(CutFiles, AllOfThemOrNone) {
    wishes.stations.count = 3;
    wishes.each = true;
    std::filesystem::create_directory(folder / "set-stabilizer-rib-003.dxf");
    EXPECT_TRUE(save(CutPlan::ribs, CutFormat::dxf).hasFailed());
    EXPECT_EQ(folder.count(), 1);
}

TEST_F(CutFiles, FolderThatIsNoneFails) {
    target = folder / "none/set.dxf";
    EXPECT_TRUE(save(CutPlan::ribs, CutFormat::dxf).hasFailed());
    wishes.each = true;
    EXPECT_TRUE(save(CutPlan::ribs, CutFormat::dxf).hasFailed());
}

TEST_F(CutFiles, NothingToCutWritesNothing) {
    wishes.skin = 500;
    for (const CutPlan plan : {CutPlan::ribs, CutPlan::sections}) {
        EXPECT_TRUE(save(plan, CutFormat::dxf).hasFailed());
        EXPECT_FALSE(words.empty());
    }
    Fuselages(1).nb_cross = 0;
    wishes.skin = 0;
    EXPECT_TRUE(save(CutPlan::sections, CutFormat::dxf).hasFailed());
    EXPECT_EQ(folder.count(), 0);
}

TEST_F(CutFiles, WrongStationsWriteNothing) {
    wishes.stations.count = 10000;
    for (const CutPlan plan : {CutPlan::ribs, CutPlan::wing})
        EXPECT_TRUE(save(plan, CutFormat::dxf).hasFailed());
    EXPECT_EQ(folder.count(), 0);
}

TEST_F(CutFiles, WordsNamePanelAndStation) {
    wishes.stations.count = 3;
    wishes.skin = 5.5;
    wishes.spars = {{30, 6, 4, SlotSide::top}};
    Wings(1).length2 = 0;
    EXPECT_EQ(save(CutPlan::ribs, CutFormat::dxf), Outcome());
    for (const char* word : {"wing 1, rib 3 at 700.00 mm: no rib, no chord.",
                             "stabilizer, rib 3 at 250.00 mm: no rib, skin thicker than the rib.",
                             "wing 1, rib 2 at 350.00 mm: no slot 1, it reaches the other edge."})
        EXPECT_EQ(std::ranges::count(words, word), 1) << word;
}

TEST_F(CutFiles, PanelsWithoutAPlanLeaveAWord) {
    Wings(1).span = 0;
    Stabilizer.length1 = 1e9;
    EXPECT_TRUE(save(CutPlan::wing, CutFormat::dxf).hasFailed());
    EXPECT_EQ(words, (std::vector<std::string>{"wing 1: no plan, no area.",
                                               "stabilizer: no plan, larger than 1000000 mm."}));
}

TEST_F(CutFiles, TooManyRibsAreRefused) {
    wishes.stations.count = 1000;
    project.Wings.fill(300, Wings(1));
    nbWings = 300;
    const Outcome outcome = save(CutPlan::ribs, CutFormat::dxf);
    EXPECT_TRUE(outcome.hasFailed());
    EXPECT_NE(outcome.reason().find("4,000,000 points"), std::string::npos);
}

TEST_F(CutFiles, CancelledWorkWritesNothing) {
    ScriptedProgress watcher;
    watcher.cancelAt = 2;
    wishes.stations.count = 200;
    EXPECT_TRUE(saveCutPlan(project, CutPlan::ribs, CutFormat::dxf, wishes, target, words, &watcher)
                    .isCancelled());
    EXPECT_EQ(folder.count(), 0);
}

TEST_F(CutFiles, OutlineThatCrossesItselfStandsWhileNothingIsTakenOff) {
    Wings(1).setAirfoilPoint(12, 0.15, -0.9);
    std::vector<CutRib> ribs;
    EXPECT_EQ(collectRibs(project, wishes, nullptr, ribs, words), Outcome());
    EXPECT_EQ(ribs[0].borders, std::vector<Loop>{ribs[0].rib.outline});
    ribs.clear();
    wishes.skin = 0.2;
    EXPECT_EQ(collectRibs(project, wishes, nullptr, ribs, words), Outcome());
    EXPECT_NE(ribs[0].borders, std::vector<Loop>{ribs[0].rib.outline});
}

TEST_F(CutFiles, TitleOfTheFileIsEscaped) {
    target = folder / "a<&b.svg";
    EXPECT_EQ(save(CutPlan::ribs, CutFormat::svg), Outcome());
    EXPECT_NE(bytes().find("<title>a&lt;&amp;b.svg</title>"), std::string::npos);
    target = folder / "Fl\xc3\xbcgel.dxf";
    EXPECT_EQ(save(CutPlan::ribs, CutFormat::dxf), Outcome());
    EXPECT_TRUE(bytes().starts_with("999\r\nFl\\U+00FCgel.dxf\r\n")) << bytes().substr(0, 60);
}

TEST_F(CutFiles, LabelsOfLargeRibsStandInsideThem) {
    CutParts made;
    EXPECT_EQ(cutParts(project, CutPlan::ribs, wishes, {}, nullptr, made), Outcome());
    const CutPart& rib = made.parts[0];
    ASSERT_EQ(rib.texts.size(), 2U);
    for (const PartText& text : rib.texts) {
        const double right = text.at.x + textWidth(text.text, text.height);
        const auto clear = clearanceOf(rib.cut, text.at.x, right);
        ASSERT_TRUE(clear) << text.text;
        EXPECT_LT(text.at.y + text.height, clear->lowestTop);
        EXPECT_GT(text.at.y, clear->highestBottom);
        EXPECT_TRUE(text.at.y > 0 || text.at.y + text.height < 0) << "beside the chord line";
    }
    EXPECT_EQ(rib.texts[0].text, "wing 1, rib 1");
    EXPECT_EQ(rib.texts[1].text, "at 0.00 mm, chord 230.00 mm");
    EXPECT_EQ(rib.engrave[0][1], (Point2D{230, 0}));
}

TEST_F(CutFiles, LabelsOfSmallRibsStandBelowThem) {
    Wings(1).length2 = 30;
    CutParts made;
    EXPECT_EQ(cutParts(project, CutPlan::ribs, wishes, {}, nullptr, made), Outcome());
    const CutPart& tip = made.parts[7];
    EXPECT_LT(tip.texts[0].at.y + tip.texts[0].height, -2.4);
    EXPECT_LT(tip.box().bottom, tip.texts[1].at.y);
}

}  // namespace
}  // namespace velna::test
