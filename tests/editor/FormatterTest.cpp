#include <gtest/gtest.h>

#include "support/EditorBench.h"
#include "support/EditorInHand.h"

namespace velna {
namespace {

class Formatter : public test::EditorTest {};

TEST_F(Formatter, MillimetresAreTheFloorWithoutDecimals) {
    const struct {
        double value;
        const char* text;
    } rows[] = {{12.9, "12"}, {0.9, "0"}, {-0.5, "-1"}, {-0.0, "0"},
                {0, "0"},     {-3, "-3"}, {700, "700"}, {1e14, "100000000000000"}};
    for (const auto& row : rows) EXPECT_EQ(Main.Formatter(row.value), row.text) << row.value;
}

TEST_F(Formatter, InchesHaveTwoDecimalsAndNoLeadingZero) {
    project.units = inches;
    const struct {
        double value;
        const char* text;
    } rows[] = {
        {1, "1.00"},
        {0.5, ".50"},
        {0, ".00"},
        {-0.5, "-.50"},
        {27.559055118, "27.56"},
        {0.05, ".05"},
        {-12.345, "-12.35"},
        {9.995, "10.00"},
        {123456, "123456.00"},
    };
    for (const auto& row : rows) EXPECT_EQ(Main.Formatter(row.value), row.text) << row.value;
}

TEST_F(Formatter, HalvesOfAHundredthGoAwayFromZero) {
    project.units = inches;
    EXPECT_EQ(Main.Formatter(0.125), ".13");
    EXPECT_EQ(Main.Formatter(-0.125), "-.13");
    EXPECT_EQ(Main.Formatter(1.005), "1.01") << "a half to the reader, though not quite in binary";
    EXPECT_EQ(Main.Formatter(2.675), "2.68");
    EXPECT_EQ(Main.Formatter(0.1249999), ".12");
}

TEST_F(Formatter, WhatRoundsToNothingHasNoSign) {
    project.units = inches;
    EXPECT_EQ(Main.Formatter(-0.001), ".00");
    EXPECT_EQ(Main.Formatter(-0.0049), ".00");
    EXPECT_EQ(Main.Formatter(-0.005), "-.01");
    EXPECT_EQ(Main.Formatter(-5e-324), ".00");
}

TEST_F(Formatter, EveryNumberHasAText) {
    for (int unit : {millimetres, inches}) {
        project.units = unit;
        for (double value : {1e308, -1e308, 1e15, -1e15, 1e13, 9.999999999e12, 5e-324})
            EXPECT_FALSE(Main.Formatter(value).empty()) << value;
    }
    EXPECT_EQ(Main.Formatter(1e15), "1000000000000000.00");
    EXPECT_EQ(Main.Formatter(1e308).size(), 309U + 3);
}

}  // namespace
}  // namespace velna
