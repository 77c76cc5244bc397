#include <algorithm>
#include <map>

#include "FileCommandsFixture.h"
#include "support/Impatient.h"

namespace velna::test {
namespace {

using Toolbar::Key;
using FileCommands = FileCommandsFixture;

TEST_F(FileCommands, NewAsksAndNoKeepsTheProject) {
    Wings(1).span = 1;
    dialogs.yesNo = {false};
    program.toolbar.click(Key::New);
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
    program.toolbar.click(Key::New);
    EXPECT_EQ(Wings(1).span, 700);
    EXPECT_EQ(Rudder.offset1, 0);
    EXPECT_EQ(project.units, millimetres);
    for (int count :
         {nbWings, currentWing, nbFuselages, currentFuselage, nbEquipments, currentEquipment})
        EXPECT_EQ(count, 1);
    EXPECT_TRUE(ObjectList.shown(1));
    EXPECT_FALSE(Main.savedProject);
    EXPECT_EQ(Main.controls[Control::SpanText].text, "1400");
}

TEST_F(FileCommands, NewOnAnInchProjectConvertsTheMillimetreDefault) {
    Main.Prefs.selectUnit(inches);
    project.units = inches;
    dialogs.yesNo = {true};
    program.toolbar.click(Key::New);
    EXPECT_EQ(project.units, inches);
    EXPECT_DOUBLE_EQ(Wings(1).span, 700 / 25.4);
    EXPECT_DOUBLE_EQ(Fuselages(1).pos(3), 800 / 25.4);
    EXPECT_DOUBLE_EQ(Equipments(1).length, 30 / 25.4);
    EXPECT_EQ(Main.controls[Control::SpanStabText].text, "19.69");
}

TEST_F(FileCommands, NewLeavesTheSavedStateInEitherUnit) {
    for (const int unit : {millimetres, inches})
        for (const bool saved : {true, false}) {
            Main.Prefs.selectUnit(unit);
            Main.savedProject = saved;
            dialogs.yesNo = {true};
            program.toolbar.click(Key::New);
            EXPECT_EQ(project.units, unit);
            EXPECT_EQ(Main.savedProject, saved);
        }
}

TEST_F(FileCommands, SavedAndOpenedAgainIsTheSameAircraft) {
    Wings(1).span = 650;
    Main.savedProject = false;
    answerFile(file("a.vln"), 1);
    program.toolbar.click(Key::Save);
    EXPECT_TRUE(Main.savedProject);
    Wings(1).span = 1;
    answerFile(file("a.vln"), 1);
    program.toolbar.click(Key::Open);
    EXPECT_EQ(Wings(1).span, 650);
    EXPECT_EQ(Main.controls[Control::SpanText].text, "1300");
    EXPECT_EQ(project.projectDirectory, folder.string() + "/");
}

/// The form of the preferences shows the unit of what has been opened.
TEST_F(FileCommands, OpenTicksTheUnitOfTheProject) {
    const std::string projects = std::string(VELNA_TEST_DATA) + "/projects/current/";
    for (const int unit : {inches, millimetres}) {
        answerFile(projects + (unit == inches ? "inches.vln" : "default.vln"), 1);
        program.toolbar.click(Key::Open);
        EXPECT_EQ(project.units, unit);
        EXPECT_EQ(Main.Prefs.InchesOption, unit == inches);
        EXPECT_EQ(Main.Prefs.MillimetersOption, unit == millimetres);
    }
}

TEST_F(FileCommands, OpeningOverAnUnsavedProjectAsks) {
    answerFile(file("a.vln"), 1);
    program.toolbar.click(Key::Save);
    Main.savedProject = false;
    Wings(1).span = 1;
    answerFile(file("a.vln"), 1);
    dialogs.yesNo = {false, true};
    Main.initSideView();
    program.toolbar.click(Key::Open);
    EXPECT_EQ(dialogs.asked.back().text,
              "The current project has not been saved and will be lost\nDo you want to proceed ?");
    EXPECT_EQ(Wings(1).span, 1);
    // No ends the whole command: the view stays.
    EXPECT_EQ(Main.view.mode, ViewMode::Side);
    answerFile(file("a.vln"), 1);
    program.toolbar.click(Key::Open);
    EXPECT_EQ(Wings(1).span, 700);
    EXPECT_EQ(Main.view.mode, ViewMode::VTop);
}

TEST_F(FileCommands, ACancelledOpenStillEntersTheTopViewAndRendersTwice) {
    Main.initFrontView();
    const int swaps = GlTape::count("SwapBuffers");
    answerFile("", 1);
    program.toolbar.click(Key::Open);
    EXPECT_EQ(Main.view.mode, ViewMode::VTop);
    EXPECT_EQ(GlTape::count("SwapBuffers"), swaps + 2);
}

TEST_F(FileCommands, OpenDropsTheBackgroundPictureOfTheViewEvenWhenCancelled) {
    Main.pictures[ViewMode::VTop].shown = true;
    Main.pictures[ViewMode::Side].shown = true;
    answerFile("", 1);
    program.toolbar.click(Key::Open);
    EXPECT_FALSE(Main.pictures[ViewMode::VTop].shown);
    EXPECT_TRUE(Main.pictures[ViewMode::Side].shown);
}

TEST_F(FileCommands, ARefusedVersionShowsItsMessage) {
    writeFile(file("old.vln"), "# VELNA File Format V0.1\r\n1\r\n");
    answerFile(file("old.vln"), 1);
    program.toolbar.click(Key::Open);
    EXPECT_EQ(dialogs.asked.back().text, "The vln file version 0.1.x is not any more supported");
    EXPECT_EQ(Wings(1).span, 700);
}

TEST_F(FileCommands, WhatIsNoProjectKeepsTheAircraftAndIsNamedInOneBox) {
    writeFile(file("photo.vln"), std::string("\xff\xd8\xff\xe0\0\x10JFIF", 10));
    writeFile(file("empty.vln"), "");
    writeFile(file("letter.vln"), "Dear Sir,\n\n1\nWing Type\n16\n700\n");
    writeFile(file("old.vln"), "# something V0.1\n1\n");
    for (const std::string title :
         {"photo.vln", "empty.vln", "letter.vln", "old.vln", "missing.vln", "program"}) {
        SCOPED_TRACE(title);
        dialogs.asked.clear();
        Wings(1).span = 651;
        project.projectDirectory = "/before/";
        Main.savedProject = false;
        Main.initSideView();
        answerFile(file(title), 1);
        program.toolbar.click(Key::Open);
        EXPECT_EQ(dialogs.story(), "open message");
        EXPECT_NE(dialogs.asked.back().text.find(title), std::string::npos);
        EXPECT_EQ(dialogs.asked.back().icon, BoxIcon::Exclamation);
        EXPECT_EQ(Wings(1).span, 651);
        EXPECT_EQ(project.projectDirectory, "/before/");
        EXPECT_FALSE(Main.savedProject);
        EXPECT_EQ(Main.view.mode, ViewMode::VTop);
    }
}

TEST_F(FileCommands, AProjectCutShortOrWithAnotherFirstLineIsReadAsItStands) {
    saveAs("whole.vln", 1);
    const std::string whole = contentOf(file("whole.vln"));
    const auto opened = [&](const std::string& bytes) {
        writeFile(file("a.vln"), bytes);
        Wings(1).span = 1;
        Main.savedProject = true;
        dialogs.asked.clear();
        answerFile(file("a.vln"), 1);
        program.toolbar.click(Key::Open);
        EXPECT_EQ(dialogs.story(), "open");
        return Wings(1).span;
    };
    EXPECT_EQ(opened(whole.substr(0, 29)), 700);
    EXPECT_EQ(opened("# VELNA File Format V"), 700);
    EXPECT_EQ(opened("a line of one's own" + whole.substr(27)), 700);
    // The first wing is all that need be there: what follows it is missing here.
    EXPECT_EQ(opened(whole.substr(27, whole.find("Fuselage") - 27)), 700);
}

TEST_F(FileCommands, AFailedSaveTellsTheReasonAndLeavesTheStateAsItWas) {
    for (const bool saved : {false, true}) {
        dialogs.asked.clear();
        Main.savedProject = saved;
        answerFile(folder.string(), 1);  // a directory
        program.toolbar.click(Key::Save);
        EXPECT_EQ(Main.savedProject, saved);
        EXPECT_EQ(dialogs.story(), "save message");
        EXPECT_EQ(dialogs.asked.back().icon, BoxIcon::Exclamation);
    }
}

TEST_F(FileCommands, OpenShowsAllFuselagesOfAProjectThatTellsNoneHidden) {
    ObjectList.setShown(1, false);
    answerFile(VELNA_TEST_DATA "/projects/legacy/1.0.0_two_wings_two_fuselages.vln", 1);
    program.toolbar.click(Key::Open);
    EXPECT_EQ(nbFuselages, 2);
    EXPECT_TRUE(ObjectList.shown(1));
    EXPECT_TRUE(ObjectList.shown(2));
}

TEST_F(FileCommands, ADrawingLeavesTheViewAtItsScale) {
    Main.initSideView();
    const double fitted = Main.view.zoom;
    Main.view.focusZoom = true;
    Main.refreshDrawingArea();
    const double zoom = Main.view.zoom;
    ASSERT_NE(zoom, fitted);
    saveAs("a.dxf", 3);
    EXPECT_EQ(Main.view.zoom, zoom);
    EXPECT_FALSE(Main.checked(Control::LockZoom));
}

TEST_F(FileCommands, TheBoxesBarStandsAtTheBoxThatIsEditedAfterOpen) {
    for (int i = 0; i < 2; ++i) Main.buttonPressed(Control::IndexServosPlusButton, 0);
    saveAs("three.vln", 1);
    ASSERT_EQ(Main.controls[Control::IndexServosScroll].value, 3);
    answerFile(file("three.vln"), 1);
    program.toolbar.click(Key::Open);
    EXPECT_EQ(nbEquipments, 3);
    EXPECT_EQ(Main.controls[Control::IndexServosScroll].maximum, 3);
    EXPECT_EQ(Main.controls[Control::IndexServosScroll].value, currentEquipment);
}

TEST_F(FileCommands, NewAndOpenPutTheCataloguesBackToCustom) {
    for (const Key key : {Key::New, Key::Open}) {
        Main.controls[Control::ServosCombo].value = 7;
        dialogs.yesNo = {true};
        answerFile(VELNA_TEST_DATA "/projects/legacy/1.0.0_two_wings_two_fuselages.vln", 1);
        program.toolbar.click(key);
        EXPECT_EQ(Main.controls[Control::ServosCombo].value, 0);
    }
}

TEST_F(FileCommands, AFailedExportTellsTheReasonToo) {
    for (const int kind : {2, 3}) {
        dialogs.asked.clear();
        answerFile(file("missing/folder/x"), kind);
        program.toolbar.click(Key::Save);
        EXPECT_EQ(dialogs.story(), "save message") << kind;
    }
}

TEST_F(FileCommands, AFailureIsToldOnceOnStandardErrorAndOnceInABox) {
    Rudder.texture_filename = "/gone.bmp";
    Rudder.qualified_texture_filename = "gone.bmp";
    const std::map<int, std::string> told{
        {1,
         "a.vln could not be saved completely.\nThe picture gone.bmp could not be put beside "
         "the project (cannot be read). All else has been saved."},
        {2,
         "a.wrl could not be exported completely.\nThe picture gone.bmp could not be put beside "
         "the model (cannot be read). All else has been exported."}};
    for (const auto& [kind, text] : told) {
        dialogs.asked.clear();
        testing::internal::CaptureStderr();
        saveAs(kind == 1 ? "a.vln" : "a.wrl", kind);
        std::string line = "velna: " + text + "\n";
        line[line.find('\n')] = ' ';
        EXPECT_EQ(testing::internal::GetCapturedStderr(), line);
        EXPECT_EQ(dialogs.story(), "save message");
        EXPECT_EQ(dialogs.asked.back().text, text);
    }
    testing::internal::CaptureStderr();
    answerFile(folder.string(), 1);
    program.toolbar.click(Key::Save);
    const std::string reported = testing::internal::GetCapturedStderr();
    EXPECT_EQ(std::ranges::count(reported, '\n'), 1) << reported;
}

TEST_F(FileCommands, AQuoteInAPicturesNameIsStoredAsALowLine) {
    Main.selectTab(PanelTab::rudder);
    answerFile("/pictures/3\" fin.bmp", 3);
    program.toolbar.click(Key::Open);
    EXPECT_EQ(Rudder.texture_filename, "/pictures/3\" fin.bmp");
    EXPECT_EQ(Rudder.qualified_texture_filename, "3_ fin.bmp");
}

TEST_F(FileCommands, AnExportLeavesTheSavedStateAlone) {
    Main.savedProject = false;
    answerFile(file("a.wrl"), 2);
    program.toolbar.click(Key::Save);
    EXPECT_FALSE(Main.savedProject);
    EXPECT_TRUE(contentOf(file("a.wrl")).starts_with("#VRML V2.0 utf8\r\n"));
}

TEST_F(FileCommands, TheModelExportRefillsThePanelWithTheFuselageItLeavesCurrent) {
    ++nbFuselages;
    Fuselage::resizeFuselages(project);
    Fuselage::addFuselage(project);
    Fuselages(2).height(1) = 77;
    currentFuselage = 1;
    answerFile(file("a.wrl"), 2);
    program.toolbar.click(Key::Save);
    EXPECT_EQ(currentFuselage, 2);
    EXPECT_EQ(Main.controls[Control::HeightFuselageText].text, "77");
}

TEST_F(FileCommands, TheDrawingIsOfTheViewOnScreen) {
    std::vector<std::string> drawings;
    for (const Key view : {Key::VTop, Key::Front, Key::Side, Key::HTop}) {
        program.toolbar.click(view);
        answerFile(file("a.dxf"), 3);
        program.toolbar.click(Key::Save);
        drawings.push_back(contentOf(file("a.dxf")));
    }
    for (std::size_t i = 0; i < drawings.size(); ++i)
        for (std::size_t j = 0; j < i; ++j) EXPECT_NE(drawings[i], drawings[j]);
}

TEST_F(FileCommands, AnExportDrawsTheViewAgainWithWhatItHasShown) {
    Main.buttonPressed(Control::IndexFusPlusButton, 0);
    Fuselages(1).width(1) = 444;
    for (const char* target : {"a.wrl", "missing/folder/a.wrl"}) {
        ObjectList.setShown(1, false);
        program.toolbar.click(Key::VTop);
        // Its outline stands at another scale, of a view entered long ago.
        Main.views.fuselages(1).vtopPoints = Fuselages(1).computeVTopPoints({50, 0, 0});
        drawArea.calls.clear();
        saveAs(target, 2);
        ASSERT_TRUE(ObjectList.shown(1)) << target;
        ASSERT_FALSE(drawArea.calls.empty()) << target;
        EXPECT_EQ(drawArea.calls[0].kind, SurfaceCall::Kind::Clear) << target;
        EXPECT_NEAR(Main.views.fuselages(1).vtopPoints(1).x, Main.view.xoff + 222 * Main.view.zoom,
                    1e-9)
            << target;
    }
}

TEST_F(FileCommands, AnExportKeepsTheScaleThatKeyAHasGiven) {
    program.toolbar.click(Key::Side);
    Main.DrawArea_keydown('A', 0);
    const double near = Main.view.zoom;
    for (const int kind : {2, 3}) {
        saveAs("a", kind);
        EXPECT_EQ(Main.view.zoom, near) << kind;
    }
}

TEST_F(FileCommands, ADrawingLeavesTheHandlesWhereTheyAreOnScreen) {
    program.toolbar.click(Key::VTop);
    const Outline before = Main.views.wings(1).vtopPoints;
    answerFile(file("a.dxf"), 3);
    program.toolbar.click(Key::Save);
    EXPECT_EQ(Main.views.wings(1).vtopPoints, before);
}

TEST_F(FileCommands, ACancelledSaveDoesNothing) {
    answerFile("", 2);
    program.toolbar.click(Key::Save);
    EXPECT_EQ(dialogs.story(), "save");
}

TEST_F(FileCommands, TheDialogsOfferTheKindsInTheirOrder) {
    dialogs.files = {{"", 1}, {"", 1}};
    program.toolbar.click(Key::Open);
    EXPECT_EQ(dialogs.asked.back().text,
              "Velna Project (*.vln)|*.vln|Airfoil (*.xy)|*.xy|"
              "Texture Image (*.bmp;*.jpg)|*.bmp;*.jpg|"
              "Airfoil in any order (*.dat)|*.dat;*.txt;*.cor|");
    program.toolbar.click(Key::Save);
    EXPECT_TRUE(dialogs.asked.back().text.starts_with(
        "Velna Project (*.vln)|*.vln|VRML2.0 Format (*.wrl)|*.wrl|DXF Format (*.dxf)|*.dxf|"));
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
    program.toolbar.click(Key::Front);
    Impatient user;
    program.shell.progress = &user;
    for (const int kind : {2, 3}) {
        dialogs.asked.clear();
        writeFile((folder / "a").string(), "old");
        saveAs("a", kind);
        EXPECT_EQ(dialogs.story(), "save") << kind;
        EXPECT_EQ(contentOf((folder / "a").string()), "old") << kind;
    }
    program.shell.progress = nullptr;
}

}  // namespace
}  // namespace velna::test
