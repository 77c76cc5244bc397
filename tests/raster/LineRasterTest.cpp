#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "shell/qt/LineRaster.h"

namespace velna {
namespace {

constexpr std::uint32_t paper = 0xffffffffU;
constexpr std::uint32_t ink = 0xff000000U;
constexpr std::uint32_t guard = 0x12345678U;

// A buffer with untouchable pixels all round, which tell a write outside.
class Sheet {
public:
    Sheet(int width, int height)
        : width_(width),
          height_(height),
          all_(static_cast<std::size_t>((width + 2) * (height + 2)), guard) {
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x) at(x, y) = paper;
    }

    std::uint32_t& at(int x, int y) {
        return all_[static_cast<std::size_t>((y + 1) * (width_ + 2) + x + 1)];
    }

    void line(double x1, double y1, double x2, double y2, std::uint32_t colour = ink,
              int thickness = 1, PixelRule rule = PixelRule::Copy) {
        rasterLine({&at(0, 0), width_, height_, width_ + 2}, {x1, y1}, {x2, y2},
                   {colour, thickness, rule}, changed);
    }

    int inked() {
        int count = 0;
        for (int y = 0; y < height_; ++y)
            for (int x = 0; x < width_; ++x) count += at(x, y) != paper;
        return count;
    }

    bool guardWhole() {
        for (int y = -1; y <= height_; ++y)
            for (int x = -1; x <= width_; ++x) {
                const bool inside = x >= 0 && x < width_ && y >= 0 && y < height_;
                if (!inside && at(x, y) != guard) return false;
            }
        return true;
    }

