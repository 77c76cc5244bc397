#include <bit>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "common/NumberText.h"

namespace velna::test {

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();

/// What the C library writes in its own locale, which is the one a test program starts in.
std::string cText(double value) {
    char text[64];
    std::snprintf(text, sizeof text, "%.15G", value);
    return text;
}

}  // namespace

TEST(NumberText, WritesFifteenDigitsAndNoMore) {
    EXPECT_EQ(numberText(0.5), "0.5");
    EXPECT_EQ(numberText(1.0 / 3), "0.333333333333333");
    EXPECT_EQ(numberText(0.1 + 0.2), "0.3");
    EXPECT_EQ(numberText(-27.5), "-27.5");
    EXPECT_EQ(numberText(6.12323399573677e-16), "6.12323399573677E-16");
}

TEST(NumberText, TakesAnExponentBelowOneTenThousandthAndFromTenToTheFifteenth) {
    EXPECT_EQ(numberText(0.0001), "0.0001");
    EXPECT_EQ(numberText(0.00001), "1E-05");
    EXPECT_EQ(numberText(999999999999999), "999999999999999");
    EXPECT_EQ(numberText(1e15), "1E+15");
    EXPECT_EQ(numberText(-1e15), "-1E+15");
    EXPECT_EQ(numberText(1e100), "1E+100");
    EXPECT_EQ(numberText(999999999999999.9), "1E+15");
}

TEST(NumberText, ZeroIsNeverNegative) {
    EXPECT_EQ(numberText(0.0), "0");
    EXPECT_EQ(numberText(-0.0), "0");
}

TEST(NumberText, IsWhatTheCLibraryWrites) {
    std::mt19937_64 random(1);
    for (int i = 0; i < 20000; ++i) {
        const double value = std::bit_cast<double>(random());
        if (std::isfinite(value)) {
            ASSERT_EQ(numberText(value), cText(value));
        }
        const double length = static_cast<double>(random() % 2'000'001) / 1000 - 1000;
        if (length != 0) {
            ASSERT_EQ(numberText(length), cText(length));
        }
    }
    for (const double value : {1.0, -1.0, 32767.0, 1e14, 123456789012345.0, 1e-300, 5e-324, 1e308})
        EXPECT_EQ(numberText(value), cText(value));
}

TEST(NumberText, IsWhatTheCLibraryWritesOfEverySize) {
    std::mt19937_64 random(2);
    std::uniform_real_distribution<double> power(-6, 17);
    for (int i = 0; i < 200000; ++i) {
        const double value = std::pow(10.0, power(random)) * (i % 2 == 0 ? 1 : -1);
        ASSERT_EQ(numberText(value), cText(value));
    }
}

TEST(NumberText, RoundsNumbersHalfwayBetweenTwoTextsToTheEvenOne) {
    for (const double value :
         {12345678901234.25, 12345678901234.75, 1234567890123.125, 1234567890123.375,
          123456789012345.5, 123456789012346.5, 1000000000000.0625, 1000000000000.1875})
        EXPECT_EQ(numberText(value), cText(value));
}

TEST(NumberText, IsWhatTheCLibraryWritesNextToEachPowerOfTen) {
    for (int power = -6; power <= 16; ++power) {
        double above = std::strtod(("1e" + std::to_string(power)).c_str(), nullptr);
        double below = above;
        for (int step = 0; step < 200; ++step) {
            ASSERT_EQ(numberText(above), cText(above));
            ASSERT_EQ(numberText(below), cText(below));
            above = std::nextafter(above, infinity);
            below = std::nextafter(below, 0);
        }
    }
}

TEST(NumberText, AppendingLeavesWhatStandsThere) {
    std::string text = "x ";
    appendNumber(text, -2.25);
    appendInteger(text, -32768);
    EXPECT_EQ(text, "x -2.25-32768");
}

