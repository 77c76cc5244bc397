#include <gtest/gtest.h>

#include "output/PrinterCorrection.h"
#include "output/RibTexts.h"
#include "output/RibWishes.h"

namespace velna::test {
namespace {

bool taken(RibWishes& wishes, const char* name, const char* text) {
    const Outcome outcome = takeRibWish(wishes, name, text);
    EXPECT_NE(outcome.isDone(), outcome.hasFailed());
    return outcome.isDone();
}

TEST(RibWishesTest, TextsOfTheCommandLineAreTaken) {
    RibWishes wishes;
    EXPECT_TRUE(taken(wishes, "skin", "1.5"));
    EXPECT_TRUE(taken(wishes, "slot", "30,6,4,top"));
    EXPECT_TRUE(taken(wishes, "slot", " 65 , 3 , 2.5 , bottom "));
    EXPECT_TRUE(taken(wishes, "stations", "12"));
    EXPECT_EQ(wishes.skin, 1.5);
    EXPECT_EQ(wishes.spars,
              (std::vector<SparSlot>{{30, 6, 4, SlotSide::top}, {65, 3, 2.5, SlotSide::bottom}}));
    EXPECT_EQ(wishes.stations.count, 12);
    EXPECT_EQ(wishes.stations.spacing, 0);
}

TEST(RibWishesTest, LaterOfStationsAndSpacingCounts) {
    RibWishes wishes;
    EXPECT_TRUE(taken(wishes, "spacing", "75.5"));
    EXPECT_EQ(wishes.stations.spacing, 75.5);
    EXPECT_TRUE(taken(wishes, "stations", "5"));
    EXPECT_EQ(wishes.stations.spacing, 0);
}

TEST(RibWishesTest, TextsThatAreNoneAreRefused) {
    RibWishes wishes;
    for (const char* text : {"", "0", "1", "-3", "1001", "10000", "7.5", "x", "8 x", "nan", "1e99"})
        EXPECT_FALSE(taken(wishes, "stations", text)) << text;
    for (const char* text : {"", "0", "-1", "inf", "1e999", "5mm"})
        EXPECT_FALSE(taken(wishes, "spacing", text)) << text;
    for (const char* text : {"", "-0.1", "thin", "1,5"})
        EXPECT_FALSE(taken(wishes, "skin", text)) << text;
    for (const char* text : {"", "30", "30,6,4", "30,6,4,left", "30,6,4,top,1", "a,6,4,top",
                             "30,,4,top", "30;6;4;top", "30,6,4,Top", "1e999,6,4,top"})
        EXPECT_FALSE(taken(wishes, "slot", text)) << text;
    EXPECT_FALSE(taken(wishes, "colour", "red"));
    EXPECT_TRUE(wishes.spars.empty());
    EXPECT_EQ(wishes.stations.count, RibWishes().stations.count);
    EXPECT_EQ(wishes.skin, 0);
}

TEST(RibWishesTest, RefusalsQuoteTheText) {
    RibWishes wishes;
    EXPECT_NE(takeRibWish(wishes, "slot", "30,6").reason().find("\"30,6\""), std::string::npos);
}

TEST(RibWishesTest, SlotsStandInOneText) {
    std::vector<SparSlot> slots;
    EXPECT_TRUE(readSlots("30,0.25,0.125,top; 65,0.1,0.1,bottom", 25.4, slots).isDone());
    ASSERT_EQ(slots.size(), 2U);
    EXPECT_DOUBLE_EQ(slots[0].width, 6.35);
    EXPECT_EQ(slots[0].percent, 30);
    EXPECT_EQ(slotsText(slots, 25.4), "30,0.25,0.125,top; 65,0.1,0.1,bottom");
    EXPECT_TRUE(readSlots("30,6,4,top;", 1, slots).hasFailed());
    EXPECT_TRUE(readSlots("30,1e308,4,top", 25.4, slots).hasFailed()) << "no millimetres hold it";
    EXPECT_TRUE(readSlots("30,6,1e308,top", 25.4, slots).hasFailed());
    EXPECT_EQ(slots.size(), 2U) << "what is refused changes nothing";
    EXPECT_TRUE(readSlots("  ", 1, slots).isDone());
    EXPECT_TRUE(slots.empty());
    EXPECT_EQ(slotsText(slots, 1), "");
}

TEST(RibWishesTest, TextsGiveTheSameWishesAgain) {
    RibWishes wishes;
    wishes.stations = {7, 33.5};
    wishes.skin = 0.8;
    wishes.spars = {{30, 6, 4, SlotSide::top}, {65, 3, 2.5, SlotSide::bottom}};
    RibWishes again;
    for (const RibWishText& wish : ribWishTexts(wishes))
        EXPECT_EQ(takeRibWish(again, wish.name, wish.text), Outcome()) << wish.text;
    EXPECT_EQ(again.stations.count, 7);
    EXPECT_EQ(again.stations.spacing, 33.5);
    EXPECT_EQ(again.skin, 0.8);
    EXPECT_EQ(again.spars, wishes.spars);
}

TEST(RibTextsTest, AreInTheProjectsUnit) {
    RibWishes wishes;
    RibTexts texts = ribTexts(wishes, 25.4);
    EXPECT_EQ(texts.stations, "8");
    EXPECT_EQ(texts.skin, "0");
    EXPECT_EQ(texts.spars, "");
    texts.skin = "0.0625";
    texts.spars = "30,0.25,0.125,top";
    texts.bySpacing = true;
    texts.spacing = "2.5";
    EXPECT_EQ(readRibTexts(texts, 25.4, wishes), Outcome());
    EXPECT_DOUBLE_EQ(wishes.skin, 1.5875);
    EXPECT_DOUBLE_EQ(wishes.stations.spacing, 63.5);
    EXPECT_DOUBLE_EQ(wishes.spars.at(0).width, 6.35);
    const RibTexts again = ribTexts(wishes, 25.4);
    EXPECT_TRUE(again.bySpacing);
    EXPECT_EQ(again.spacing, "2.5");
    EXPECT_EQ(again.skin, "0.0625");
    EXPECT_EQ(again.spars, texts.spars);
}

TEST(RibTextsTest, OnlyTheChosenOneOfStationsAndSpacingCounts) {
    RibWishes wishes;
    RibTexts texts = ribTexts(wishes, 1);
    texts.spacing = "none";
    EXPECT_EQ(readRibTexts(texts, 1, wishes), Outcome());
    texts.bySpacing = true;
    EXPECT_TRUE(readRibTexts(texts, 1, wishes).hasFailed());
    texts.spacing = "20";
    texts.stations = "0";
    EXPECT_EQ(readRibTexts(texts, 1, wishes), Outcome());
}

TEST(RibTextsTest, AWishBeyondAllRibsIsShownAsANumber) {
    RibWishes wishes;
    wishes.skin = 1e300;
    EXPECT_EQ(ribTexts(wishes, 1).skin, "1E+300");
    wishes.skin = 1e-12;
    EXPECT_EQ(ribTexts(wishes, 1).skin, "1E-12");
}

TEST(RibTextsTest, OneThatIsNoneChangesNothing) {
    RibWishes wishes;
    RibTexts texts = ribTexts(wishes, 1);
    texts.stations = "5";
    texts.skin = "-1";
    EXPECT_TRUE(readRibTexts(texts, 1, wishes).hasFailed());
    texts.skin = "1";
    texts.spars = "x";
    EXPECT_TRUE(readRibTexts(texts, 1, wishes).hasFailed());
    EXPECT_EQ(wishes.stations.count, 8);
    EXPECT_EQ(wishes.skin, 0);
}

TEST(PrinterCorrectionTest, TakesFactorsNearOne) {
    PrinterCorrection correction;
    EXPECT_EQ(readCorrection("1.01", "0.995", correction), Outcome());
    EXPECT_EQ(correction, (PrinterCorrection{1.01, 0.995}));
}

TEST(PrinterCorrectionTest, RefusesNonsense) {
    PrinterCorrection correction{1.01, 1};
    for (const char* text : {"", "0", "-1", "x", "0.79", "1.26", "100", "1,01", "nan", "1e999"}) {
        EXPECT_TRUE(readCorrection(text, "1", correction).hasFailed()) << text;
        EXPECT_TRUE(readCorrection("1", text, correction).hasFailed()) << text;
    }
    EXPECT_EQ(correction, (PrinterCorrection{1.01, 1})) << "as it was";
}

}  // namespace
}  // namespace velna::test
