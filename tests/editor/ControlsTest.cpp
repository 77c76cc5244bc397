#include <set>

#include "editor/Controls.h"
#include "support/EditorBench.h"

namespace velna {
namespace {

class Controls : public test::EditorTest {};

TEST_F(Controls, EveryControlHasItsOwnName) {
    std::set<std::string> names;
    for (std::size_t i = 0; i < controlCount; ++i)
        EXPECT_TRUE(names.insert(controlName(static_cast<Control>(i))).second);
    EXPECT_EQ(std::string(controlName(Control::LengthBText)), "LengthBText");
    EXPECT_EQ(std::string(controlName(Control::ClearBitmap)), "ClearBitmap");
    EXPECT_EQ(std::string(controlName(Control::ShiftButton)), "ShiftButton");
}

TEST_F(Controls, WindowIsToldOfAChangeAndOnlyOfAChange) {
    Main.setVisible(Control::FuselageVTopFrame, true);
    Main.setVisible(Control::FuselageVTopFrame, true);
    Main.setEnabled(Control::MoveBitmap, true);
    Main.setEnabled(Control::MoveBitmap, true);
    Main.setChecked(Control::RenderButton, true);
    Main.setChecked(Control::RenderButton, true);
    Main.setSlider(Control::BiasSlider, 10);
    Main.setSlider(Control::BiasSlider, 10);
    Main.selectTab(PanelTab::rudder);
    Main.selectTab(PanelTab::rudder);
    const std::vector<Control> told{Control::FuselageVTopFrame, Control::MoveBitmap,
                                    Control::RenderButton, Control::BiasSlider,
                                    Control::Parameters};
    EXPECT_EQ(window.changes, told);
}

TEST_F(Controls, SilentSliderTouchesNoModel) {
    Main.setSlider(Control::CurvatureSlider, 300);
    EXPECT_TRUE(area.calls.empty());
    EXPECT_TRUE(Main.savedProject);
}

TEST_F(Controls, AFreshFormHasForgottenEverything) {
    Main.view.zoom = 3;
    Main.pointer.altkey = true;
    Main.pictures[1].shown = true;
    Main.setEnabled(Control::MoveBitmap, true);
    resetEditor();
    EXPECT_EQ(Main.DrawArea, nullptr);
    EXPECT_EQ(Main.window, nullptr);
    EXPECT_EQ(Main.view.zoom, 0.2);
    EXPECT_FALSE(Main.pointer.altkey);
    EXPECT_FALSE(Main.pictures[1].shown);
    EXPECT_FALSE(Main.controls[Control::MoveBitmap].enabled);
    EXPECT_EQ(Main.tab(), PanelTab::wing);
    for (const Control bar : {Control::IndexWingsScroll, Control::FuselageScroll,
                              Control::IndexFusScroll, Control::IndexServosScroll}) {
        EXPECT_EQ(Main.controls[bar].value, 1);
        EXPECT_EQ(Main.controls[bar].maximum, 1);
    }
}

}  // namespace
}  // namespace velna