TEST(NumericPrefix, TakesTheLargestDoubleThoughItsTextIsRoundedUp) {
    constexpr double largest = std::numeric_limits<double>::max();
    EXPECT_EQ(numberText(largest), "1.79769313486232E+308");
    for (const char* text :
         {"1.79769313486232E+308", "1.79769313486232000E+308", "179769313486232e294",
          "0.00179769313486232E311", "1.797693134862316E308", "1.7976931348623157E308"}) {
        EXPECT_EQ(numericPrefix(text), largest) << text;
        EXPECT_EQ(numericPrefix(std::string("-") + text), -largest) << text;
        EXPECT_EQ(wholeNumber(text), largest) << text;
    }
    for (const char* text : {"1.79769313486233E+308", "1.79769313486232E+309", "1.8E308", "2E308",
                             "1.7976931348623159E308", "1.79769313486232001E308", "1e999"})
        EXPECT_EQ(numericPrefix(text), infinity) << text;
}

TEST(NumericPrefix, TakesTheLongestNumber) {
    EXPECT_EQ(numericPrefix("12.5 mm"), 12.5);
    EXPECT_EQ(numericPrefix("  \t7"), 7);
    EXPECT_EQ(numericPrefix(".5"), 0.5);
    EXPECT_EQ(numericPrefix("5."), 5);
    EXPECT_EQ(numericPrefix("-.5"), -0.5);
    EXPECT_EQ(numericPrefix("+3"), 3);
    EXPECT_EQ(numericPrefix("1.2.3"), 1.2);
    EXPECT_EQ(numericPrefix("1e3"), 1000);
    EXPECT_EQ(numericPrefix("1E-2x"), 0.01);
    EXPECT_EQ(numericPrefix("1,5"), 1);
}

TEST(NumericPrefix, AnExponentCountsWhenComplete) {
    EXPECT_EQ(numericPrefix("2e"), 2);
    EXPECT_EQ(numericPrefix("2E+"), 2);
    EXPECT_EQ(numericPrefix("2e-x"), 2);
}

TEST(NumericPrefix, NothingElseIsANumber) {
    for (const char* text : {"", " ", "-", "+", ".", "-.", "e5", "+-3", "--3", "abc", "nan", "NaN",
                             "inf", "-inf", "+inf", "infinity", "\n5"})
        EXPECT_EQ(numericPrefix(text), std::nullopt) << text;
    EXPECT_EQ(numericPrefix("0x10"), 0);
}

TEST(NumericPrefix, ANumberBeyondADoubleIsAnInfinityOrZero) {
    EXPECT_EQ(numericPrefix("1e999"), infinity);
    EXPECT_EQ(numericPrefix("-1e999"), -infinity);
    EXPECT_EQ(numericPrefix(std::string(400, '9')), infinity);
    EXPECT_EQ(numericPrefix("1e-999"), 0);
    EXPECT_EQ(numericPrefix("1e99999999999999999999"), infinity);
    EXPECT_EQ(numericPrefix("1e-99999999999999999999"), 0);
    EXPECT_EQ(numericPrefix("0." + std::string(400, '0') + "1e5"), 0);
    EXPECT_EQ(numericPrefix("0." + std::string(400, '0') + "1e800"), infinity);
    EXPECT_EQ(numericPrefix("0e999"), 0);
    EXPECT_EQ(numericPrefix("00001e400"), infinity);
}

TEST(NumericPrefix, IsTheNearestDoubleAsTheLibraryGivesIt) {
    std::mt19937_64 random(2);
    for (int i = 0; i < 50000; ++i) {
        // Up to 24 digits with a point anywhere, so that short and long ways are met.
        std::string text = random() % 2 == 0 ? "-" : "";
        const auto digits = 1 + random() % 24;
        const auto point = random() % (digits + 1);
        for (std::size_t d = 0; d < digits; ++d) {
            if (d == point) text += '.';
            text += static_cast<char>('0' + random() % 10);
        }
        if (random() % 8 == 0) text += "e" + std::to_string(static_cast<int>(random() % 40) - 20);
        ASSERT_EQ(numericPrefix(text), std::strtod(text.c_str(), nullptr)) << text;
    }
    EXPECT_EQ(numericPrefix("9007199254740993"), 9007199254740992);
    EXPECT_EQ(numericPrefix("0.0000000000000000001"), 1e-19);
    EXPECT_EQ(numericPrefix("18446744073709551617"), 18446744073709551616.0);
}

