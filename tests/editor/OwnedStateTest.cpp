#include <gtest/gtest.h>

#include "support/Drag.h"
#include "support/EditorBench.h"

namespace velna {
namespace {

/// A form of its own beside the one in hand, as it stands after start-up.
struct OtherForm {
    OtherForm() {
        Plane::setDefaultPlane(aircraft);
        aircraft.ObjectList.update(aircraft.Fuselages, aircraft.nbFuselages);
        form.DrawArea = &area;
        form.DrawSectionArea = &sectionArea;
        form.window = &window;
        form.refreshPanels();
        form.initVTopView();
    }

    Project aircraft;
    MainForm form{aircraft};
    test::RecordingSurface area{900, 500};
    test::RecordingSurface sectionArea{150, 150};
    test::RecordingWindow window;
};

class OwnedState : public test::EditorTest {
protected:
    /// The middle of the first panel's tip edge in VTop, where a press takes hold of it.
    static Point2D tip(const MainForm& form) {
        const Outline& points = form.views.wings(1).vtopPoints;
        return {points[2].x, (points[2].y + points[3].y) / 2};
    }
    static test::Drag pressTip(MainForm& form) {
        const Point2D at = tip(form);
        return test::Drag(form).press(static_cast<float>(at.x), static_cast<float>(at.y));
    }
};

TEST_F(OwnedState, TwoFormsKnowNothingOfEachOther) {
    OtherForm other;
    const Project before = other.aircraft;
    const std::size_t calls = other.area.calls.size();
    const double zoom = other.form.view.zoom;
    pressTip(Main).move(0, 400);
    EXPECT_NE(project.Wings(1).pos2, before.Wings(1).pos2) << "the drag did move something";
    EXPECT_TRUE(other.aircraft == before);
    EXPECT_FALSE(other.form.anyBusy());
    EXPECT_EQ(other.area.calls.size(), calls);

    Main.initSideView();
    Main.selectTab(PanelTab::electronics);
    Main.setText(Control::SpanText, "1");
    EXPECT_EQ(other.form.view.mode, ViewMode::VTop);
    EXPECT_EQ(other.form.view.zoom, zoom);
    EXPECT_EQ(other.form.tab(), PanelTab::wing);
    EXPECT_EQ(other.form.controls[Control::SpanText].text, "1400");
    EXPECT_EQ(other.window.renders, 0);

    const Project mine = project;
    pressTip(other.form).move(0, 400).release();
    EXPECT_NE(other.aircraft.Wings(1).pos2, before.Wings(1).pos2);
    EXPECT_TRUE(project == mine);
}

TEST_F(OwnedState, ProjectCopiedInMidDragStaysAsItWas) {
    const double start = Wings(1).pos2;
    test::Drag drag = pressTip(Main);
    const float row = Main.pointer.yloc;
    drag.move(0, row + 20);
    const Project copy = project;
    const double half = Wings(1).pos2;
    ASSERT_NE(half, start);
    drag.move(0, row + 40);
    EXPECT_EQ(copy.Wings(1).pos2, half);
    EXPECT_FALSE(project == copy);
    project = copy;
    drag.move(0, row);
    EXPECT_EQ(Wings(1).pos2, start) << "the drag goes on from the value at its press";
    drag.release();
    EXPECT_FALSE(Main.anyBusy());
    EXPECT_EQ(copy.Wings(1).pos2, half);
}

TEST_F(OwnedState, FuselageRemovedWhileItsViewIsShownIsGoneFromIt) {
    for (const auto view : {&MainForm::initSideView, &MainForm::initHTopView,
                            &MainForm::initVTopView, &MainForm::initFrontView}) {
        Main.buttonPressed(Control::IndexFusPlusButton, 0);
        ASSERT_EQ(currentFuselage, 2);
        Fuselages(2).pos_offset = 300;
        (Main.*view)();
        const FuselageView& shown = Main.views.fuselage();
        const int mode = Main.view.mode;
        const Point2D end = mode == ViewMode::Side   ? shown.side.top(1)
                            : mode == ViewMode::HTop ? shown.htop.plus(1)
                                                     : Point2D{2, 2};
        test::Drag drag(Main);
        drag.hover(static_cast<float>(end.x), static_cast<float>(end.y));
        drag.press(static_cast<float>(end.x), static_cast<float>(end.y));
        EXPECT_EQ(Main.anyBusy(), mode == ViewMode::Side || mode == ViewMode::HTop);
        window.yesNoAnswers.push_back(true);
        Main.buttonPressed(Control::IndexFusMinusButton, 0);
        EXPECT_EQ(nbFuselages, 1);
        EXPECT_EQ(currentFuselage, 1);
        Project before = project;
        drag.move(460, 255);
        drag.release();
        // The move may come to rest on a section of the fuselage that is left.
        before.Fuselages(1).sel_sec = Fuselages(1).sel_sec;
        EXPECT_TRUE(project == before) << "what was grabbed is gone, and nothing else moves for it";
        EXPECT_FALSE(Main.anyBusy());
        EXPECT_EQ(Main.controls[Control::IndexFusScroll].maximum, 1);
    }
}

}  // namespace
}  // namespace velna
