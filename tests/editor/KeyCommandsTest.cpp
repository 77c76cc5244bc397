#include "model/Equipment.h"
#include "model/Fuselage.h"
#include "model/Plane.h"
#include "support/Drag.h"
#include "support/EditorBench.h"

namespace velna {
namespace {

using test::drag;

class KeyCommands : public test::EditorTest {
protected:
    void enterSide() {
        Main.setChecked(Control::LockZoom, true);
        Main.view.zoom = 1;
        Main.view.xoff = 50;
        Main.view.yoff = 300;
        Main.initSideView();
        bench.forget();
    }
    static void key(char letter, std::int16_t shift = 0) {
        Main.DrawArea_keydown(static_cast<std::int16_t>(letter), shift);
    }

    MeshSections& fuselage = Fuselage::current(project);
};

TEST_F(KeyCommands, LettersEnterTheViewsWithAnyModifierAndLeaveTheTab) {
    Main.selectTab(PanelTab::rudder);
    const std::pair<char, int> views[] = {{'C', ViewMode::Side},
                                          {'X', ViewMode::Front},
                                          {'V', ViewMode::HTop},
                                          {'Z', ViewMode::VTop}};
    for (const auto& [letter, mode] : views) {
        key(letter, ShiftState::ctrl);
        EXPECT_EQ(Main.view.mode, mode) << letter;
        EXPECT_EQ(Main.tab(), PanelTab::rudder);
    }
}

TEST_F(KeyCommands, SRebuildsThePicture) {
    key('S');
    EXPECT_EQ(window.rebuilds, 1);
}

TEST_F(KeyCommands, AShowsTheSectionUntilTheFollowingRedraw) {
    Main.selectTab(PanelTab::fuselage);
    fuselage.sel_sec = 2;
    Main.initSideView();
    const double whole = Main.view.zoom;
    key('A');
    EXPECT_DOUBLE_EQ(Main.view.zoom, 0.9 * 500 / 100);
    EXPECT_FALSE(Main.view.focusZoom);
    Main.refreshDrawingArea();
    EXPECT_EQ(Main.view.zoom, whole);
}

TEST_F(KeyCommands, AInVTopWaitsForTheNextFitOfSideOrHTop) {
    key('A');
    EXPECT_TRUE(Main.view.focusZoom);
    EXPECT_EQ(Main.view.xoff, 450);
    key('X');
    EXPECT_TRUE(Main.view.focusZoom);
    key('C');
    EXPECT_FALSE(Main.view.focusZoom);
    EXPECT_DOUBLE_EQ(Main.view.zoom, 0.9 * 500 / 20);
}

TEST_F(KeyCommands, ROpensTheHiddenPromptWithShiftAndCtrlOnly) {
    key('R', ShiftState::shift);
    key('R', ShiftState::ctrl);
    key('R');
    EXPECT_TRUE(window.prompts.empty());
    key('R', ShiftState::shift + ShiftState::ctrl);
    EXPECT_EQ(window.prompts, std::vector<std::string>{"frustum prompt"});
}

TEST_F(KeyCommands, IResizesAShownPictureOnly) {
    key('I');
    EXPECT_TRUE(window.prompts.empty());
}

TEST_F(KeyCommands, KeyDuringADragHasNoEffectAndItsReleaseEndsTheDrag) {
    enterSide();
    drag(Main).press(250, 240).move(250, 230);
    key('Z');
    key('X', ShiftState::alt);
    EXPECT_EQ(Main.view.mode, ViewMode::Side);
    EXPECT_FALSE(Main.pointer.altkey);
    Main.DrawArea_keyup();
    EXPECT_FALSE(Main.anyBusy());
    EXPECT_EQ(window.rebuilds, 1);
    EXPECT_EQ(fuselage.elevation(2), 20);
}

TEST_F(KeyCommands, CtrlArmsInSideAndHTopOnly) {
    for (char view : {'Z', 'X'}) {
        key(view);
        Main.DrawArea_keydown(17, 2);
        EXPECT_FALSE(Main.pointer.ctrlkey) << view;
    }
    for (char view : {'C', 'V'}) {
        key(view);
        Main.DrawArea_keydown(17, 2);
        EXPECT_TRUE(Main.pointer.ctrlkey) << view;
        EXPECT_EQ(Main.pointer.cursor, CursorShape::Cross);
    }
}

TEST_F(KeyCommands, ModifiersAreComparedWhole) {
    enterSide();
    drag(Main).hover(250, 240);
    Main.DrawArea_keydown(16, ShiftState::shift + ShiftState::ctrl);
    EXPECT_FALSE(Main.pointer.shiftkey);
    EXPECT_FALSE(Main.pointer.ctrlkey);
    Main.DrawArea_keydown(18, ShiftState::alt + ShiftState::shift);
    EXPECT_FALSE(Main.pointer.altkey);
}

TEST_F(KeyCommands, ShiftArmsWhenSomethingIsSelectedAndTheCursorIsNotTheCustomOne) {
    enterSide();
    Main.DrawArea_keydown(16, 1);
    EXPECT_FALSE(Main.pointer.shiftkey) << "nothing selected";
    drag(Main).hover(250, 190);
    ASSERT_EQ(Main.pointer.cursor, CursorShape::Custom);
    Main.DrawArea_keydown(16, 1);
    EXPECT_FALSE(Main.pointer.shiftkey) << "the custom cursor";
    drag(Main).hover(250, 240);
    Main.DrawArea_keydown(16, 1);
    EXPECT_TRUE(Main.pointer.shiftkey);
    EXPECT_EQ(Main.pointer.cursor, CursorShape::NorthSouth) << "as the key's own rule says";
    drag(Main).hover(250, 241);
    EXPECT_EQ(Main.pointer.cursor, CursorShape::WestEast) << "as the cursor table says";
}

TEST_F(KeyCommands, AnArmedShiftLeavesTheCursorThatShowsTheWayOfTheDrag) {
    enterSide();
    drag(Main).hover(250, 240).key(16, 1).hover(250, 241);
    ASSERT_EQ(Main.pointer.cursor, CursorShape::WestEast);
    Main.DrawArea_keydown(16, 1);
    EXPECT_EQ(Main.pointer.cursor, CursorShape::WestEast) << "a held key goes down again and again";
    drag(Main).press(250, 241).move(260, 230);
    EXPECT_EQ(fuselage.pos(2), 210);
    EXPECT_EQ(fuselage.elevation(2), 10);
}

TEST_F(KeyCommands, ShiftPointsSidewaysOverFinBoxAndTheFuselageInVTop) {
    Main.views.rudder.grip.selected = true;
    Main.DrawArea_keydown(16, 1);
    EXPECT_EQ(Main.pointer.cursor, CursorShape::WestEast);
    Main.views.rudder.grip.selected = Main.pointer.shiftkey = false;
    Main.setCursor(CursorShape::Default);
    Main.views.boxes(1).grip.selected = true;
    Main.DrawArea_keydown(16, 1);
    EXPECT_EQ(Main.pointer.cursor, CursorShape::WestEast);
    Main.views.boxes(1).grip.selected = Main.pointer.shiftkey = false;
    Main.setCursor(CursorShape::Default);
    Main.views.fuselage().grip.selected = true;
    Main.DrawArea_keydown(16, 1);
    EXPECT_EQ(Main.pointer.cursor, CursorShape::WestEast);
}

TEST_F(KeyCommands, FormKeyUpEntersTheViewAgain) {
    Main.Form_keyup();
    EXPECT_EQ(area.count(test::SurfaceCall::Kind::Clear), 1);
    EXPECT_EQ(window.renders, 0);
}

TEST_F(KeyCommands, KeyUpClearsAllFlags) {
    Main.pointer.shiftkey = Main.pointer.ctrlkey = Main.pointer.altkey = true;
    Main.DrawArea_keyup();
    EXPECT_FALSE(Main.pointer.shiftkey || Main.pointer.ctrlkey || Main.pointer.altkey);
    EXPECT_EQ(Main.pointer.cursor, CursorShape::Default);
}

// ---- menu

TEST_F(KeyCommands, MenuChangeTogglesTheDirectionButNotUnderTheCustomCursor) {
    Main.pointer.ctrlkey = true;
    Main.menuClicked(Control::Change);
    EXPECT_TRUE(Main.pointer.shiftkey);
    EXPECT_FALSE(Main.pointer.ctrlkey);
    Main.menuClicked(Control::Change);
    EXPECT_FALSE(Main.pointer.shiftkey);
    Main.pointer.ctrlkey = true;
    Main.setCursor(CursorShape::Custom, CursorIcon::NSShapeIcon);
    Main.menuClicked(Control::Change);
    EXPECT_FALSE(Main.pointer.shiftkey);
    EXPECT_FALSE(Main.pointer.ctrlkey);
}

TEST_F(KeyCommands, MenuInsRemArmsOneGestureInSideAndHTop) {
    Main.menuClicked(Control::InsRem);
    EXPECT_FALSE(Main.pointer.ctrlkey) << "disabled in VTop";
    enterSide();
    Main.pointer.shiftkey = true;
    Main.menuClicked(Control::InsRem);
    EXPECT_TRUE(Main.pointer.ctrlkey);
    EXPECT_FALSE(Main.pointer.shiftkey);
    drag(Main).press(20, 20).release();
    EXPECT_FALSE(Main.pointer.ctrlkey);
}

TEST_F(KeyCommands, EveryMenuEntryActs) {
    enterSide();
    Main.menuClicked(Control::LockZoom);
    EXPECT_FALSE(Main.checked(Control::LockZoom));
    window.pictureFiles = {"plan.bmp"};
    Main.menuClicked(Control::LoadBitmap);
    EXPECT_TRUE(Main.pictureShownHere());
    Main.menuClicked(Control::MoveBitmap);
    EXPECT_TRUE(Main.pointer.altkey);
    window.textAnswers = {std::nullopt};
    Main.menuClicked(Control::SizeBitmap);
    EXPECT_EQ(window.prompts.size(), 2U);
    Main.menuClicked(Control::ClearBitmap);
    EXPECT_FALSE(Main.pictureShownHere());
}

}  // namespace
}  // namespace velna
