#include <algorithm>
#include <cmath>
#include <filesystem>
#include <limits>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "model/Project.h"
#include "output/CutParts.h"
#include "output/PartPacking.h"
#include "persistence/ProjectFile.h"

namespace velna::test {
namespace {

constexpr double gap = 3;

PackedSize laid(const PackedPart& part, const PackedPlace& place) {
    return place.turned ? *part.turned : part.size;
}

void expectApart(const std::vector<PackedPart>& parts, const std::vector<PackedPlace>& places) {
    for (std::size_t a = 0; a < parts.size(); ++a) {
        const PackedSize first = laid(parts[a], places[a]);
        for (std::size_t b = a + 1; b < parts.size(); ++b) {
            if (places[a].sheet != places[b].sheet) continue;
            const PackedSize second = laid(parts[b], places[b]);
            const bool beside = places[a].x + first.width + gap <= places[b].x + 1e-9 ||
                                places[b].x + second.width + gap <= places[a].x + 1e-9;
            const bool below = places[a].y + first.height + gap <= places[b].y + 1e-9 ||
                               places[b].y + second.height + gap <= places[a].y + 1e-9;
            EXPECT_TRUE(beside || below) << a << " and " << b;
        }
    }
}

void expectInside(const std::vector<PackedPart>& parts, const std::vector<PackedPlace>& places,
                  const PackedSize& sheet) {
    ASSERT_EQ(places.size(), parts.size());
    for (std::size_t n = 0; n < parts.size(); ++n) {
        const PackedSize size = laid(parts[n], places[n]);
        EXPECT_GE(places[n].x, 0);
        EXPECT_GE(places[n].y, 0);
        EXPECT_LE(places[n].x + size.width, sheet.width + 1e-9);
        EXPECT_LE(places[n].y + size.height, sheet.height + 1e-9);
    }
}

std::size_t sheetsOf(const std::vector<PackedPlace>& places) {
    std::size_t sheets = 0;
    for (const PackedPlace& place : places) sheets = std::max(sheets, place.sheet + 1);
    return sheets;
}

double areaOf(const std::vector<PackedPart>& parts) {
    double area = 0;
    for (const PackedPart& part : parts) area += (part.size.width + gap) * (part.size.height + gap);
    return area;
}

std::vector<PackedPart> randomParts(unsigned seed, std::size_t count, bool turns) {
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> width(5, 180);
    std::uniform_real_distribution<double> height(2, 60);
    std::vector<PackedPart> parts(count);
    for (PackedPart& part : parts) {
        part.size = {width(random), height(random)};
        if (turns) part.turned = {part.size.height + 9, part.size.width};  // with a text below
    }
    return parts;
}

constexpr PackedSize paper{190, 277};
const PackedSize board{600, std::numeric_limits<double>::infinity()};

TEST(PartPacking, PartsLieApartAndInsideTheSheets) {
    for (unsigned seed = 1; seed <= 20; ++seed) {
        const auto parts = randomParts(seed, 60, seed % 2 == 0);
        const auto places = packParts(parts, paper, gap);
        expectInside(parts, places, paper);
        expectApart(parts, places);
        const double full = areaOf(parts) / ((paper.width + gap) * (paper.height + gap));
        EXPECT_LE(static_cast<double>(sheetsOf(places)), std::ceil(1.2 * full) + 1)
            << "paper is wasted";
    }
}

TEST(PartPacking, OfEveryAircraftWithEverySkinNothingOverlapsAndNothingIsLost) {
    int packed = 0;
    for (const auto& entry :
         std::filesystem::directory_iterator(VELNA_TEST_DATA "/projects/current")) {
        if (entry.path().extension() != ".vln") continue;
        Project project;
        if (!Plane::readProject(project, entry.path().string()).isDone()) continue;
        for (const double skin : {0.0, 1.0, 3.0}) {
            RibWishes wishes;
            wishes.skin = skin;
            wishes.stations.count = 12;
            CutParts made;
            (void)cutParts(project, CutPlan::ribs, wishes, {}, nullptr, made);
            std::vector<PackedPart> parts;
            for (const CutPart& part : made.parts) {
                const PartBox box = part.box();
                const PartBox upright = turned(part).box();
                if (box.width() > paper.width || box.height() > paper.height) continue;
                parts.push_back({{box.width(), box.height()}, {}});
                if (upright.height() <= paper.height)
                    parts.back().turned = {upright.width(), upright.height()};
            }
            SCOPED_TRACE(entry.path().filename().string() + ", skin " + std::to_string(skin));
            const auto places = packParts(parts, paper, gap);
            expectInside(parts, places, paper);
            expectApart(parts, places);
            packed += static_cast<int>(parts.size());
        }
    }
    EXPECT_GT(packed, 300);
}

TEST(PartPacking, LowPartsFillTheRoomBesideHighOnes) {
    const std::vector<PackedPart> parts{{{100, 60}}, {{97, 30}}, {{97, 27}}};
    const auto places = packParts(parts, {200, 60}, gap);
    EXPECT_EQ(sheetsOf(places), 1U);
    expectApart(parts, places);
}

TEST(PartPacking, PartsAreTurnedWhereThatSavesASheet) {
    std::vector<PackedPart> parts(3, {{100, 20}, PackedSize{20, 100}});
    EXPECT_EQ(sheetsOf(packParts(parts, {70, 100}, gap)), 1U);
    for (PackedPart& part : parts) part.turned.reset();
    EXPECT_EQ(sheetsOf(packParts(parts, {100, 45}, gap)), 2U);
}

TEST(PartPacking, SheetWithoutEndTakesAll) {
    const auto parts = randomParts(5, 200, false);
    const auto places = packParts(parts, board, gap);
    expectApart(parts, places);
    expectInside(parts, places, board);
    EXPECT_EQ(sheetsOf(places), 1U);
    double lowest = 0;
    for (std::size_t n = 0; n < parts.size(); ++n)
        lowest = std::max(lowest, places[n].y + parts[n].size.height);
    EXPECT_LT(lowest, 1.15 * areaOf(parts) / board.width) << "the board is wasted";
}

TEST(PartPacking, TheWayThatNeedsLeastOfTheLastSheetIsTaken) {
    const std::vector<PackedPart> parts{
        {{100, 60}}, {{50, 10}}, {{30, 10}}, {{50, 10}}, {{70, 10}}};
    const auto places = packParts(parts, {100, 60}, 0);
    EXPECT_EQ(sheetsOf(places), 2U);
    for (std::size_t n = 1; n < parts.size(); ++n) EXPECT_LE(places[n].y, 10) << "two full rows";
}

TEST(PartPacking, PartLargerThanTheSheetLiesAlone) {
    const std::vector<PackedPart> parts{{{500, 20}}, {{20, 500}}, {{30, 30}}};
    const auto places = packParts(parts, paper, gap);
    expectApart(parts, places);
    EXPECT_EQ(places[1].x, 0);
    EXPECT_EQ(places[0].x, 0);
    EXPECT_EQ(sheetsOf(places), 3U);
}

TEST(PartPacking, ThousandsOfPartsAreAMatterOfSeconds) {
    for (const PackedSize& sheet : {paper, board}) {
        const auto parts = randomParts(3, 5000, true);
        const auto places = packParts(parts, sheet, gap);
        expectInside(parts, places, sheet);
        EXPECT_LE(static_cast<double>(sheetsOf(places)),
                  1 + 1.2 * areaOf(parts) / (paper.width * paper.height));
    }
}

TEST(PartPacking, NothingNeedsNoPlace) {
    EXPECT_TRUE(packParts({}, paper, gap).empty());
}

}  // namespace
}  // namespace velna::test
