// The picture beside the drawing, live while something is dragged.

#include <gtest/gtest.h>

#include "support/GlTape.h"
#include "support/ShellFixture.h"

namespace velna::test {
namespace {

using nlohmann::json;
using Toolbar::Key;

/// A window whose picture is the program's.
struct LiveWindow : RecordingWindow {
    void renderScene(bool rebuild) override { program.rendering.renderScene(rebuild); }
    void holdPicture(bool on) override { program.rendering.hold(on); }
};

class DraggedPicture : public ShellFixture {
protected:
    void SetUp() override {
        ShellFixture::SetUp();
        Main.window = &live;
        start();
        program.toolbar.click(Key::Side);
        Main.selectTab(PanelTab::fuselage);
        program.toolbar.click(Key::Render);
        ASSERT_TRUE(Main.renderPressed());
    }

    /// What list 1 holds since the last look, or all of it where nothing changed.
    static std::vector<json> pictureNow() {
        std::vector<json> shown;
        bool open = false;
        for (const json& call : GlTape::calls()) {
            if (call[0] == "glNewList") {
                open = true;
                shown.clear();
            }
            open = open && call[0] != "glEndList";
            if (open) shown.push_back(call);
        }
        GlTape::calls().clear();
        return shown;
    }

    void expectWholePicture(const char* after) {
        const std::vector<json> shown = pictureNow();
        EXPECT_FALSE(shown.empty()) << after;
        GlTape::forgetLists();
        program.rendering.recreateRenderContext();
        EXPECT_TRUE(pictureNow() == shown) << after;
        EXPECT_EQ(GlTape::objectListCount(), nbWings + nbFuselages + nbEquipments + 2) << after;
    }

    LiveWindow live;
};

TEST_F(DraggedPicture, TheNumberOfOutlinePointsMayChangeDuringADrag) {
    const Point2D top = Main.views.fuselages(1).side.top(2);
    const auto x = static_cast<float>(top.x);
    const auto y = static_cast<float>(top.y);
    Main.DrawArea_MouseMove(0, 0, x, y);
    Main.DrawArea_MouseDown(1, 0, x, y);
    pictureNow();
    const double before = Fuselages(1).height(2);
    Main.DrawArea_MouseMove(1, 0, x, y - 5);
    EXPECT_NE(Fuselages(1).height(2), before);
    expectWholePicture("the first step");
    for (const char* points : {"20", "7", "0", "2", "100"}) {
        Main.textEdited(Control::NbCrossFuselageText, points);
        expectWholePicture(points);
        Main.DrawArea_MouseMove(1, 0, x, y - 10);
        Main.DrawArea_MouseMove(1, 0, x, y - 15);
        pictureNow();
        Fuselages(1).width(2) += 1;
        program.rendering.renderScene(true);
        expectWholePicture("a step of the drag");
    }
    Main.DrawArea_MouseUp(1, 0, x, y - 15);
    EXPECT_TRUE(GlTape::faults().empty());
}

}  // namespace
}  // namespace velna::test