    PixelRegion changed;

private:
    int width_;
    int height_;
    std::vector<std::uint32_t> all_;
};

struct RandomEnds {
    explicit RandomEnds(double low, double high) : place(low, high) {}
    std::array<double, 4> operator()() {
        return {place(engine), place(engine), place(engine), place(engine)};
    }
    std::mt19937 engine{20240611};
    std::uniform_real_distribution<double> place;
};

TEST(LineRaster, EndsAreIncluded) {
    Sheet sheet(40, 30);
    sheet.line(3, 4, 20, 9);
    EXPECT_EQ(sheet.at(3, 4), ink);
    EXPECT_EQ(sheet.at(20, 9), ink);
    EXPECT_EQ(sheet.inked(), 18);
}

TEST(LineRaster, APointIsOnePixel) {
    Sheet sheet(10, 10);
    sheet.line(4.4, 5.4, 4.4, 5.4);
    EXPECT_EQ(sheet.at(4, 5), ink);
    EXPECT_EQ(sheet.inked(), 1);
}

TEST(LineRaster, EveryPixelIsTheNearestToTheTrueLine) {
    RandomEnds ends(0, 99);
    for (int i = 0; i < 500; ++i) {
        Sheet sheet(100, 100);
        auto [x1, y1, x2, y2] = ends();
        x1 = std::round(x1), y1 = std::round(y1), x2 = std::round(x2), y2 = std::round(y2);
        sheet.line(x1, y1, x2, y2);
        const double dx = x2 - x1, dy = y2 - y1;
        const double longer = std::max(std::abs(dx), std::abs(dy));
        EXPECT_EQ(sheet.inked(), static_cast<int>(longer) + 1);
        for (int y = 0; y < 100; ++y)
            for (int x = 0; x < 100; ++x) {
                if (sheet.at(x, y) == paper || longer == 0) continue;
                const double away = std::abs((x - x1) * dy - (y - y1) * dx) / longer;
                EXPECT_LE(away, 0.5 + 1e-6);
            }
    }
}

TEST(LineRaster, DrawnAgainInWhiteWithSwappedEndsLeavesNoTrace) {
    RandomEnds ends(-60, 160);
    Sheet sheet(100, 80);
    for (int i = 0; i < 20000; ++i) {
        const auto [x1, y1, x2, y2] = ends();
        sheet.line(x1, y1, x2, y2, ink);
        sheet.line(x2, y2, x1, y1, paper);
        ASSERT_EQ(sheet.inked(), 0) << x1 << " " << y1 << " " << x2 << " " << y2;
    }
    EXPECT_TRUE(sheet.guardWhole());
}

TEST(LineRaster, InvertedTwiceIsAsBefore) {
    RandomEnds ends(-300, 400);
    for (const int thickness : {1, 2, 3}) {
        Sheet sheet(100, 80);
        for (int i = 0; i < 3000; ++i) {
            const auto [x1, y1, x2, y2] = ends();
            sheet.line(x1, y1, x2, y2, ink, thickness, PixelRule::Invert);
            sheet.line(x2, y2, x1, y1, ink, thickness, PixelRule::Invert);
            ASSERT_EQ(sheet.inked(), 0);
        }
    }
}

TEST(LineRaster, InvertingTurnsPaperBlackAndInkWhite) {
    Sheet sheet(20, 3);
    sheet.line(0, 1, 9, 1);
    sheet.line(0, 1, 19, 1, ink, 1, PixelRule::Invert);
    EXPECT_EQ(sheet.at(5, 1), paper);
    EXPECT_EQ(sheet.at(15, 1), ink);
}

TEST(LineRaster, AClippedLineHasThePixelsOfTheWholeOne) {
    RandomEnds ends(0, 299);
    for (int i = 0; i < 300; ++i) {
        const auto [x1, y1, x2, y2] = ends();
        Sheet whole(300, 300);
        Sheet part(100, 80);
        whole.line(x1, y1, x2, y2);
        part.line(x1 - 90, y1 - 110, x2 - 90, y2 - 110);
        for (int y = 0; y < 80; ++y)
            for (int x = 0; x < 100; ++x) ASSERT_EQ(part.at(x, y), whole.at(x + 90, y + 110));
        ASSERT_TRUE(part.guardWhole());
    }
}

TEST(LineRaster, TheChangedRegionHoldsExactlyTheBoxOfTheLine) {
    Sheet sheet(50, 50);
    sheet.line(-10, 20, 30, 25);
    EXPECT_EQ(sheet.changed.left, 0);
    EXPECT_EQ(sheet.changed.right, 31);
    EXPECT_EQ(sheet.changed.bottom, 26);
    sheet.line(45, 3, 45, 8);
    EXPECT_EQ(sheet.changed.top, 3);
    EXPECT_EQ(sheet.changed.right, 46);
}

TEST(LineRaster, OutsideOrNotFiniteDrawsNothing) {
    const double inf = std::numeric_limits<double>::infinity();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    Sheet sheet(50, 50);
    for (const double bad : {inf, -inf, nan}) {
        sheet.line(bad, 1, 2, 3);
        sheet.line(1, bad, 2, 3);
        sheet.line(1, 1, bad, 3);
        sheet.line(1, 1, 2, bad);
    }
    sheet.line(-5, -5, -5, 100);
    sheet.line(60, 0, 60, 50);
    sheet.line(-1e308, -1e308, -1e300, -1e308);
    EXPECT_EQ(sheet.inked(), 0);
    EXPECT_TRUE(sheet.changed.empty());
}

TEST(LineRaster, EveryDoubleIsDrawnOrSkipped) {
    const std::array<double, 16> values{0.0, -0.0, 1e-320, -1e-300, 0.5,   25,      49.5,    -1, 50,
                                        1e6, -1e7, 2e9,    -9e18,   1e300, 1.7e308, -1.7e308};
    Sheet sheet(50, 50);
    for (const double x1 : values)
        for (const double y1 : values)
            for (const double x2 : values)
                for (const double y2 : values) sheet.line(x1, y1, x2, y2);
    EXPECT_TRUE(sheet.guardWhole());
    EXPECT_GT(sheet.inked(), 0);
}

TEST(LineRaster, AHugeLineThroughTheMiddleIsSeen) {
    Sheet sheet(50, 50);
    sheet.line(-1e300, 25, 1e300, 25);
    EXPECT_EQ(sheet.inked(), 50);
    EXPECT_EQ(sheet.at(0, 25), ink);
    sheet.line(10, -1.7e308, 10, 1.7e308);
    EXPECT_EQ(sheet.inked(), 99);
}

TEST(LineRaster, AThickLineIsThatManyPixelsAcross) {
    Sheet sheet(50, 50);
    sheet.line(5, 10, 30, 10, ink, 2);
    sheet.line(40, 5, 40, 30, ink, 3);
    EXPECT_EQ(sheet.inked(), 26 * 2 + 26 * 3);
    EXPECT_EQ(sheet.at(20, 11), ink);
    EXPECT_EQ(sheet.at(39, 20), ink);
    EXPECT_EQ(sheet.at(41, 20), ink);
}

TEST(LineRaster, AnEmptyBufferTakesNothing) {
    PixelRegion changed;
    rasterLine({nullptr, 0, 0, 0}, {0, 0}, {10, 10}, {ink}, changed);
    EXPECT_TRUE(changed.empty());
}

}  // namespace
}  // namespace velna
