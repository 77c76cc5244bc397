// What the Open command puts on one element: an airfoil, a texture.

#include <array>
#include <functional>

#include "FileCommandsFixture.h"

namespace velna::test {
namespace {

using Toolbar::Key;
using Import = FileCommandsFixture;

bool someHalfLoaded(const PanelSolid& panel) {
    return panel.Left.picture.texture_loaded || panel.Right.picture.texture_loaded;
}

TEST_F(Import, AnAirfoilGoesToTheCurrentWingWithEitherLineEnd) {
    for (const char* end : {"\r\n", "\n"}) {
        std::string points = "title";
        for (const char* point : {"1 0", "0.5 -0.05", "0 0", "0.5 0.05", "1 0"})
            points += end + std::string(point);
        writeFile(file("a.xy"), points + end);
        Wings(1).init(project.defaultColor);
        Main.savedProject = true;
        answerFile(file("a.xy"), 2);
        program.toolbar.click(Key::Open);
        EXPECT_EQ(Wings(1).nb, 5);
        EXPECT_EQ(Wings(1).thickness1, 0.1);
        EXPECT_FALSE(Main.savedProject);
    }
}

TEST_F(Import, ATextureGoesToTheElementOfTheTabAndACancelTakesItAway) {
    struct Row {
        int tab;
        std::function<std::string()> path, title;
    };
    const Row rows[] = {
        {PanelTab::fuselage, [] { return Fuselages(1).texture_filename; },
         [] { return Fuselages(1).qualified_texture_filename; }},
        {PanelTab::wing, [] { return Wings(1).texture_filename(); },
         [] { return Wings(1).qualified_texture_filename; }},
        {PanelTab::stabilizer, [] { return Stabilizer.texture_filename(); },
         [] { return Stabilizer.qualified_texture_filename; }},
        {PanelTab::rudder, [] { return Rudder.texture_filename; },
         [] { return Rudder.qualified_texture_filename; }},
    };
    pictures.pictures[file("p.bmp")] = {2, 2, std::vector<unsigned char>(12, 7)};
    for (const Row& row : rows) {
        Main.selectTab(row.tab);
        answerFile(file("p.bmp"), 3);
        program.toolbar.click(Key::Open);
        EXPECT_EQ(row.path(), file("p.bmp"));
        EXPECT_EQ(row.title(), "p.bmp");
        Main.selectTab(row.tab);
        answerFile("", 3);
        program.toolbar.click(Key::Open);
        EXPECT_EQ(row.path(), "");
        EXPECT_EQ(row.title(), "");
    }
}

TEST_F(Import, ATitleWithALineEndStaysInItsLine) {
    const std::string odd = file("p\r\nq.bmp");
    pictures.pictures[odd] = {2, 2, std::vector<unsigned char>(12, 7)};
    Main.selectTab(PanelTab::wing);
    answerFile(odd, 3);
    program.toolbar.click(Key::Open);
    EXPECT_EQ(Wings(1).texture_filename(), odd);
    EXPECT_EQ(Wings(1).qualified_texture_filename, "p__q.bmp");
}

TEST_F(Import, TheElectronicsTabHasNoTexture) {
    Main.selectTab(PanelTab::electronics);
    answerFile(file("p.bmp"), 3);
    program.toolbar.click(Key::Open);
    EXPECT_TRUE(Main.savedProject);
    EXPECT_EQ(Fuselages(1).texture_filename, "");
    EXPECT_EQ(Wings(1).texture_filename(), "");
}

TEST_F(Import, WhatCouldNotBeImportedLeavesNothingToSave) {
    writeFile(file("empty.xy"), "");
    for (const std::string& path : {file("missing.xy"), file("empty.xy"), folder.string()}) {
        Main.savedProject = true;
        answerFile(path, 2);
        program.toolbar.click(Key::Open);
        EXPECT_TRUE(Main.savedProject) << path;
    }
    // Too few numbers: the points read so far stand.
    writeFile(file("short.xy"), "title\r\n1 0\r\nno number\r\n");
    answerFile(file("short.xy"), 2);
    program.toolbar.click(Key::Open);
    EXPECT_EQ(Wings(1).nb, 2);
    EXPECT_FALSE(Main.savedProject);
}

TEST_F(Import, ACancelWithNoTextureToTakeAwayLeavesNothingToSave) {
    Main.selectTab(PanelTab::wing);
    Main.savedProject = true;
    answerFile("", 3);
    program.toolbar.click(Key::Open);
    EXPECT_TRUE(Main.savedProject);
    Wings(1).qualified_texture_filename = "wing.bmp";
    answerFile("", 3);
    program.toolbar.click(Key::Open);
    EXPECT_TRUE(Wings(1).qualified_texture_filename.empty());
    EXPECT_FALSE(Main.savedProject);
}

/// The pictures are read anew although their names are those of before.
TEST_F(Import, APictureOfTheSameNameIsReadAgain) {
    const std::string picture = (folder / "p.bmp").string();
    for (const unsigned char shade : std::array<unsigned char, 2>{7, 9}) {
        pictures.pictures[picture] = {2, 2, std::vector<unsigned char>(12, shade)};
        Main.selectTab(PanelTab::rudder);
        answerFile(picture, 3);
        program.toolbar.click(Key::Open);
        ASSERT_TRUE(solids.rudder.picture.texture_loaded);
        EXPECT_EQ(solids.rudder.picture.texels->front(), shade);
    }
}

TEST_F(Import, OpenReadsAPictureAgainThatHasChangedUnderItsName) {
    const std::string picture = (folder / "p.bmp").string();
    for (const unsigned char shade : std::array<unsigned char, 2>{7, 9}) {
        pictures.pictures[picture] = {2, 2, std::vector<unsigned char>(12, shade)};
        if (shade == 7) {
            Rudder.texture_filename = picture;
            Rudder.qualified_texture_filename = "p.bmp";
            answerFile(file("p.vln"), 1);
            program.toolbar.click(Key::Save);
        }
        answerFile(file("p.vln"), 1);
        program.toolbar.click(Key::Open);
        ASSERT_EQ(Rudder.texture_filename, picture);
        ASSERT_TRUE(solids.rudder.picture.texture_loaded);
        EXPECT_EQ(solids.rudder.picture.texels->front(), shade);
    }
}

TEST_F(Import, ARemovedPictureIsNotLoadedAnyMore) {
    pictures.pictures[(folder / "p.bmp").string()] = {2, 2, std::vector<unsigned char>(12, 7)};
    const std::pair<int, std::function<bool()>> elements[] = {
        {PanelTab::fuselage, [] { return solids.fuselages(1).picture.texture_loaded; }},
        {PanelTab::wing, [] { return someHalfLoaded(solids.wings(1)); }},
        {PanelTab::stabilizer, [] { return someHalfLoaded(solids.stabilizer); }},
        {PanelTab::rudder, [] { return solids.rudder.picture.texture_loaded; }},
    };
    for (const auto& [tab, loaded] : elements) {
        Main.selectTab(tab);
        dialogs.files = {{(folder / "p.bmp").string(), 3}, {"", 3}};
        program.toolbar.click(Key::Open);
        EXPECT_TRUE(loaded()) << tab;
        Main.selectTab(tab);
        program.toolbar.click(Key::Open);
        EXPECT_FALSE(loaded()) << tab;
    }
}

}  // namespace
}  // namespace velna::test
