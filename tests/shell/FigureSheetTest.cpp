// What the window of figures shows, without a window.

#include <string>

#include "shell/FigureSheet.h"
#include "support/ShellFixture.h"

namespace velna::test {
namespace {

using Toolbar::Key;

class FigureSheetTest : public ShellFixture {
protected:
    void SetUp() override {
        ShellFixture::SetUp();
        start();
    }

    FigureSheet& sheet() { return program.figures; }

    /// Value and unit of the first line with this label, of a look now.
    std::string shown(const std::string& label) {
        sheet().update();
        for (const FigureSheet::Line& line : sheet().lines())
            if (line.label == label) return line.value + "|" + line.unit;
        return "none";
    }
};

TEST_F(FigureSheetTest, ATextThatIsNoNumberLeavesItsFiguresEmpty) {
    for (const char* text : {"-1", "heavy", "1e999", "12 kg", "1,5"}) {
        sheet().typeMass("1330");
        EXPECT_EQ(shown("Wing loading"), "50.0|g/dm2");
        sheet().typeMass(text);
        EXPECT_FALSE(sheet().massTaken()) << text;
        EXPECT_EQ(shown("Wing loading"), "|") << text;
        sheet().typeSpeed(text);
        EXPECT_FALSE(sheet().speedTaken()) << text;
        EXPECT_EQ(shown("Reynolds number, tip"), "|") << text;
    }
    sheet().typeMass("");
    EXPECT_TRUE(sheet().massTaken());
    EXPECT_EQ(shown("Wing loading"), "|");
    sheet().typeSpeed("54");
    EXPECT_EQ(shown("Reynolds number, root"), "236188|");
}

TEST_F(FigureSheetTest, MassAndSpeedStandInTheirFieldsAlone) {
    EXPECT_EQ(shown("Mass"), "none");
    EXPECT_EQ(shown("Speed"), "none");
}

TEST_F(FigureSheetTest, ALookFindsEveryChangeOnce) {
    EXPECT_TRUE(sheet().update());
    EXPECT_FALSE(sheet().update());
    EXPECT_EQ(shown("Span"), "1400.0|mm");
    Wings(1).span = 800;
    EXPECT_TRUE(sheet().update());
    EXPECT_EQ(shown("Span"), "1600.0|mm");
    dialogs.yesNo = {true};
    program.toolbar.click(Key::New);
    EXPECT_EQ(shown("Span"), "1400.0|mm");
    Plane::switchAllToInches(project);
    project.units = inches;
    EXPECT_EQ(shown("Span"), "55.118|in");
    EXPECT_EQ(shown("Projected area"), "26.600|dm2");
}

TEST_F(FigureSheetTest, EachFuselageHasItsTitle) {
    nbFuselages = 2;
    Fuselage::resizeFuselages(project);
    sheet().update();
    int titles = 0;
    for (const FigureSheet::Line& line : sheet().lines())
        if (line.title && line.label.starts_with("Fuselage ")) ++titles;
    EXPECT_EQ(titles, 2);
    EXPECT_NE(sheet().text().find("Fuselage 2\n"), std::string::npos);
}

TEST_F(FigureSheetTest, MarksLieInTheViewsThatSeeTheLengthAndOnlyWhenTicked) {
    sheet().update();
    EXPECT_TRUE(sheet().marksOnScreen().empty());
    sheet().showsMarks = true;
    const Figures figures = figuresOf(project);
    for (const Key key : {Key::VTop, Key::Side, Key::HTop}) {
        program.toolbar.click(key);
        const auto marks = sheet().marksOnScreen();
        ASSERT_EQ(marks.size(), 7U);
        const ViewState& view = Main.view;
        const double along = *figures.wing.quarterX * view.zoom;
        // The second corner of the diamond lies beside the point.
        const bool noseUp = view.mode == ViewMode::VTop;
        EXPECT_DOUBLE_EQ(noseUp ? marks[0].to.y : marks[0].to.x,
                         along + (noseUp ? view.yoff : view.xoff));
    }
    program.toolbar.click(Key::Front);
    EXPECT_TRUE(sheet().marksOnScreen().empty());
}

TEST_F(FigureSheetTest, TheDrawingItselfIsTheSameWithMarks) {
    const auto drawn = [&] {
        drawArea.calls.clear();
        program.toolbar.click(Key::VTop);
        Main.DrawArea_MouseMove(0, 0, 450, 200);
        Main.DrawArea_MouseMove(0, 0, 451, 250);
        return drawArea.calls;
    };
    const auto plain = drawn();
    sheet().showsMarks = true;
    sheet().update();
    EXPECT_EQ(drawn(), plain);
}

TEST_F(FigureSheetTest, TheCommandTogglesTheWindow) {
    desktop.calls.clear();
    program.toolbar.click(Key::Figures);
    EXPECT_EQ(desktop.calls, std::vector<std::string>{"figures"});
}

}  // namespace
}  // namespace velna::test
