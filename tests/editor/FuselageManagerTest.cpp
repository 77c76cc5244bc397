#include <vector>

#include "model/Fuselage.h"
#include "model/Plane.h"
#include "support/Drag.h"
#include "support/EditorBench.h"

namespace velna {
namespace {

class FuselageManager : public test::EditorTest {
protected:
    FuselageManager() {
        for (int i = 0; i < 2; ++i) Main.buttonPressed(Control::IndexFusPlusButton, 0);
        Main.savedProject = true;
        bench.forget();
    }
    static void show(const std::vector<int>& rows) { Main.showCommand(rows); }
    static void hide(const std::vector<int>& rows) { Main.hideCommand(rows); }
    static const FuselageRow& row(int i) {
        return ObjectList.rows.at(static_cast<std::size_t>(i) - 1);
    }
};

TEST_F(FuselageManager, HideAndShowActOnTheSelectedRowsAndRender) {
    hide({1, 3});
    EXPECT_FALSE(ObjectList.shown(1));
    EXPECT_TRUE(ObjectList.shown(2));
    EXPECT_FALSE(ObjectList.shown(3));
    EXPECT_EQ(row(1).status, "Hidden");
    EXPECT_EQ(window.rebuilds, 1);
    EXPECT_EQ(window.listChanges, 1);
    EXPECT_FALSE(Main.savedProject) << "what is shown is part of the project";
    EXPECT_TRUE(area.calls.empty()) << "the views follow when the manager closes";
    show({3});
    EXPECT_TRUE(ObjectList.shown(3));
    EXPECT_FALSE(ObjectList.shown(1));
    EXPECT_EQ(row(3).status, "Shown");
}

TEST_F(FuselageManager, ShowAllTicksEveryRow) {
    hide({1, 2});
    Main.showAll();
    for (int i = 1; i <= 3; ++i) EXPECT_TRUE(ObjectList.shown(i));
    EXPECT_EQ(window.rebuilds, 2);
}

TEST_F(FuselageManager, HidingNothingIsNoChangeAndRendersAllTheSame) {
    hide({});
    EXPECT_TRUE(Main.savedProject);
    EXPECT_EQ(window.rebuilds, 1);
}

TEST_F(FuselageManager, CheckMarkClickedByHandRenders) {
    Main.rowChecked(2, false);
    EXPECT_FALSE(ObjectList.shown(2));
    EXPECT_EQ(row(2).status, "Hidden");
    EXPECT_EQ(window.rebuilds, 1);
    EXPECT_FALSE(Main.savedProject);
    Main.rowChecked(0, false);
    Main.rowChecked(9, false);
    EXPECT_EQ(window.rebuilds, 1);
}

TEST_F(FuselageManager, CloseMakesTheFocusedRowCurrentAndRedraws) {
    Fuselages(2).shift = 60;
    Main.closeManager(2);
    EXPECT_EQ(currentFuselage, 2);
    EXPECT_EQ(Main.controls[Control::IndexFusScroll].value, 2);
    EXPECT_EQ(Main.controls[Control::ShiftOffsetText].text, "60");
    EXPECT_GT(area.count(test::SurfaceCall::Kind::Clear), 0);
    EXPECT_TRUE(Main.savedProject);
}

TEST_F(FuselageManager, CloseWithoutARowKeepsTheCurrentOne) {
    for (int none : {0, -1, 4}) {
        Main.closeManager(none);
        EXPECT_EQ(currentFuselage, 3) << none;
    }
}

TEST_F(FuselageManager, HiddenCurrentFuselageIsStillEditedInThePanel) {
    Main.closeManager(1);
    hide({1, 2, 3});
    Main.initSideView();
    EXPECT_EQ(Main.views.fuselage().grip.paint, FuselagePart::none);
    test::type(Control::WidthFuselageText, "66");
    EXPECT_EQ(Fuselages(1).width(1), 66);
}

TEST_F(FuselageManager, FitsCountTheHiddenCurrentFuselageAndNeverTheOthers) {
    Main.closeManager(1);
    Main.selectTab(PanelTab::fuselage);
    Main.initSideView();
    const double zoom = Main.view.zoom;
    Fuselages(2).pos(3) = 5000;
    Main.initSideView();
    EXPECT_EQ(Main.view.zoom, zoom);
    hide({1});
    Main.initSideView();
    EXPECT_EQ(Main.view.zoom, zoom);
    Fuselages(1).nb_cross = 0;
    Fuselages(1).pos(3) = 1600;
    Main.initSideView();
    EXPECT_LT(Main.view.zoom, zoom);
}

TEST_F(FuselageManager, RowsNameTheFuselageInThreeDigits) {
    EXPECT_EQ(row(1).text, "Fuselage 001");
    EXPECT_EQ(row(3).text, "Fuselage 003");
    EXPECT_EQ(row(1).sections, "003");
}

TEST_F(FuselageManager, PastNineHundredNinetyNineRowsShowFourDigits) {
    nbFuselages = 1000;
    Fuselage::resizeFuselages(project);
    ObjectList.update(Fuselages, nbFuselages);
    EXPECT_EQ(row(1000).text, "Fuselage 1000");
    nbFuselages = 3;
    Fuselage::resizeFuselages(project);
    ObjectList.update(Fuselages, nbFuselages);
    EXPECT_EQ(ObjectList.rows.size(), 3U);
}

}  // namespace
}  // namespace velna
