#include "model/Fuselage.h"
#include "model/Plane.h"
#include "support/Drag.h"
#include "support/EditorBench.h"

namespace velna {
namespace {

using test::drag;
using test::SurfaceCall;

class BackgroundPictures : public test::EditorTest {
protected:
    void load(const std::string& file, Point2D size) {
        area.pictures[file] = size;
        window.pictureFiles = {file};
        Main.loadBitmapAction();
    }
    static bool enabled(Control entry) { return Main.controls[entry].enabled; }
    void size(const std::string& answer) {
        window.textAnswers = {answer};
        Main.sizeBitmapAction();
    }
};

TEST_F(BackgroundPictures, LoadCentresThePictureAndLeavesTheModelToTheNextRedraw) {
    load("plan.bmp", {400, 200});
    EXPECT_EQ(Main.pictureHere().position, (Point2D{250, 150}));
    EXPECT_EQ(Main.pictureHere().size, (Point2D{400, 200}));
    EXPECT_EQ(Main.pictureHere().scale, 100);
    const auto shown = area.sinceClear();
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_EQ(shown[0].kind, SurfaceCall::Kind::Picture);
    for (Control entry :
         {Control::MoveBitmap, Control::SizeBitmap, Control::ClearBitmap, Control::LockZoom})
        EXPECT_TRUE(enabled(entry)) << controlName(entry);
    EXPECT_FALSE(Main.checked(Control::LockZoom));
    EXPECT_TRUE(Main.savedProject) << "the picture is no part of the project";
}

TEST_F(BackgroundPictures, RedrawPaintsThePictureFirst) {
    load("plan.bmp", {400, 200});
    area.calls.clear();
    Main.refreshDrawingArea();
    ASSERT_GT(area.calls.size(), 2U);
    EXPECT_EQ(area.calls[0].kind, SurfaceCall::Kind::Clear);
    EXPECT_EQ(area.calls[1].kind, SurfaceCall::Kind::Picture);
    EXPECT_EQ(area.lines(white), 0) << "a white line would scratch it";
}

TEST_F(BackgroundPictures, CancelDropsThePictureAndTheLock) {
    load("plan.bmp", {400, 200});
    Main.menuClicked(Control::LockZoom);
    window.pictureFiles = {""};
    Main.loadBitmapAction();
    EXPECT_FALSE(Main.pictureShownHere());
    EXPECT_FALSE(enabled(Control::LockZoom));
    EXPECT_FALSE(Main.checked(Control::LockZoom));
    EXPECT_TRUE(enabled(Control::MoveBitmap)) << "only the lock's entry follows a cancel";
}

TEST_F(BackgroundPictures, EntriesStartDisabledButTheLock) {
    EXPECT_FALSE(enabled(Control::MoveBitmap));
    EXPECT_FALSE(enabled(Control::SizeBitmap));
    EXPECT_FALSE(enabled(Control::ClearBitmap));
    EXPECT_TRUE(enabled(Control::LockZoom));
    EXPECT_TRUE(enabled(Control::LoadBitmap));
}

TEST_F(BackgroundPictures, FiftyPercentHalvesBothSidesAndLeavesThePlace) {
    load("plan.bmp", {400, 200});
    size("50");
    EXPECT_EQ(Main.pictureHere().size, (Point2D{200, 100}));
    EXPECT_EQ(Main.pictureHere().position, (Point2D{250, 150}));
    EXPECT_EQ(window.lastQuestion, "Size (%): Enter a resizing factor");
    EXPECT_EQ(window.lastPreset, "100");
    size("12.5 percent");
    EXPECT_EQ(window.lastPreset, "50");
    EXPECT_EQ(Main.pictureHere().size, (Point2D{50, 25}));
}

TEST_F(BackgroundPictures, SizeTakesAnyTextWithoutHarm) {
    load("plan.bmp", {400, 200});
    area.calls.clear();
    size("");
    window.textAnswers = {std::nullopt};
    Main.sizeBitmapAction();
    EXPECT_TRUE(area.calls.empty()) << "an empty answer or a cancel ends the action";
    size("1e999");
    EXPECT_EQ(Main.pictureHere().scale, 100);
    size("abc");
    EXPECT_EQ(Main.pictureHere().size, (Point2D{0, 0}));
}

TEST_F(BackgroundPictures, EachViewHasItsOwn) {
    load("top.bmp", {100, 100});
    Main.initSideView();
    EXPECT_FALSE(Main.pictureShownHere());
    load("side.bmp", {60, 40});
    Main.initVTopView();
    EXPECT_EQ(Main.pictureHere().file, "top.bmp");
    const auto shown = area.sinceClear();
    ASSERT_FALSE(shown.empty());
    EXPECT_EQ(shown[0].file, "top.bmp");
}

TEST_F(BackgroundPictures, EntriesFollowTheLastActionInAViewWithoutOne) {
    load("top.bmp", {100, 100});
    Main.initSideView();
    EXPECT_TRUE(enabled(Control::ClearBitmap));
    Main.menuClicked(Control::ClearBitmap);
    EXPECT_FALSE(enabled(Control::ClearBitmap));
    EXPECT_TRUE(Main.pictures[ViewMode::VTop].shown);
}

TEST_F(BackgroundPictures, ClearDrawsTheModelAgainAndUnlocks) {
    load("top.bmp", {100, 100});
    Main.menuClicked(Control::LockZoom);
    Main.menuClicked(Control::ClearBitmap);
    EXPECT_FALSE(Main.checked(Control::LockZoom));
    EXPECT_FALSE(enabled(Control::LockZoom));
    EXPECT_GT(area.sinceClear().size(), 10U);
    EXPECT_EQ(area.sinceClear()[0].kind, SurfaceCall::Kind::Line);
}

TEST_F(BackgroundPictures, LockKeepsTheScaleSoThatThePictureStaysAligned) {
    load("top.bmp", {100, 100});
    Main.menuClicked(Control::LockZoom);
    const double zoom = Main.view.zoom;
    test::type(Control::SpanText, "5000");
    EXPECT_EQ(Main.view.zoom, zoom);
    Main.menuClicked(Control::LockZoom);
    test::type(Control::SpanText, "5000");
    EXPECT_LT(Main.view.zoom, zoom);
}

TEST_F(BackgroundPictures, PressPaintsThePictureEvenOverNothing) {
    load("top.bmp", {100, 100});
    Main.refreshDrawingArea();
    area.calls.clear();
    drag(Main).press(20, 20);
    ASSERT_EQ(area.calls.size(), 2U);
    EXPECT_EQ(area.calls[1].kind, SurfaceCall::Kind::Picture);
    EXPECT_TRUE(Main.view.firstPictureRefresh);
}

TEST_F(BackgroundPictures, AltDragMovesThePictureAndNotTheModel) {
    load("top.bmp", {100, 100});
    Main.refreshDrawingArea();
    Main.DrawArea_keydown(18, ShiftState::alt);
    auto gesture = drag(Main).press(866, 170);
    EXPECT_EQ(Main.views.wings(1).grip.paint, WingPart::none) << "the tip lies there";
    gesture.move(876, 150).move(880, 140);
    EXPECT_EQ(Main.pictureHere().position, (Point2D{414, 170}));
    EXPECT_EQ(Wings(1).span, 700);
    EXPECT_EQ(area.mode, DrawMode::Copy);
    gesture.release();
    EXPECT_FALSE(Main.pointer.altkey);
    EXPECT_EQ(Main.pointer.cursor, CursorShape::FourWay) << "until the next move";
}

TEST_F(BackgroundPictures, MoveEntryDoesAsTheAltKey) {
    load("top.bmp", {100, 100});
    Main.menuClicked(Control::MoveBitmap);
    drag(Main).press(10, 10).move(15, 20);
    EXPECT_EQ(Main.pictureHere().position, (Point2D{405, 210}));
}

TEST_F(BackgroundPictures, AltWithoutAPictureLeavesTheDragToTheModel) {
    Main.pointer.altkey = true;
    drag(Main).press(866, 170);
    EXPECT_NE(Main.views.wings(1).grip.paint, WingPart::none);
}

TEST_F(BackgroundPictures, DragOverAPictureErasesNothingOnceAndThenInverts) {
    load("top.bmp", {100, 100});
    Main.refreshDrawingArea();
    auto gesture = drag(Main).press(866, 170);
    area.calls.clear();
    gesture.move(870, 170);
    EXPECT_EQ(area.mode, DrawMode::Invert);
    EXPECT_EQ(area.lines(white), 0);
    area.calls.clear();
    gesture.move(874, 170);
    EXPECT_GT(area.lines(white), 0);
    gesture.release();
    EXPECT_EQ(area.mode, DrawMode::Copy);
}

TEST_F(BackgroundPictures, AClickWithoutAMoveLeavesTheNextDragItsErasing) {
    load("top.bmp", {100, 100});
    drag(Main).press(20, 20);
    ASSERT_TRUE(Main.view.firstPictureRefresh);
    Main.DrawArea_MouseUp(1, 0, 20, 20);
    EXPECT_FALSE(Main.view.firstPictureRefresh);
    Main.menuClicked(Control::ClearBitmap);
    area.calls.clear();
    drag(Main).hover(866, 170);
    EXPECT_GT(area.lines(white), 0) << "the highlight comes in place of the plain lines";
}

TEST_F(BackgroundPictures, EnteringAViewThatShowsOneEnablesItsEntries) {
    load("top.bmp", {100, 100});
    Main.initSideView();
    Main.menuClicked(Control::ClearBitmap);
    for (Control entry :
         {Control::MoveBitmap, Control::SizeBitmap, Control::ClearBitmap, Control::LockZoom})
        ASSERT_FALSE(enabled(entry)) << controlName(entry);
    Main.initFrontView();
    EXPECT_FALSE(enabled(Control::ClearBitmap)) << "a view without one leaves them";
    Main.initVTopView();
    for (Control entry :
         {Control::MoveBitmap, Control::SizeBitmap, Control::ClearBitmap, Control::LockZoom})
        EXPECT_TRUE(enabled(entry)) << controlName(entry);
    Main.menuClicked(Control::ClearBitmap);
    EXPECT_FALSE(Main.pictureShownHere());
}

TEST_F(BackgroundPictures, PictureThatVanishesOrChangesIsNoTrouble) {
    load("top.bmp", {100, 100});
    area.pictures["top.bmp"] = {7, 7};
    Main.refreshDrawingArea();
    EXPECT_EQ(Main.pictureHere().size, (Point2D{100, 100})) << "its place stays as it was fitted";
    area.pictures.clear();
    area.calls.clear();
    Main.refreshDrawingArea();
    EXPECT_EQ(area.count(SurfaceCall::Kind::Picture), 0);
    EXPECT_GT(area.count(SurfaceCall::Kind::Line), 0);
    drag(Main).press(866, 170).move(870, 170).release();
    size("30");
    EXPECT_EQ(Main.pictureHere().size, (Point2D{100, 100}));
    EXPECT_EQ(Main.pictureHere().position, (Point2D{400, 200}));
    EXPECT_TRUE(Main.pictureShownHere()) << "it comes back with its file";
    area.pictures["top.bmp"] = {100, 100};
    area.calls.clear();
    Main.refreshDrawingArea();
    EXPECT_EQ(area.count(SurfaceCall::Kind::Picture), 1);
}

TEST_F(BackgroundPictures, UnreadableFileIsShownAsNothingWithoutAMessage) {
    window.pictureFiles = {"broken.bmp"};
    Main.loadBitmapAction();
    EXPECT_TRUE(Main.pictureShownHere());
    EXPECT_TRUE(area.sinceClear().empty());
    EXPECT_EQ(window.prompts.size(), 1U);
}

TEST_F(BackgroundPictures, KeysLoadAndSize) {
    area.pictures["top.bmp"] = {80, 40};
    window.pictureFiles = {"top.bmp"};
    Main.DrawArea_keydown('O', 0);
    EXPECT_TRUE(Main.pictureShownHere());
    window.textAnswers = {"200"};
    Main.DrawArea_keydown('I', 0);
    EXPECT_EQ(Main.pictureHere().size, (Point2D{160, 80}));
}

}  // namespace
}  // namespace velna
