#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "output/PartPacking.h"

namespace velna::test {
namespace {

constexpr double gap = 3;

void expectApart(const std::vector<PackedSize>& parts, const std::vector<PackedPlace>& places) {
    for (std::size_t a = 0; a < parts.size(); ++a) {
        for (std::size_t b = a + 1; b < parts.size(); ++b) {
            if (places[a].sheet != places[b].sheet) continue;
            const bool beside = places[a].x + parts[a].width + gap <= places[b].x + 1e-9 ||
                                places[b].x + parts[b].width + gap <= places[a].x + 1e-9;
            const bool below = places[a].y + parts[a].height + gap <= places[b].y + 1e-9 ||
                               places[b].y + parts[b].height + gap <= places[a].y + 1e-9;
            EXPECT_TRUE(beside || below) << a << " and " << b;
        }
    }
}

std::vector<PackedSize> randomParts(unsigned seed, std::size_t count) {
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> width(5, 180);
    std::uniform_real_distribution<double> height(2, 60);
    std::vector<PackedSize> parts(count);
    for (PackedSize& part : parts) part = {width(random), height(random)};
    return parts;
}

TEST(PartPacking, PartsLieApartAndInsideTheSheets) {
    for (unsigned seed = 1; seed <= 20; ++seed) {
        const auto parts = randomParts(seed, 60);
        const auto places = packParts(parts, {190, 277}, gap);
        ASSERT_EQ(places.size(), parts.size());
        expectApart(parts, places);
        double area = 0;
        std::size_t sheets = 0;
        for (std::size_t n = 0; n < parts.size(); ++n) {
            EXPECT_GE(places[n].x, 0);
            EXPECT_GE(places[n].y, 0);
            EXPECT_LE(places[n].x + parts[n].width, 190);
            EXPECT_LE(places[n].y + parts[n].height, 277);
            area += parts[n].width * parts[n].height;
            sheets = std::max(sheets, places[n].sheet + 1);
        }
        EXPECT_LE(static_cast<double>(sheets), 2 * area / (190 * 277) + 1) << "paper is wasted";
    }
}

TEST(PartPacking, LowerPartsFillTheRowsOfHigherOnes) {
    const std::vector<PackedSize> parts{{100, 20}, {50, 10}, {100, 19}};
    const auto places = packParts(parts, {200, 100}, gap);
    EXPECT_EQ(places[0].y, 0);
    EXPECT_EQ(places[2].y, 23);
    EXPECT_EQ(places[1].y, 0) << "in the first row that has room";
    EXPECT_EQ(places[1].x, 103);
}

TEST(PartPacking, SheetWithoutEndTakesAll) {
    const auto parts = randomParts(5, 200);
    const auto places = packParts(parts, {600, std::numeric_limits<double>::infinity()}, gap);
    expectApart(parts, places);
    for (const PackedPlace& place : places) EXPECT_EQ(place.sheet, 0U);
}

TEST(PartPacking, PartLargerThanTheSheetLiesAlone) {
    const std::vector<PackedSize> parts{{500, 20}, {20, 500}, {30, 30}};
    const auto places = packParts(parts, {190, 277}, gap);
    expectApart(parts, places);
    EXPECT_EQ(places[1].x, 0);
    EXPECT_EQ(places[0].x, 0);
}

TEST(PartPacking, NothingNeedsNoPlace) {
    EXPECT_TRUE(packParts({}, {190, 277}, gap).empty());
}

}  // namespace
}  // namespace velna::test
