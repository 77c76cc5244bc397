#include <cmath>
#include <string>

#include "editor/Strip.h"
#include "editor/Tracing.h"
#include "editor/ViewZoom.h"
#include "support/Drag.h"
#include "support/EditorBench.h"

namespace velna {
namespace {

using test::drag;

class TwoPoints : public test::EditorTest {
protected:
    // 400 x 200 pixels in the middle of 900 x 500: from (250, 150) to (650, 350).
    TwoPoints() {
        area.pictures["plan.bmp"] = {400, 200};
        window.pictureFiles = {"plan.bmp"};
        Main.loadBitmapAction();
        Main.refreshDrawingArea();
        before = Main.pictureHere();
    }
    static void click(float x, float y) { drag(Main).press(x, y).release(); }
    static std::string hint() { return stripText(Main).value; }
    void answer(const std::string& text) { window.textAnswers.emplace_back(text); }
    /// Both points, 200 pixels apart, and the answers that are left.
    static void trace() {
        Main.menuClicked(Control::TracePicture);
        click(300, 200);
        click(500, 200);
    }
    BackgroundPicture before;
    static bool unchanged(const BackgroundPicture& was) {
        const BackgroundPicture& now = Main.pictureHere();
        return now.position == was.position && now.size == was.size && now.scale == was.scale;
    }
};

TEST_F(TwoPoints, MakeThePictureTrueAtTheScaleOfTheView) {
    const double zoom = Main.view.zoom;
    answer("1000");
    trace();
    ASSERT_TRUE(window.textAnswers.empty());
    const auto [position, size] = Main.shownPicture();
    // A quarter and three quarters across, by the picture's own parts.
    const double first = position.x + size.x * 50 / 400, second = position.x + size.x * 250 / 400;
    EXPECT_NEAR((second - first) / zoom, 1000, 1e-9);
    EXPECT_NEAR(first, 300, 1e-9) << "the first point stays where it is";
    EXPECT_NEAR(position.y + size.y * 50 / 200, 200, 1e-9);
    EXPECT_NEAR(size.x / size.y, 2, 1e-12);
    EXPECT_NEAR(Main.pictureHere().scale, 100 * size.x / 400, 1e-9);
    EXPECT_TRUE(Main.checked(Control::LockZoom));
    EXPECT_EQ(Main.view.zoom, zoom);
    EXPECT_EQ(hint(), "");
}

TEST_F(TwoPoints, AreAskedForWithTheirPresentDistance) {
    answer("300");
    trace();
    EXPECT_EQ(window.lastQuestion,
              "Trace by Two Points: True distance between the two points (mm)");
    EXPECT_NEAR(std::stod(window.lastPreset), 200 / Main.view.zoom, 0.005);
}

TEST_F(TwoPoints, LeaveTheAircraftAndItsSavingAlone) {
    const Project aircraft = project;
    answer("1000");
    trace();
    EXPECT_TRUE(project == aircraft);
    EXPECT_TRUE(Main.savedProject) << "the picture is no part of the project";
    EXPECT_FALSE(Main.anyBusy());
}

TEST_F(TwoPoints, TheirPressGrabsNothing) {
    Main.menuClicked(Control::TracePicture);
    auto gesture = drag(Main).press(450, 170).move(460, 190);
    EXPECT_FALSE(Main.anyBusy());
    gesture.release();
    EXPECT_TRUE(Main.tracing.first.has_value());
}

TEST_F(TwoPoints, AreMarkedAndTold) {
    Main.menuClicked(Control::TracePicture);
    EXPECT_EQ(hint(), "Click a point of the picture (Escape ends)");
    EXPECT_EQ(Main.pointer.cursor, CursorShape::Cross);
    area.calls.clear();
    click(300, 200);
    EXPECT_EQ(area.lines(palette[12]), 2);
    EXPECT_EQ(hint(), "Click the second point, far from the first");
    area.calls.clear();
    Main.refreshDrawingArea();
    EXPECT_EQ(area.lines(palette[12]), 2) << "a redraw shows the mark again";
}

TEST_F(TwoPoints, TheWheelBetweenThemChangesNothingOfTheirPlaces) {
    Main.menuClicked(Control::TracePicture);
    click(300, 200);
    Main.menuClicked(Control::LockZoom);
    zoomAt(Main, 500, 200, 3);
    EXPECT_TRUE(Main.tracing.active);
    const double zoom = Main.view.zoom;
    answer("600");
    click(500, 200);
    const auto [position, size] = Main.shownPicture();
    EXPECT_NEAR(size.x * 200 / 400 / zoom, 600, 1e-9);
    EXPECT_NEAR(position.x + size.x * 50 / 400, 500 - 3 * 200, 1e-6) << "where it was shown last";
}

TEST_F(TwoPoints, AWindowInFrontLeavesScaleAndPoints) {
    Main.menuClicked(Control::TracePicture);
    click(300, 200);
    zoomAt(Main, 500, 200, 3);
    drag(Main).press(500, 200);
    const Transform zoomed = Main.view.transform();
    Main.view.firstPictureRefresh = true;
    Main.cancelGesture();
    EXPECT_EQ(Main.view.transform(), zoomed);
    EXPECT_EQ(hint(), "How far apart are the two points?");
    answer("600");
    Main.DrawArea_MouseUp(MouseButton::left, 0, 500, 200);
    EXPECT_NEAR(Main.shownPicture().size.x * 200 / 400 / zoomed.zoom, 600, 1e-9);
    EXPECT_EQ(Main.view.transform(), zoomed);
}

TEST_F(TwoPoints, AreAskedAgainUntilThereIsANumberAboveNothing) {
    for (const char* text : {"abc", "0", "-5", "1e999", "nan", "inf", "150,5", "12 cm"})
        answer(text);
    answer(" 1000 ");
    trace();
    EXPECT_TRUE(window.textAnswers.empty());
    EXPECT_EQ(window.lastQuestion,
              "Trace by Two Points: This is no number above 0.\n"
              "True distance between the two points (mm)");
    EXPECT_EQ(window.lastPreset, "12 cm") << "what was typed can be mended";
    EXPECT_FALSE(unchanged(before));
}

TEST_F(TwoPoints, ADistanceWithWhichThePictureCouldNotBeSeenIsAskedForAgain) {
    answer("1e12");
    answer("1e-9");
    window.textAnswers.emplace_back(std::nullopt);
    trace();
    EXPECT_NE(window.lastQuestion.find("could not be seen"), std::string::npos);
    EXPECT_TRUE(unchanged(before));
    EXPECT_FALSE(Main.checked(Control::LockZoom));
}

TEST_F(TwoPoints, ADistanceWithWhichThePictureIsAPixelHighIsTaken) {
    Main.view.zoom = 0.5;
    answer("2");
    trace();
    EXPECT_TRUE(window.textAnswers.empty());
    EXPECT_FALSE(Main.tracing.active);
    EXPECT_EQ(Main.shownPicture().size, (Point2D{2, 1}));
}

TEST_F(TwoPoints, ACancelledOrEmptyAnswerChangesNothing) {
    window.textAnswers = {std::nullopt};
    trace();
    EXPECT_TRUE(unchanged(before));
    answer("");
    trace();
    EXPECT_TRUE(unchanged(before));
    EXPECT_FALSE(Main.checked(Control::LockZoom));
    EXPECT_FALSE(Main.tracing.active);
}

TEST_F(TwoPoints, ThatAreOneAreNotTaken) {
    Main.menuClicked(Control::TracePicture);
    click(300, 200);
    click(302, 201);
    EXPECT_FALSE(Main.tracing.second.has_value());
    EXPECT_TRUE(hint().starts_with("That is the first point again. ")) << hint();
    answer("10");
    click(400, 300);
    EXPECT_FALSE(Main.tracing.active);
}

TEST_F(TwoPoints, BesideThePictureAreNotTaken) {
    Main.menuClicked(Control::TracePicture);
    click(249, 200);
    EXPECT_TRUE(hint().starts_with("That is beside the picture. ")) << hint();
    EXPECT_FALSE(Main.tracing.first.has_value());
    click(251, 200);
    EXPECT_TRUE(Main.tracing.first.has_value());
    EXPECT_EQ(hint(), "Click the second point, far from the first");
}

TEST_F(TwoPoints, OnTheVeryEdgeOfThePictureAreTaken) {
    for (const Point2D corner : {Point2D{250, 150}, Point2D{650, 350}}) {
        Main.menuClicked(Control::TracePicture);
        click(static_cast<float>(corner.x), static_cast<float>(corner.y));
        EXPECT_TRUE(Main.tracing.first.has_value()) << corner.x;
        Main.DrawArea_MouseDown(2, 0, 300, 200);
        EXPECT_FALSE(Main.tracing.active);
    }
}

TEST_F(TwoPoints, OnAPictureThatCannotBeReadThereAreNone) {
    window.pictureFiles = {"broken.bmp"};
    Main.loadBitmapAction();
    Main.pictureHere().size = {0, 0};
    Main.menuClicked(Control::TracePicture);
    click(450, 250);
    EXPECT_FALSE(Main.tracing.first.has_value());
    cancelTracing(Main);
}

TEST_F(TwoPoints, TheRightButtonEndsItWithoutTheMenu) {
    Main.menuClicked(Control::TracePicture);
    click(300, 200);
    drag(Main).press(320, 220, MouseButton::right).release();
    EXPECT_FALSE(Main.tracing.active);
    EXPECT_FALSE(window.popupOpen);
    EXPECT_TRUE(unchanged(before));
    EXPECT_TRUE(Main.savedProject);
}

TEST_F(TwoPoints, ACancelTakesTheMarkOff) {
    Main.menuClicked(Control::TracePicture);
    click(300, 200);
    area.calls.clear();
    cancelTracing(Main);
    EXPECT_FALSE(Main.tracing.active);
    ASSERT_FALSE(area.calls.empty());
    EXPECT_EQ(area.lines(palette[12]), 0);
    EXPECT_EQ(area.count(test::SurfaceCall::Kind::Picture), 1);
}

TEST_F(TwoPoints, AnotherViewOrAnotherPictureEndsIt) {
    Main.menuClicked(Control::TracePicture);
    Main.DrawArea_keydown('C', 0);
    EXPECT_FALSE(Main.tracing.active);
    Main.initVTopView();
    Main.menuClicked(Control::TracePicture);
    ASSERT_TRUE(Main.tracing.active);
    window.pictureFiles = {"plan.bmp"};
    Main.loadBitmapAction();
    EXPECT_FALSE(Main.tracing.active);
    Main.menuClicked(Control::TracePicture);
    Main.menuClicked(Control::ClearBitmap);
    EXPECT_FALSE(Main.tracing.active);
}

TEST_F(TwoPoints, KeysGoingUpAndOtherButtonsDoNotEndIt) {
    Main.menuClicked(Control::TracePicture);
    click(300, 200);
    Main.DrawArea_keyup();
    drag(Main).press(320, 220, 4).release();
    EXPECT_TRUE(Main.tracing.active);
    EXPECT_FALSE(Main.tracing.second.has_value());
}

TEST_F(TwoPoints, AreOfferedOnlyWhereAPictureIsShown) {
    const auto offered = [] { return Main.controls[Control::TracePicture].enabled; };
    EXPECT_TRUE(offered());
    Main.initSideView();
    EXPECT_FALSE(offered());
    Main.menuClicked(Control::TracePicture);
    EXPECT_FALSE(Main.tracing.active);
    Main.initVTopView();
    EXPECT_TRUE(offered());
    window.pictureFiles = {""};
    Main.loadBitmapAction();
    EXPECT_FALSE(offered());
}

TEST_F(TwoPoints, AskInInchesWhereTheAircraftIsInInches) {
    project.units = inches;
    answer("39.37");
    trace();
    EXPECT_EQ(window.lastQuestion,
              "Trace by Two Points: True distance between the two points (in)");
}

}  // namespace
}  // namespace velna
