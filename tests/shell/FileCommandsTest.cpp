#include "model/Fuselage.h"
#include "model/ObjectList.h"
#include "model/Plane.h"
#include "model/Prefs.h"
#include "output/Progress.h"
#include "shell/FileCommands.h"
#include "shell/ToolbarCommands.h"
#include "support/Impatient.h"
#include "support/ShellFixture.h"

namespace velna::test {
namespace {

using Toolbar::Key;

class FileCommands : public ShellFixture {
protected:
    void SetUp() override {
        ShellFixture::SetUp();
        start();
    }
    std::string file(const std::string& title) const { return (folder / title).string(); }
    void answerFile(const std::string& path, int filterIndex) {
        dialogs.files.push_back({path, filterIndex});
    }
    void TearDown() override {
        progress = nullptr;
        ShellFixture::TearDown();
    }
    void saveAs(const std::string& title, int filterIndex) {
        answerFile(file(title), filterIndex);
        Toolbar::click(Key::Save);
    }
};

TEST_F(FileCommands, NewAsksAndNoKeepsTheProject) {
    Wings(1).span = 1;
    dialogs.yesNo = {false};
    Toolbar::click(Key::New);
    EXPECT_EQ(dialogs.asked[0].text, "Do you really want to reset your project ?");
    EXPECT_EQ(dialogs.asked[0].icon, BoxIcon::Exclamation);
    EXPECT_FALSE(dialogs.asked[0].defaultYes);
    EXPECT_EQ(Wings(1).span, 1);
}

TEST_F(FileCommands, NewResetsEverythingButTheSavedState) {
    Wings(1).span = 1;
    Rudder.offset1 = 9;
    for (Control plus : {Control::IndexWingPlusButton, Control::IndexFusPlusButton,
                         Control::IndexServosPlusButton})
        Main.buttonPressed(plus, 0);
    Main.savedProject = false;
    ObjectList.setShown(1, false);
    dialogs.yesNo = {true};
    Toolbar::click(Key::New);
    EXPECT_EQ(Wings(1).span, 700);
    EXPECT_EQ(Rudder.offset1, 0);
    EXPECT_EQ(Prefs.units, millimetres);
    for (int count :
         {nbWings, currentWing, nbFuselages, currentFuselage, nbEquipments, currentEquipment})
        EXPECT_EQ(count, 1);
    EXPECT_TRUE(ObjectList.shown(1));
    EXPECT_FALSE(Main.savedProject);
    EXPECT_EQ(Main.controls[Control::SpanText].text, "1400");
}

TEST_F(FileCommands, NewOnAnInchProjectConvertsTheMillimetreDefault) {
    Prefs.selectUnit(inches);
    Prefs.units = inches;
    dialogs.yesNo = {true};
    Toolbar::click(Key::New);
    EXPECT_EQ(Prefs.units, inches);
    EXPECT_DOUBLE_EQ(Wings(1).span, 700 / 25.4);
    EXPECT_DOUBLE_EQ(Fuselages(1).pos(3), 800 / 25.4);
    EXPECT_DOUBLE_EQ(Equipments(1).length, 30 / 25.4);
    EXPECT_EQ(Main.controls[Control::SpanStabText].text, "19.69");
}

TEST_F(FileCommands, SavedAndOpenedAgainIsTheSameAircraft) {
    Wings(1).span = 650;
    Main.savedProject = false;
    answerFile(file("a.vln"), 1);
    Toolbar::click(Key::Save);
    EXPECT_TRUE(Main.savedProject);
    Wings(1).span = 1;
    answerFile(file("a.vln"), 1);
    Toolbar::click(Key::Open);
    EXPECT_EQ(Wings(1).span, 650);
    EXPECT_EQ(Main.controls[Control::SpanText].text, "1300");
    EXPECT_EQ(projectDirectory, folder.string() + "/");
}

TEST_F(FileCommands, OpeningOverAnUnsavedProjectAsks) {
    answerFile(file("a.vln"), 1);
    Toolbar::click(Key::Save);
    Main.savedProject = false;
    Wings(1).span = 1;
    answerFile(file("a.vln"), 1);
    dialogs.yesNo = {false, true};
    Main.initSideView();
    Toolbar::click(Key::Open);
    EXPECT_EQ(dialogs.asked.back().text,
              "The current project has not been saved and will be lost\nDo you want to proceed ?");
    EXPECT_EQ(Wings(1).span, 1);
    // No ends the whole command: the view stays.
    EXPECT_EQ(Main.mode, ViewMode::Side);
    answerFile(file("a.vln"), 1);
    Toolbar::click(Key::Open);
    EXPECT_EQ(Wings(1).span, 700);
    EXPECT_EQ(Main.mode, ViewMode::VTop);
}

TEST_F(FileCommands, ACancelledOpenStillEntersTheTopViewAndRendersTwice) {
    Main.initFrontView();
    const int swaps = GlTape::count("SwapBuffers");
    answerFile("", 1);
    Toolbar::click(Key::Open);
    EXPECT_EQ(Main.mode, ViewMode::VTop);
    EXPECT_EQ(GlTape::count("SwapBuffers"), swaps + 2);
}

TEST_F(FileCommands, OpenDropsTheBackgroundPictureOfTheViewEvenWhenCancelled) {
    Main.pictures[ViewMode::VTop].shown = true;
    Main.pictures[ViewMode::Side].shown = true;
    answerFile("", 1);
    Toolbar::click(Key::Open);
    EXPECT_FALSE(Main.pictures[ViewMode::VTop].shown);
    EXPECT_TRUE(Main.pictures[ViewMode::Side].shown);
}

TEST_F(FileCommands, ARefusedVersionShowsItsMessage) {
    writeFile(file("old.vln"), "# VELNA File Format V0.1\r\n1\r\n");
    answerFile(file("old.vln"), 1);
    Toolbar::click(Key::Open);
    EXPECT_EQ(dialogs.asked.back().text, "The vln file version 0.1.x is not any more supported");
    EXPECT_EQ(Wings(1).span, 700);
}

TEST_F(FileCommands, AnAirfoilGoesToTheCurrentWingWithEitherLineEnd) {
    for (const char* end : {"\r\n", "\n"}) {
        std::string points = "title";
        for (const char* point : {"1 0", "0.5 -0.05", "0 0", "0.5 0.05", "1 0"})
            points += end + std::string(point);
        writeFile(file("a.xy"), points + end);
        Wings(1).init();
        Main.savedProject = true;
        answerFile(file("a.xy"), 2);
        Toolbar::click(Key::Open);
        EXPECT_EQ(Wings(1).nb, 5);
        EXPECT_EQ(Wings(1).thickness1, 0.1);
        EXPECT_FALSE(Main.savedProject);
    }
}

TEST_F(FileCommands, ATextureGoesToTheElementOfTheTabAndACancelTakesItAway) {
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
        Toolbar::click(Key::Open);
        EXPECT_EQ(row.path(), file("p.bmp"));
        EXPECT_EQ(row.title(), "p.bmp");
        Main.selectTab(row.tab);
        answerFile("", 3);
        Toolbar::click(Key::Open);
        EXPECT_EQ(row.path(), "");
        EXPECT_EQ(row.title(), "");
    }
}

TEST_F(FileCommands, ATitleWithALineEndStaysInItsLine) {
    const std::string odd = file("p\r\nq.bmp");
    pictures.pictures[odd] = {2, 2, std::vector<unsigned char>(12, 7)};
    Main.selectTab(PanelTab::wing);
    answerFile(odd, 3);
    Toolbar::click(Key::Open);
    EXPECT_EQ(Wings(1).texture_filename(), odd);
    EXPECT_EQ(Wings(1).qualified_texture_filename, "p__q.bmp");
}

TEST_F(FileCommands, TheElectronicsTabHasNoTexture) {
    Main.selectTab(PanelTab::electronics);
    answerFile(file("p.bmp"), 3);
    Toolbar::click(Key::Open);
    EXPECT_TRUE(Main.savedProject);
    EXPECT_EQ(Fuselages(1).texture_filename, "");
    EXPECT_EQ(Wings(1).texture_filename(), "");
}

TEST_F(FileCommands, AFailedSaveTellsTheReasonAndLeavesTheStateAsItWas) {
    Main.savedProject = false;
    answerFile(folder.string(), 1);  // a directory
    Toolbar::click(Key::Save);
    EXPECT_FALSE(Main.savedProject);
    EXPECT_EQ(dialogs.story(), "save message");
    EXPECT_EQ(dialogs.asked.back().icon, BoxIcon::Exclamation);
}

TEST_F(FileCommands, AFailedExportTellsTheReasonToo) {
    for (const int kind : {2, 3}) {
        dialogs.asked.clear();
        answerFile(file("missing/folder/x"), kind);
        Toolbar::click(Key::Save);
        EXPECT_EQ(dialogs.story(), "save message") << kind;
    }
}

TEST_F(FileCommands, AnExportLeavesTheSavedStateAlone) {
    Main.savedProject = false;
    answerFile(file("a.wrl"), 2);
    Toolbar::click(Key::Save);
    EXPECT_FALSE(Main.savedProject);
    EXPECT_TRUE(contentOf(file("a.wrl")).starts_with("#VRML V2.0 utf8\r\n"));
}

TEST_F(FileCommands, TheModelExportRefillsThePanelWithTheFuselageItLeavesCurrent) {
    ++nbFuselages;
    Fuselage::resizeFuselages();
    Fuselage::addFuselage();
    Fuselages(2).height(1) = 77;
    currentFuselage = 1;
    answerFile(file("a.wrl"), 2);
    Toolbar::click(Key::Save);
    EXPECT_EQ(currentFuselage, 2);
    EXPECT_EQ(Main.controls[Control::HeightFuselageText].text, "77");
}

TEST_F(FileCommands, TheDrawingIsOfTheViewOnScreen) {
    std::vector<std::string> drawings;
    for (const Key view : {Key::VTop, Key::Front, Key::Side, Key::HTop}) {
        Toolbar::click(view);
        answerFile(file("a.dxf"), 3);
        Toolbar::click(Key::Save);
        drawings.push_back(contentOf(file("a.dxf")));
    }
    for (std::size_t i = 0; i < drawings.size(); ++i)
        for (std::size_t j = 0; j < i; ++j) EXPECT_NE(drawings[i], drawings[j]);
}

TEST_F(FileCommands, ADrawingLeavesTheHandlesWhereTheyAreOnScreen) {
    Toolbar::click(Key::VTop);
    const Outline before = Wings(1).vtopPoints;
    answerFile(file("a.dxf"), 3);
    Toolbar::click(Key::Save);
    EXPECT_EQ(Wings(1).vtopPoints, before);
}

TEST_F(FileCommands, ACancelledSaveDoesNothing) {
    answerFile("", 2);
    Toolbar::click(Key::Save);
    EXPECT_EQ(dialogs.story(), "save");
}

TEST_F(FileCommands, TheDialogsOfferTheKindsInTheirOrder) {
    dialogs.files = {{"", 1}, {"", 1}};
    Toolbar::click(Key::Open);
    EXPECT_EQ(dialogs.asked.back().text,
              "Velna Project (*.vln)|*.vln|Airfoil (*.xy)|*.xy|"
              "Texture Image (*.bmp;*.jpg)|*.bmp;*.jpg|");
    Toolbar::click(Key::Save);
    EXPECT_EQ(dialogs.asked.back().text,
              "Velna Project (*.vln)|*.vln|VRML2.0 Format (*.wrl)|*.wrl|DXF Format (*.dxf)|*.dxf");
}

TEST_F(FileCommands, AnExportThatShowsAHiddenFuselageIsNoChangeToBeSaved) {
    ObjectList.setShown(1, false);
    for (const bool saved : {true, false}) {
        ObjectList.setShown(1, false);
        Main.savedProject = saved;
        saveAs("a.wrl", 2);
        EXPECT_TRUE(ObjectList.shown(1));
        EXPECT_EQ(Main.savedProject, saved);
        saveAs("a.dxf", 3);
        EXPECT_EQ(Main.savedProject, saved);
    }
}

TEST_F(FileCommands, ACancelledExportSaysNothingAndLeavesTheOldFile) {
    Fuselages(1).nb_cross = 9000;
    Fuselages(1).initArrays();
    Toolbar::click(Key::Front);
    // The watcher outlives the test's frame; the fixture takes it away.
    static Impatient user;
    progress = &user;
    for (const int kind : {2, 3}) {
        dialogs.asked.clear();
        writeFile((folder / "a").string(), "old");
        saveAs("a", kind);
        EXPECT_EQ(dialogs.story(), "save") << kind;
        EXPECT_EQ(contentOf((folder / "a").string()), "old") << kind;
    }
}

TEST_F(FileCommands, ARemovedPictureIsNotLoadedAnyMore) {
    pictures.pictures[(folder / "p.bmp").string()] = {2, 2, std::vector<unsigned char>(12, 7)};
    const std::pair<int, std::function<bool()>> elements[] = {
        {PanelTab::fuselage, [] { return Fuselages(1).texture_loaded; }},
        {PanelTab::wing,
         [] { return Wings(1).Left->texture_loaded || Wings(1).Right->texture_loaded; }},
        {PanelTab::stabilizer,
         [] { return Stabilizer.Left->texture_loaded || Stabilizer.Right->texture_loaded; }},
        {PanelTab::rudder, [] { return Rudder.texture_loaded; }},
    };
    for (const auto& [tab, loaded] : elements) {
        Main.selectTab(tab);
        dialogs.files = {{(folder / "p.bmp").string(), 3}, {"", 3}};
        Toolbar::click(Key::Open);
        EXPECT_TRUE(loaded()) << tab;
        Main.selectTab(tab);
        Toolbar::click(Key::Open);
        EXPECT_FALSE(loaded()) << tab;
    }
}

}  // namespace
}  // namespace velna::test