TEST(NumericPrefix, WithoutANumberTheLeadingNumberIsZero) {
    EXPECT_EQ(leadingNumber("mm"), 0);
    EXPECT_EQ(leadingNumber("3 mm"), 3);
}

TEST(TakeNumber, LeavesWhatFollows) {
    std::string_view text = "  1.5e1,2";
    EXPECT_EQ(takeNumber(text), 15);
    EXPECT_EQ(text, ",2");
    EXPECT_EQ(takeNumber(text), std::nullopt);
    EXPECT_EQ(text, ",2");
}

TEST(TakeNumber, NeverLooksBeyondTheEndOfItsText) {
    for (const std::string whole : {"12.75", "1.2345678901234567890125", "25e15", "-300000e3"}) {
        for (std::size_t length = whole.starts_with('-') ? 2 : 1; length < whole.size(); ++length) {
            std::string_view text(whole.data(), length);
            const std::string alone(text);
            EXPECT_EQ(takeNumber(text), std::strtod(alone.c_str(), nullptr)) << alone;
        }
    }
}

TEST(WholeNumber, TakesTheWholeTextOrNothing) {
    EXPECT_EQ(wholeNumber("  12.5"), 12.5);
    EXPECT_EQ(wholeNumber("12.5 "), std::nullopt);
    EXPECT_EQ(wholeNumber("12.5mm"), std::nullopt);
    EXPECT_EQ(wholeNumber("2e"), std::nullopt);
    EXPECT_EQ(wholeNumber("1e999"), std::nullopt);
    EXPECT_EQ(wholeNumber("nan"), std::nullopt);
    EXPECT_EQ(wholeNumber(""), std::nullopt);
}

TEST(Rounding, HalvesGoToTheEvenNeighbour) {
    EXPECT_EQ(roundToInt(0.5), 0);
    EXPECT_EQ(roundToInt(1.5), 2);
    EXPECT_EQ(roundToInt(-2.5), -2);
    EXPECT_EQ(roundHalfEven(3.5), 4);
    EXPECT_EQ(roundToInt16(2.4999), 2);
}

TEST(Rounding, IsDefinedForEveryDouble) {
    EXPECT_EQ(roundToInt(nan), 0);
    EXPECT_EQ(roundToInt(infinity), std::numeric_limits<int>::max());
    EXPECT_EQ(roundToInt(-1e308), std::numeric_limits<int>::min());
    EXPECT_EQ(roundToInt16(nan), 0);
    EXPECT_EQ(roundToInt16(40000), 32767);
    EXPECT_EQ(roundToInt16(-infinity), -32768);
}

TEST(ThreeDigits, IsAMinimum) {
    EXPECT_EQ(threeDigits(1), "001");
    EXPECT_EQ(threeDigits(0), "000");
    EXPECT_EQ(threeDigits(42), "042");
    EXPECT_EQ(threeDigits(1000), "1000");
}

TEST(FixedText, HasTheDecimalsAskedFor) {
    EXPECT_EQ(fixedText(150.374, 2), "150.37");
    EXPECT_EQ(fixedText(-0.5, 3), "-0.500");
    EXPECT_EQ(fixedText(12, 0), "12");
    EXPECT_EQ(fixedText(999999999, 2), "999999999.00");
}

TEST(FixedText, OfNothingHasNoSign) {
    EXPECT_EQ(fixedText(-0.001, 2), "0.00");
    EXPECT_EQ(fixedText(-0.0, 1), "0.0");
    EXPECT_EQ(fixedText(-0.006, 2), "-0.01");
}

TEST(FixedText, OfWhatIsUnheardOfIsShort) {
    EXPECT_EQ(fixedText(1e9, 2), "1000000000");
    EXPECT_EQ(fixedText(-1e300, 2), "-1E+300");
}

}  // namespace velna::test
