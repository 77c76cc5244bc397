// Two programs in one process, each with a project of its own.

#include <cmath>
#include <memory>

#include "output/Exports.h"
#include "support/ShellFixture.h"

namespace velna::test {
namespace {

/// A second program beside the one in hand, on recorders of its own.
class SideBySide : public ShellFixture {
protected:
    void SetUp() override {
        ShellFixture::SetUp();
        start();
        second_ = std::make_unique<Application>();
        second().shell = {&otherDesktop_, &otherDialogs_};
        second().rendering.context = &otherContext_;
        second().rendering.imaging = &pictures;
        second().pictures.imaging = &pictures;
        second().flying.joystick = &stick;
        second().Main.DrawArea = &otherArea_;
        second().Main.DrawSectionArea = &otherSection_;
        second().Main.window = &otherWindow_;
        otherDesktop_.program = desktop.program;
        otherDesktop_.configuration = desktop.configuration;
        second().startup.initMain();
    }

    Application& second() { return *second_; }

    RecordingSurface otherArea_{900, 500};
    RecordingSurface otherSection_{150, 150};
    RecordingWindow otherWindow_;
    ScriptedDialogs otherDialogs_;
    FakeDesktop otherDesktop_;
    FakeRenderContext otherContext_;

private:
    std::unique_ptr<Application> second_;
};

/// The pixel in the middle of wing 1's tip edge on the surface of `main`, as the top view draws it.
Point2D wingTip(const MainForm& main) {
    const SymWingSections& wing = main.project.Wings(1);
    const Transform at = main.view.transform();
    return {std::round((wing.shift + wing.span) * at.zoom + at.xoff),
            std::round((wing.pos1 + wing.pos2 + wing.length2 / 2) * at.zoom + at.yoff)};
}

void press(MainForm& main, Point2D place) {
    main.DrawArea_MouseDown(1, 0, static_cast<float>(place.x), static_cast<float>(place.y));
}

void move(MainForm& main, Point2D place) {
    main.DrawArea_MouseMove(1, 0, static_cast<float>(place.x), static_cast<float>(place.y));
}

TEST_F(SideBySide, ADragInOneLeavesTheOtherAndItsExport) {
    const std::string before = programFile("before.wrl");
    ASSERT_TRUE(
        Plane::exportVRML(second().project, second().solids, before, second().pictures).isDone());
    const Point2D tip = wingTip(Main);
    press(Main, tip);
    move(Main, {tip.x, tip.y + 60});
    EXPECT_NE(Wings(1).pos2, 10) << "the drag has hold of the tip";
    EXPECT_TRUE(Main.anyBusy());
    EXPECT_FALSE(second().Main.anyBusy());
    EXPECT_EQ(second().project.Wings(1).pos2, 10);
    EXPECT_FALSE(Main.savedProject);
    EXPECT_TRUE(second().Main.savedProject);

    const std::string after = programFile("after.wrl");
    ASSERT_TRUE(
        Plane::exportVRML(second().project, second().solids, after, second().pictures).isDone());
    EXPECT_EQ(contentOf(after), contentOf(before));
    EXPECT_TRUE(Main.anyBusy()) << "the export of one ends no gesture of the other";
}

TEST_F(SideBySide, ViewsUnitsAndFlagsAreEachOnesOwn) {
    Main.initSideView();
    Main.selectTab(PanelTab::fuselage);
    EXPECT_EQ(second().Main.tab(), PanelTab::wing);
    EXPECT_TRUE(second().Main.checked(Control::VTopButton));
    EXPECT_FALSE(Main.checked(Control::VTopButton));
    Main.Prefs.selectUnit(inches);
    program.preferences.CloseCommand_Click();
    EXPECT_EQ(project.units, inches);
    EXPECT_EQ(second().project.units, millimetres);
    EXPECT_EQ(second().project.Wings(1).span, 700);
}

TEST_F(SideBySide, AProjectCopiedInMidDragIsTheOneOfThatMoment) {
    const Project before = project;
    const Point2D tip = wingTip(Main);
    press(Main, tip);
    move(Main, {tip.x, tip.y + 60});
    const Project copy = project;
    EXPECT_NE(copy, before);
    move(Main, {tip.x, tip.y + 90});
    EXPECT_NE(copy, project);
    EXPECT_NE(copy.Wings(1).pos2, Wings(1).pos2);
    // Out and back: the drag starts from the values at the press, the copy has taken nothing off.
    move(Main, tip);
    EXPECT_EQ(Wings(1), before.Wings(1));
    // The copy put into the other program is drawn and edited there.
    second().project = copy;
    second().Main.refreshDrawingArea();
    const Point2D there = wingTip(second().Main);
    press(second().Main, there);
    EXPECT_TRUE(second().Main.anyBusy());
    Main.cancelGesture();
    EXPECT_TRUE(second().Main.anyBusy());
}

TEST_F(SideBySide, AFuselageRemovedWhileItsViewIsShownIsGoneFromTheView) {
    Main.selectTab(PanelTab::fuselage);
    Main.buttonPressed(Control::IndexFusPlusButton, 0);
    ASSERT_EQ(nbFuselages, 2);
    Main.initSideView();
    window.yesNoAnswers.push_back(true);
    drawArea.calls.clear();
    Main.buttonPressed(Control::IndexFusMinusButton, 0);
    EXPECT_EQ(nbFuselages, 1);
    EXPECT_EQ(currentFuselage, 1);
    for (int y = 100; y < 400; y += 10) {
        for (int x = 0; x < 900; x += 30)
            Main.DrawArea_MouseMove(0, 0, static_cast<float>(x), static_cast<float>(y));
    }
    EXPECT_FALSE(Main.anyBusy());
    EXPECT_EQ(second().project.nbFuselages, 1);
}

}  // namespace
}  // namespace velna::test
