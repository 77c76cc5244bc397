#include <string>

#include "common/NumberText.h"
#include "editor/Strip.h"
#include "editor/ViewZoom.h"
#include "model/Fuselage.h"
#include "model/Plane.h"
#include "support/Drag.h"
#include "support/EditorBench.h"

namespace velna {
namespace {

using test::drag;

class Strip : public test::EditorTest {
protected:
    static std::string place() { return stripText(Main).place; }
    static std::string value() { return stripText(Main).value; }
    /// Moves the pointer to where the transform shows two coordinates.
    static void pointAt(double right, double down) {
        const ViewState& view = Main.view;
        Main.strip.pointer = {view.xoff + view.zoom * right, view.yoff + view.zoom * down};
    }
};

TEST_F(Strip, SaysNothingWithoutThePointerOrAField) {
    EXPECT_EQ(place(), "");
    EXPECT_EQ(value(), "");
}

TEST_F(Strip, TellsThePlaceByTheAxesOfEachView) {
    pointAt(-120, 312.4);
    EXPECT_EQ(place(), "x 312.40  y -120.00 mm");
    Main.initFrontView();
    pointAt(200.256, -50);
    EXPECT_EQ(place(), "y 200.26  z 50.00 mm");
    Main.initSideView();
    pointAt(1000, 25);
    EXPECT_EQ(place(), "x 1000.00  z -25.00 mm");
    Main.initHTopView();
    pointAt(10, 5);
    EXPECT_EQ(place(), "x 10.00  y 5.00 mm");
}

TEST_F(Strip, InThePlanWithTheNoseToTheLeftThePlaceReadsAsWhatIsEdited) {
    Main.initHTopView();
    MeshSections& body = Fuselage::current(project);
    body.shift = 30;
    const auto sections = body.computeHTopPoints(Main.view.transform(), {});
    Main.strip.pointer = Point2D{sections.plus(1).x, sections.plus(1).y};
    const double edge = body.shift + body.width(body.storageIndex(1)) / 2;
    EXPECT_NE(place().find("y " + fixedText(edge, 2)), std::string::npos) << place();
    Main.selectTab(PanelTab::electronics);
    Equipments(1).shift = 12;
    pointAt(0, -12);
    EXPECT_EQ(place(), "x 0.00  y 12.00 mm");
}

TEST_F(Strip, TellsInchesToAThousandth) {
    Plane::switchAllToInches(project);
    project.units = inches;
    Main.initSideView();
    pointAt(1.5, -0.25);
    EXPECT_EQ(place(), "x 1.500  z 0.250 in");
    enterField(Main, Control::LengthEText);
    Wings(1).length2 = 5.12345;
    EXPECT_EQ(value().substr(0, 18), "Tip chord 5.123 in");
}

TEST_F(Strip, APlaceBeyondAllNumbersIsNotTold) {
    pointAt(10, 10);
    Main.view.zoom = 1e-300;
    Main.view.yoff = -1e10;
    EXPECT_EQ(place(), "");
}

TEST_F(Strip, NothingIsMinusZero) {
    pointAt(-0.001, 0.001);
    EXPECT_EQ(place(), "x 0.00  y 0.00 mm");
}

TEST_F(Strip, ThePlaceFollowsTheWheel) {
    drag(Main).hover(600, 200);
    const std::string before = place();
    EXPECT_FALSE(before.empty());
    zoomAt(Main, 600, 200, 2);
    EXPECT_EQ(place(), before);
    zoomAt(Main, 100, 100, 2);
    EXPECT_NE(place(), before);
}

TEST_F(Strip, ADragTellsTheExactValueAndItsChange) {
    Wings(1).length2 = 150;
    Main.refreshDrawingArea();
    const Point2D corner = Main.views.wings(1).vtopPoints[3];
    const auto x = static_cast<float>(corner.x), y = static_cast<float>(corner.y);
    auto gesture = drag(Main).press(x, y);
    ASSERT_EQ(Main.views.wings(1).grip.paint, WingPart::tipTrailing);
    EXPECT_EQ(value(), "Tip chord 150.00 mm");
    gesture.move(x, y + 13);
    const double chord = Wings(1).length2;
    ASSERT_GT(chord, 151);
    EXPECT_EQ(value(), "Tip chord " + fixedText(chord, 2) + " mm, +" + fixedText(chord - 150, 2));
    gesture.move(x, y - 20);
    EXPECT_EQ(value(), "Tip chord " + fixedText(Wings(1).length2, 2) + " mm, " +
                           fixedText(Wings(1).length2 - 150, 2));
    gesture.move(x, y);
    gesture.release();
    EXPECT_EQ(value(), "");
}

TEST_F(Strip, ShiftPressedInMidDragTellsTheOtherFieldAndItsOwnChange) {
    auto gesture = drag(Main).press(866, 170).move(866, 180);
    EXPECT_TRUE(value().starts_with("Tip sweep ")) << value();
    const double span = 1400;
    Main.pointer.shiftkey = true;
    gesture.move(880, 180);
    const double now = 2 * (Wings(1).span + Wings(1).shift);
    EXPECT_EQ(value(), "Full span " + fixedText(now, 2) + " mm, " + (now > span ? "+" : "") +
                           fixedText(now - span, 2));
    gesture.release();
}

TEST_F(Strip, AFieldTellsWhatItsBoxRoundsAndWhatTheVisitHasChanged) {
    Wings(1).length2 = 150.37;
    Main.updateWingInterface();
    ASSERT_EQ(Main.controls[Control::LengthEText].text, "150");
    enterField(Main, Control::LengthEText);
    EXPECT_EQ(value(), "Tip chord 150.37 mm");
    test::type(Control::LengthEText, "140.5");
    EXPECT_EQ(value(), "Tip chord 140.50 mm, -9.87");
    leaveField(Main);
    EXPECT_EQ(value(), "");
    enterField(Main, Control::LengthEText);
    EXPECT_EQ(value(), "Tip chord 140.50 mm") << "each visit counts from its own begin";
}

TEST_F(Strip, NumbersThatAreNoLengthsHaveNoUnit) {
    enterField(Main, Control::NbCrossFuselageText);
    const int before = Fuselage::current(project).nb_cross;
    Main.nbCrossChanged(std::to_string(before + 4));
    EXPECT_EQ(value(), "Outline points " + std::to_string(before + 4) + ", +4");
    enterField(Main, Control::ThicknessBText);
    Wings(1).thickness1 = 0.12;
    EXPECT_TRUE(value().starts_with("Root thickness 0.1200")) << value();
    EXPECT_EQ(value().find("mm"), std::string::npos);
}

TEST_F(Strip, AnotherPartInTheSameBoxHasNoChange) {
    Main.buttonPressed(Control::IndexWingPlusButton, 0);
    Wings(1).span = 111;
    enterField(Main, Control::LengthEText);
    test::type(Control::LengthEText, "77");
    ASSERT_NE(value().find(", "), std::string::npos);
    Main.scrollChanged(Control::IndexWingsScroll, 1);
    EXPECT_EQ(value(), "Tip chord " + fixedText(Wings(1).length2, 2) + " mm");
}

TEST_F(Strip, ADragGoesBeforeTheFieldThatHasTheFocus) {
    enterField(Main, Control::LengthEText);
    auto gesture = drag(Main).press(866, 170).move(866, 180);
    EXPECT_TRUE(value().starts_with("Tip sweep ")) << value();
    gesture.release();
    EXPECT_TRUE(value().starts_with("Tip chord ")) << value();
}

TEST_F(Strip, ControlsWithoutANumberAreNoFields) {
    enterField(Main, Control::IndexWingsScroll);
    EXPECT_FALSE(Main.strip.visit.has_value());
}

TEST_F(Strip, AnUnheardOfNumberIsShortAllTheSame) {
    enterField(Main, Control::LengthEText);
    Wings(1).length2 = 1e300;
    EXPECT_EQ(value(), "Tip chord 1E+300 mm, +1E+300");
}

}  // namespace
}  // namespace velna
