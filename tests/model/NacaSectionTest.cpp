// NACA sections against published ordinates, closed formulas and thin-aerofoil theory.

#include <algorithm>
#include <cmath>
#include <functional>
#include <numbers>

#include <gtest/gtest.h>

#include "common/ValueReader.h"
#include "model/NacaSection.h"
#include "model/Plane.h"

namespace velna::NacaSection {
namespace {

using AirfoilOutline::Points;

std::string reasonAgainst(const std::string& text) {
    try {
        number(text);
    } catch (const ReadFailure& failure) {
        return failure.what();
    }
    return "none";
}

/// The height at `x` of one side of an outline of many points.
double heightAt(const Points& points, bool upper, double x) {
    const auto nose = std::ranges::min_element(points, {}, &Point2D::x);
    Points side(points.begin(), nose + 1);
    std::ranges::reverse(side);
    if (upper) side.assign(nose, points.end());
    const auto to = std::ranges::lower_bound(side, x, {}, &Point2D::x);
    if (to == side.begin()) return to->y;
    const auto from = to - 1;
    return from->y + (x - from->x) / (to->x - from->x) * (to->y - from->y);
}

struct Ordinates {
    const char* number;
    double x, upper, lower;  // percent
};

// I. H. Abbott, A. E. von Doenhoff, "Theory of Wing Sections", appendix III.
constexpr Ordinates published[] = {
    {"0012", 1.25, 1.894, -1.894}, {"0012", 5, 3.555, -3.555},  {"0012", 10, 4.683, -4.683},
    {"0012", 30, 6.002, -6.002},   {"0012", 50, 5.294, -5.294}, {"0012", 80, 2.623, -2.623},
    {"0012", 95, 0.807, -0.807},   {"2412", 2.5, 2.99, -2.27},  {"2412", 10, 5.63, -3.75},
    {"2412", 20, 7.26, -4.23},     {"2412", 40, 7.80, -3.80},   {"2412", 60, 6.36, -2.76},
    {"2412", 90, 2.08, -0.82},     {"23012", 2.5, 3.61, -1.71}, {"23012", 5, 4.91, -2.26},
    {"23012", 15, 7.19, -3.50},    {"23012", 30, 7.55, -4.46},  {"23012", 50, 6.41, -4.17},
    {"23012", 70, 4.36, -3.00},    {"23012", 90, 1.68, -1.23},
};

TEST(NacaSection, OutlinesGoThroughThePublishedOrdinates) {
    for (const Ordinates& row : published) {
        SCOPED_TRACE(std::string(row.number) + " at " + std::to_string(row.x));
        const Points points = outline(number(row.number), 999, false);
        const bool symmetric = row.upper == -row.lower;
        // The cambered ones are tabulated to a few hundredths of a percent only.
        const double digit = symmetric ? 0.0006 : 0.03;
        EXPECT_NEAR(100 * heightAt(points, true, row.x / 100), row.upper, digit);
        EXPECT_NEAR(100 * heightAt(points, false, row.x / 100), row.lower, digit);
    }
}

TEST(NacaSection, ThicknessIsGreatestAtThirtyPercentAndEndsAsItIsAsked) {
    const Digits digits = number("0015");
    double thickest = 0;
    double place = 0;
    for (int i = 0; i <= 1000; ++i)
        if (const double half = halfThicknessAt(digits, i / 1000.0, false); half > thickest) {
            thickest = half;
            place = i / 1000.0;
        }
    EXPECT_NEAR(place, 0.3, 0.001);
    EXPECT_NEAR(2 * thickest, 0.15, 0.0001);
    EXPECT_NEAR(halfThicknessAt(digits, 1, false), 0.15 * 0.0105, 1e-12);
    EXPECT_EQ(halfThicknessAt(digits, 1, true), 0);
    EXPECT_NEAR(halfThicknessAt(digits, 0.999, true), 0, 3e-4);
    EXPECT_EQ(halfThicknessAt(digits, 0, false), 0);
}

TEST(NacaSection, TheMeanLineOfFourDigitsHasItsCamberAtItsPlace) {
    for (int camber = 1; camber <= 9; ++camber)
        for (int place = 1; place <= 9; ++place) {
            const Digits digits = number(std::to_string(camber) + std::to_string(place) + "12");
            const auto [height, slope] = meanLineAt(digits, place / 10.0);
            EXPECT_NEAR(height, camber / 100.0, 1e-15);
            EXPECT_EQ(slope, 0);
            EXPECT_EQ(meanLineAt(digits, 0).height, 0);
            EXPECT_EQ(meanLineAt(digits, 1).height, 0);
            EXPECT_NEAR(meanLineAt(digits, 1 - 1e-9).height, 0, 1e-8);
        }
}

/// A Fourier integral of the slope over the angle, x = (1 - cos angle) / 2.
double overAngle(const Digits& digits, int order) {
    constexpr int steps = 20'000;
    double sum = 0;
    for (int i = 0; i < steps; ++i) {
        const double angle = std::numbers::pi * (i + 0.5) / steps;
        sum += meanLineAt(digits, (1 - std::cos(angle)) / 2).slope * std::cos(order * angle);
    }
    return sum * std::numbers::pi / steps;
}

/// By thin-aerofoil theory the lift at the ideal angle is twice the first integral, and the moment
/// about the quarter chord half the difference of the second and the first.
TEST(NacaSection, TheMeanLinesOfFiveDigitsHaveTheirLiftAndTheTurnedUpOnesNoMoment) {
    for (const char* line : {"10", "20", "30", "40", "50", "21", "31", "41", "51"})
        for (const int lift : {1, 2, 6}) {
            SCOPED_TRACE(std::to_string(lift) + line);
            const Digits digits = number(std::to_string(lift) + line + "12");
            const double first = overAngle(digits, 1);
            // The published factors keep it within three percent.
            EXPECT_NEAR(2 * first / (0.15 * lift), 1, 0.03);
            const double moment = (overAngle(digits, 2) - first) / 2;
            if (line[1] == '1') {
                EXPECT_NEAR(moment, 0, 0.0012 * lift);
            } else {
                EXPECT_LT(moment, -0.0018 * lift);
            }
            EXPECT_EQ(meanLineAt(digits, 0).height, 0);
            EXPECT_EQ(meanLineAt(digits, 1).height, 0);
            EXPECT_NEAR(meanLineAt(digits, 1 - 1e-9).height, 0, 1e-8);
        }
    // The camber's place, in twentieths, is the second digit.
    EXPECT_NEAR(meanLineAt(number("23012"), 0.15).slope, 0, 1e-4);
    EXPECT_NEAR(meanLineAt(number("24112"), 0.2).slope, 0, 1e-3);
}

TEST(NacaSection, PointsStandInThePanelsOrderAndMirrorEachOther) {
    for (const int count : {9, 10, 61, 998, 999}) {
        const Points points = outline(number("0012"), count, true);
        ASSERT_EQ(points.size(), static_cast<std::size_t>(count));
        EXPECT_EQ(points.front(), (Point2D{1, 0}));
        EXPECT_EQ(points.back(), (Point2D{1, 0}));
        EXPECT_LT(points[1].y, 0);
        for (std::size_t i = 0; i < points.size(); ++i) {
            EXPECT_EQ(points[i].x, points[points.size() - 1 - i].x);
            EXPECT_EQ(points[i].y, -points[points.size() - 1 - i].y);
        }
        EXPECT_EQ(points[points.size() / 2] == (Point2D{0, 0}), count % 2 == 1);
    }
    const Points open = outline(number("0012"), 61, false);
    EXPECT_NEAR(open.back().y, 0.00126, 1e-12);
    EXPECT_EQ(outline(number("0012"), 1, true).size(), 9u);
    EXPECT_EQ(outline(number("0012"), 1'000'000, true).size(), 999u);
}

/// What is made is a section by the rules for those of files, and has the thickness of its number.
TEST(NacaSection, EverySectionCanBePutOnAPanel) {
    Project project;
    Plane::setDefaultPlane(project);
    const auto expectFits = [&](const std::string& text) {
        SCOPED_TRACE(text);
        for (const bool closed : {true, false}) {
            const Points points = outline(number(text), 61, closed);
            EXPECT_EQ(AirfoilOutline::arranged({points}), points);
            AirfoilOutline::putOnWing(project, points, false);
            EXPECT_EQ(project.Wings(1).nb, 61);
            EXPECT_NEAR(project.Wings(1).thickness1, number(text).thickness, 0.0101);
        }
    };
    for (const char* thickness : {"01", "06", "12", "24"}) {
        expectFits(std::string("00") + thickness);
        for (const char* line : {"12", "24", "44", "64", "65", "210", "230", "250", "231", "441"})
            expectFits(std::string(line) + thickness);
    }
}

TEST(NacaSection, ANumberMayHaveItsNameAndBlanks) {
    for (const char* text : {"2412", "NACA 2412", "naca2412", " NACA-2412 "}) {
        const Digits digits = number(text);
        EXPECT_EQ(digits.camber, 0.02);
        EXPECT_EQ(digits.place, 0.4);
        EXPECT_EQ(digits.thickness, 0.12);
    }
}

TEST(NacaSection, NonsenseIsRefusedWithItsReason) {
    for (const char* text : {"", " ", "NACA", "241", "241200", "24 12", "24a2", "-2412", "2412.0",
                             "63-212", "\xE9 2412", "NACA NACA", "1e15"})
        EXPECT_EQ(reasonAgainst(text), "four or five digits, like 2412 or 23012") << text;
    EXPECT_EQ(reasonAgainst("2400"), "the last two digits, the thickness, are 01 to 40");
    EXPECT_EQ(reasonAgainst("2499"), "the last two digits, the thickness, are 01 to 40");
    EXPECT_EQ(reasonAgainst("2012"), "with camber the second digit is 1 to 9");
    EXPECT_EQ(reasonAgainst("0412"), "without camber the second digit is 0");
    EXPECT_EQ(reasonAgainst("03012"), "the first of five digits is 1 to 9");
    for (const char* text : {"20012", "26012", "23212", "21112", "26112"})
        EXPECT_EQ(reasonAgainst(text), "the middle of five digits is 10 to 50 or 21 to 51");
}

}  // namespace
}  // namespace velna::NacaSection
