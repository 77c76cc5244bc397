#include "FileCommandsFixture.h"
#include "editor/HistoryStep.h"
#include "model/Equipment.h"
#include "support/GlCompare.h"
#include "support/GlTape.h"
#include "support/ObjectEdits.h"
#include "support/SameAircraft.h"

namespace velna::test {
namespace {

using Toolbar::Key;

class HistoryCommandsTest : public FileCommandsFixture {
protected:
    void undo() { program.toolbar.click(Key::Undo); }
    void redo() { program.toolbar.click(Key::Redo); }
    void type(Control box, const std::string& text) {
        Main.textEdited(box, text);
        Main.textKeyDown(box, text);
    }
    std::string undoText() const { return Main.controls[Control::UndoButton].text; }
    std::string redoText() const { return Main.controls[Control::RedoButton].text; }
    bool canUndo() const { return Main.controls[Control::UndoButton].enabled; }
    bool canRedo() const { return Main.controls[Control::RedoButton].enabled; }
};

TEST_F(HistoryCommandsTest, ThereIsNothingToUndoAtTheStart) {
    EXPECT_FALSE(canUndo());
    EXPECT_FALSE(canRedo());
    const Project start = project;
    undo();
    redo();
    EXPECT_EQ(project, start);
    EXPECT_TRUE(Main.savedProject);
}

TEST_F(HistoryCommandsTest, ATypedNumberIsUndoneInPanelAndModel) {
    const double chord = Wings(1).length2;
    const std::string shown = Main.controls[Control::LengthEText].text;
    type(Control::LengthEText, "77");
    EXPECT_EQ(undoText(), "Tip chord");
    EXPECT_EQ(Main.controls[Control::UndoStep].text, "Tip chord") << "the menu's entry";
    undo();
    EXPECT_EQ(Wings(1).length2, chord);
    EXPECT_EQ(Main.controls[Control::LengthEText].text, shown);
    EXPECT_FALSE(canUndo());
    EXPECT_EQ(redoText(), "Tip chord");
    redo();
    EXPECT_EQ(Wings(1).length2, 77);
    EXPECT_EQ(Main.controls[Control::LengthEText].text, "77");
}

TEST_F(HistoryCommandsTest, OneVisitToAFieldIsOneStep) {
    type(Control::LengthEText, "7");
    type(Control::LengthEText, "77");
    type(Control::LengthBText, "200");
    Main.endVisit();
    type(Control::LengthBText, "210");
    EXPECT_EQ(Main.history.stepCount(), 3U);
}

TEST_F(HistoryCommandsTest, ASliderIsOneStepADrag) {
    Main.selectTab(PanelTab::fuselage);
    for (int drag = 0; drag < 2; ++drag) {
        Main.holdSlider(Control::CurvatureSlider);
        for (int i = 1; i <= 20; ++i)
            Main.sliderChanged(Control::CurvatureSlider, 150 + 30 * drag + i);
        undo();
        EXPECT_EQ(Main.history.stepCount(), static_cast<std::size_t>(drag)) << "while it is held";
        Main.endGesture();
    }
    EXPECT_EQ(Main.history.stepCount(), 2U);
    EXPECT_EQ(undoText(), "Shape of the upper half");
    undo();
    EXPECT_EQ(Main.controls[Control::CurvatureSlider].value, 170);
}

TEST_F(HistoryCommandsTest, ADragIsOneStepAndTheViewStaysWhereItIs) {
    const SymWingSections start = Wings(1);
    const Transform at = Main.view.transform();
    const auto x = static_cast<float>((start.shift + start.span) * at.zoom + at.xoff);
    const auto y =
        static_cast<float>((start.pos1 + start.pos2 + start.length2 / 2) * at.zoom + at.yoff);
    Main.DrawArea_MouseMove(0, 0, x, y);
    Main.DrawArea_MouseDown(1, 0, x, y);
    for (float pixels = 1; pixels < 9; ++pixels) Main.DrawArea_MouseMove(1, 0, x, y + pixels);
    ASSERT_TRUE(Main.anyBusy());
    undo();
    EXPECT_TRUE(Main.anyBusy()) << "a drag is not undone before it is over";
    Main.DrawArea_MouseUp(1, 0, x, y + 8);
    ASSERT_NE(Wings(1).pos2, start.pos2);
    ASSERT_EQ(Main.history.stepCount(), 1U);
    EXPECT_EQ(undoText(), "Tip sweep");
    Main.view.zoom = 0.7;
    undo();
    EXPECT_EQ(Wings(1), start);
    EXPECT_EQ(Main.view.zoom, 0.7);
    EXPECT_EQ(Main.view.mode, ViewMode::VTop);
}

TEST_F(HistoryCommandsTest, SectionsThatAPressInsertsAndRemovesAreNamed) {
    program.toolbar.click(Key::Side);
    const MeshSections& body = Fuselages(1);
    const double middle = (body.pos(1) + body.pos(2)) / 2;
    const auto x = static_cast<float>(middle * Main.view.zoom + Main.view.xoff);
    const Point2D upper = Main.views.fuselage().side.top(1),
                  next = Main.views.fuselage().side.top(2);
    const auto y = static_cast<float>((upper.y + next.y) / 2);
    const int sections = body.nb_sections;
    const auto ctrlClick = [&](float atX, float atY) {
        Main.DrawArea_MouseMove(0, 0, atX, atY);
        Main.DrawArea_keydown(17, ShiftState::ctrl);
        Main.DrawArea_MouseDown(1, ShiftState::ctrl, atX, atY);
        Main.DrawArea_MouseUp(1, ShiftState::ctrl, atX, atY);
    };
    ctrlClick(x, y);
    ASSERT_EQ(body.nb_sections, sections + 1);
    EXPECT_EQ(undoText(), "Insert section");
    const SideEdges& edges = Main.views.fuselage().side;
    ctrlClick(static_cast<float>(edges.top(2).x),
              static_cast<float>((edges.top(2).y + edges.bottom(2).y) / 2));
    ASSERT_EQ(body.nb_sections, sections);
    EXPECT_EQ(undoText(), "Remove section");
    EXPECT_EQ(Main.history.stepCount(), 2U);
    undo();
    EXPECT_EQ(Fuselages(1).nb_sections, sections + 1);
    undo();
    EXPECT_EQ(Fuselages(1).nb_sections, sections);
}

TEST_F(HistoryCommandsTest, APressThatChangesNothingIsNoStepThoughItIsToBeSaved) {
    Main.DrawArea_MouseDown(1, 0, 3, 3);
    Main.DrawArea_MouseUp(1, 0, 3, 3);
    EXPECT_FALSE(Main.savedProject);
    EXPECT_FALSE(canUndo());
}

TEST_F(HistoryCommandsTest, TheSavedStateIsSavedAgain) {
    type(Control::LengthEText, "77");
    saveAs("a.vln", 1);
    ASSERT_TRUE(Main.savedProject);
    type(Control::LengthBText, "200");
    EXPECT_FALSE(Main.savedProject);
    undo();
    EXPECT_TRUE(Main.savedProject);
    undo();
    EXPECT_FALSE(Main.savedProject);
    redo();
    EXPECT_TRUE(Main.savedProject);
    redo();
    EXPECT_FALSE(Main.savedProject);
}

TEST_F(HistoryCommandsTest, AFailedSaveLeavesTheHistory) {
    type(Control::LengthEText, "77");
    answerFile(file("no/such/folder/a.vln"), 1);
    program.toolbar.click(Key::Save);
    EXPECT_FALSE(Main.savedProject);
    undo();
    EXPECT_NE(Wings(1).length2, 77);
    redo();
    EXPECT_EQ(Wings(1).length2, 77);
    EXPECT_FALSE(Main.savedProject);
}

TEST_F(HistoryCommandsTest, ColourTextureAndAirfoilAreSteps) {
    const SymWingSections start = Wings(1);
    dialogs.colours = {1122867};
    program.toolbar.click(Key::Palette);
    EXPECT_EQ(undoText(), "Colour");
    pictures.pictures[file("skin.bmp")] = plainPicture(4, 4);
    answerFile(file("skin.bmp"), 3);
    program.toolbar.click(Key::Open);
    EXPECT_EQ(undoText(), "Texture");
    answerFile("", 3);
    program.toolbar.click(Key::Open);
    EXPECT_EQ(undoText(), "Remove texture");
    writeFile(file("flat.xy"), "3\r\n1,0\r\n0,0.1\r\n1,0\r\n");
    answerFile(file("flat.xy"), 2);
    program.toolbar.click(Key::Open);
    EXPECT_EQ(undoText(), "Airfoil");
    ASSERT_EQ(Main.history.stepCount(), 4U);
    undo();
    undo();
    EXPECT_EQ(Wings(1).texture_filename(), file("skin.bmp"));
    undo();
    EXPECT_EQ(Wings(1).texture_filename(), "");
    undo();
    EXPECT_EQ(Wings(1), start);
}

TEST_F(HistoryCommandsTest, APictureThatHasVanishedDoesNotKeepTheStepFromComingBack) {
    pictures.pictures[file("skin.bmp")] = plainPicture(4, 4);
    answerFile(file("skin.bmp"), 3);
    program.toolbar.click(Key::Open);
    answerFile("", 3);
    program.toolbar.click(Key::Open);
    pictures.pictures.clear();
    undo();
    EXPECT_EQ(Wings(1).texture_filename(), file("skin.bmp"));
    redo();
    EXPECT_EQ(Wings(1).texture_filename(), "");
}

TEST_F(HistoryCommandsTest, UnitsComeBackBitForBitWithPanelCataloguesAndPicture) {
    const Project start = project;
    dialogs.inPreferences = [] {
        Main.Prefs.selectUnit(inches);
        program.preferences.CloseCommand_Click();
    };
    program.toolbar.click(Key::Prefs);
    ASSERT_EQ(project.units, inches);
    EXPECT_EQ(undoText(), "Change units");
    const std::size_t filled = window.cataloguesFilled.size();
    undo();
    EXPECT_TRUE(sameAircraft(start, project));
    EXPECT_TRUE(Main.Prefs.MillimetersOption);
    EXPECT_EQ(window.cataloguesFilled.size(), filled + 3);
    EXPECT_GT(Main.view.zoom, 0.05) << "fitted to the unit, else it would be out of sight";
    redo();
    EXPECT_EQ(project.units, inches);
    EXPECT_TRUE(Main.Prefs.InchesOption);
}

TEST_F(HistoryCommandsTest, ARescaleIsAStepAndARefusedOneIsNone) {
    const Project start = project;
    const auto rescale = [](const char* factor) {
        return [factor] {
            Main.Prefs.scaleTextKeyDown(factor);
            program.preferences.CloseCommand_Click();
        };
    };
    dialogs.inPreferences = rescale("0");
    program.toolbar.click(Key::Prefs);
    EXPECT_FALSE(canUndo());
    dialogs.inPreferences = rescale("200");
    program.toolbar.click(Key::Prefs);
    EXPECT_EQ(undoText(), "Scale");
    undo();
    EXPECT_TRUE(sameAircraft(start, project));
}

TEST_F(HistoryCommandsTest, NewBringsBackWhatWasNotSaved) {
    type(Control::LengthEText, "77");
    const Project former = project;
    dialogs.yesNo = {true};
    program.toolbar.click(Key::New);
    EXPECT_EQ(undoText(), "New");
    undo();
    EXPECT_TRUE(sameAircraft(former, project));
    EXPECT_FALSE(Main.savedProject);
    EXPECT_FALSE(canUndo());
    EXPECT_EQ(Main.controls[Control::LengthEText].text, "77");
    redo();
    EXPECT_NE(Wings(1).length2, 77);
}

TEST_F(HistoryCommandsTest, OpenBringsBackWhatWasNotSavedAndForgetsWhatWas) {
    saveAs("a.vln", 1);
    type(Control::LengthEText, "77");
    const Project former = project;
    dialogs.yesNo = {true};
    answerFile(file("a.vln"), 1);
    program.toolbar.click(Key::Open);
    EXPECT_EQ(undoText(), "Open");
    const std::string opened = Main.projectName;
    undo();
    EXPECT_TRUE(sameAircraft(former, project));
    EXPECT_EQ(Main.projectName, file("a.vln"));
    redo();
    EXPECT_EQ(Main.projectName, opened);
    undo();
    EXPECT_FALSE(Main.savedProject);
    saveAs("b.vln", 1);
    answerFile(file("a.vln"), 1);
    program.toolbar.click(Key::Open);
    EXPECT_FALSE(canUndo());
}

TEST_F(HistoryCommandsTest, AnOpenThatIsDeclinedOrRefusedLeavesTheHistory) {
    type(Control::LengthEText, "77");
    writeFile(file("no.vln"), "nothing of the kind");
    answerFile(file("no.vln"), 1);
    program.toolbar.click(Key::Open);
    EXPECT_EQ(undoText(), "Tip chord");
    dialogs.yesNo = {false};
    program.toolbar.click(Key::New);
    EXPECT_EQ(undoText(), "Tip chord");
}

TEST_F(HistoryCommandsTest, ListsComeBackWithTheirCurrentEntries) {
    const Project start = project;
    Main.buttonPressed(Control::IndexWingPlusButton, 0);
    Main.buttonPressed(Control::IndexFusPlusButton, 0);
    Main.buttonPressed(Control::IndexServosPlusButton, 0);
    ASSERT_EQ(Main.history.stepCount(), 3U);
    EXPECT_EQ(undoText(), "Add box");
    undo();
    undo();
    EXPECT_EQ(project.currentFuselage, 1);
    EXPECT_EQ(Main.controls[Control::IndexFusScroll].maximum, 1);
    undo();
    EXPECT_TRUE(sameAircraft(start, project));
    EXPECT_EQ(Main.controls[Control::IndexWingsScroll].maximum, start.nbWings);
    redo();
    EXPECT_EQ(project.currentWing, start.nbWings + 1);
    redo();
    redo();
    EXPECT_EQ(project.nbEquipments, start.nbEquipments + 1);
    EXPECT_EQ(Main.controls[Control::IndexServosScroll].maximum, project.nbEquipments);
}

TEST_F(HistoryCommandsTest, HiddenFuselagesThatAnExportHasShownAreHiddenAgain) {
    const int one = 1;
    Main.hideCommand({&one, 1});
    EXPECT_EQ(undoText(), "Hide fuselages");
    saveAs("a.wrl", 2);
    EXPECT_TRUE(ObjectList.shown(1));
    EXPECT_EQ(undoText(), "Show fuselages");
    undo();
    EXPECT_FALSE(ObjectList.shown(1));
}

TEST_F(HistoryCommandsTest, NothingHappensDuringTheDemonstrationAndInFlight) {
    type(Control::LengthEText, "77");
    program.helper.running = true;
    undo();
    EXPECT_EQ(Wings(1).length2, 77);
    program.helper.running = false;
    context.events = [this] {
        undo();
        program.flying.flying = false;
    };
    program.toolbar.click(Key::FlyingPreview);
    EXPECT_EQ(Wings(1).length2, 77);
    undo();
    EXPECT_NE(Wings(1).length2, 77);
}

TEST_F(HistoryCommandsTest, ThePictureAfterEachStepIsThatOfAWholeRebuild) {
    pictures.pictures["p"] = pictures.pictures["q"] = plainPicture(4, 4);
    Main.buttonPressed(Control::IndexServosPlusButton, 0);
    Main.setChecked(Control::RenderButton, true);
    for (const Edit& edit : objectEdits()) {
        const HistoryStep step(Main, edit.name);
        edit.make();
    }
    const auto expectWhole = [&](const std::string& when) {
        const auto drawn = GlTape::calls();
        program.solids = {};
        program.rendering.renderListBuilt = false;
        GlTape::calls().clear();
        program.rendering.renderScene(true);
        const auto differences = glDifferences(GlTape::calls(), drawn);
        EXPECT_TRUE(differences.empty()) << when << ": " << differences.front();
    };
    while (canUndo()) {
        const std::string name = undoText();
        GlTape::calls().clear();
        undo();
        expectWhole("undo " + name);
    }
    while (canRedo()) {
        const std::string name = redoText();
        GlTape::calls().clear();
        redo();
        expectWhole("redo " + name);
    }
}

}  // namespace
}  // namespace velna::test
