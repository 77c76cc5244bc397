#include <array>
#include <string>

#include <gtest/gtest.h>

#include "shell/qt/WindowLayout.h"

namespace velna {
namespace {

bool overlap(const Place& a, const Place& b) {
    return a.left < b.right() && b.left < a.right() && a.top < b.bottom() && b.top < a.bottom();
}

TEST(WindowLayout, TheSurfacesFollowTheFormulas) {
    const WindowLayout l = layOutWindow({1280, 760, 40, 0, false});
    const int w = l.parameters.width;
    EXPECT_EQ(l.drawArea.left, w);
    EXPECT_EQ(l.drawArea.width, 1280 - w - 10);
    EXPECT_EQ(l.drawArea.top, 380);
    EXPECT_EQ(l.drawArea.height, 340);
    EXPECT_EQ(l.render.left, w);
    EXPECT_EQ(l.render.width, l.drawArea.width);
    EXPECT_EQ(l.render.top, 40);
    EXPECT_EQ(l.render.height, 340);
    EXPECT_EQ(l.parameters.height, 540);
    EXPECT_EQ(l.parameters.top, 760 - 540 - 40);
    EXPECT_EQ(l.logoLeft, w - 3);
}

TEST(WindowLayout, SmallFontsMakeASmallPanel) {
    const WindowLayout l = layOutWindow({1280, 760, 40, 0, true});
    EXPECT_EQ(l.parameters.width, 190);
    EXPECT_EQ(l.parameters.height, 450);
    EXPECT_EQ(l.drawArea.left, 190);
    EXPECT_EQ(l.logoLeft, 187);
}

TEST(WindowLayout, TheWorkWidthAloneDecidesAboutTheLogo) {
    EXPECT_FALSE(layOutWindow({800, 2000, 40, 0, false}).logoVisible);
    EXPECT_TRUE(layOutWindow({801, 100, 40, 0, false}).logoVisible);
    EXPECT_FALSE(layOutWindow({700, 600, 40, 0, true}).logoVisible);
    EXPECT_TRUE(layOutWindow({701, 600, 40, 0, true}).logoVisible);
}

TEST(WindowLayout, APanelThatNeedsMoreRoomMovesTheSurfaces) {
    const WindowLayout l = layOutWindow({1280, 760, 40, 400, false});
    EXPECT_EQ(l.parameters.width, 400);
    EXPECT_EQ(l.drawArea.left, 400);
    EXPECT_EQ(l.drawArea.right(), 1270);
    EXPECT_EQ(layOutWindow({1280, 760, 40, 100, true}).parameters.width, 190);
}

TEST(WindowLayout, NothingOverlapsOrIsCutOffOnAnyScreen) {
    const std::array<std::array<int, 2>, 7> sizes{{{1024, 740},
                                                   {1280, 770},
                                                   {1920, 1050},
                                                   {960, 510},
                                                   {512, 350},
                                                   {3840, 2100},
                                                   {2560, 1001}}};
    for (const auto& [width, height] : sizes)
        for (const bool smallFonts : {false, true}) {
            SCOPED_TRACE(std::to_string(width) + " x " + std::to_string(height));
            const WindowLayout l = layOutWindow({width, height, 42, 0, smallFonts});
            const std::array<Place, 6> places{l.bar,      l.parameters, l.render,
                                              l.drawArea, l.hints,      l.foot};
            for (std::size_t i = 0; i < places.size(); ++i) {
                EXPECT_GE(places[i].left, 0);
                EXPECT_GE(places[i].top, 0);
                EXPECT_LE(places[i].right(), width);
                EXPECT_LE(places[i].bottom(), height);
                for (std::size_t j = i + 1; j < places.size(); ++j)
                    EXPECT_FALSE(overlap(places[i], places[j])) << i << " and " << j;
            }
        }
}

TEST(WindowLayout, AWindowTooSmallForAnythingStillHasPlaces) {
    const WindowLayout l = layOutWindow({50, 20, 42, 0, false});
    EXPECT_GE(l.drawArea.width, 1);
    EXPECT_GE(l.drawArea.height, 1);
    EXPECT_GE(l.parameters.height, 1);
}

TEST(WindowLayout, TheStripStandsRightOfTheLogoUnderTheDrawing) {
    for (const bool smallFonts : {false, true}) {
        const WindowLayout l = layOutWindow({1280, 760, 40, 0, smallFonts});
        EXPECT_GT(l.strip.left, l.logoLeft + l.logoWidth);
        EXPECT_EQ(l.strip.right(), l.drawArea.right());
        EXPECT_EQ(l.strip.top, l.foot.top);
        EXPECT_EQ(l.strip.height, l.foot.height);
        EXPECT_FALSE(overlap(l.strip, l.drawArea));
        EXPECT_FALSE(overlap(l.strip, l.parameters));
    }
}

TEST(WindowLayout, WithoutALogoTheStripHasTheWholeFoot) {
    const WindowLayout l = layOutWindow({700, 600, 40, 0, true});
    ASSERT_FALSE(l.logoVisible);
    EXPECT_EQ(l.strip.left, l.drawArea.left);
    EXPECT_GE(layOutWindow({50, 20, 42, 0, false}).strip.width, 0);
}

}  // namespace
}  // namespace velna
