// The row of buttons as the user sees it.

#include "support/ShellFixture.h"

namespace velna::test {
namespace {

using Toolbar::ButtonKind;
using Toolbar::Key;

using ToolbarButtons = ShellFixture;

TEST_F(ToolbarButtons, HaveTheirTipsAndKinds) {
    struct Row {
        const char* tip;
        ButtonKind kind;
    };
    const Row rows[] = {
        {"Reset to the default plane", ButtonKind::Push},
        {"Open a Velna project", ButtonKind::Push},
        {"Save Velna project or export to VRML", ButtonKind::Push},
        {"Print plans", ButtonKind::Push},
        {"Selects the 2D top view", ButtonKind::View},
        {"Selects the 2D front view", ButtonKind::View},
        {"Selects the 2D side view", ButtonKind::View},
        {"Selects the fuselage top view", ButtonKind::View},
        {"Change the color of the edited element", ButtonKind::Push},
        {"Swich On/Off real-time rendering", ButtonKind::Toggle},
        {"Selects units and model scale", ButtonKind::Push},
        {"Opens the fuselage manager window", ButtonKind::Push},
        {"Flying Preview", ButtonKind::Toggle},
        {"Help File", ButtonKind::Push},
    };
    std::size_t i = 0;
    for (const Row& row : rows) {
        EXPECT_STREQ(Toolbar::buttons()[i].tip, row.tip);
        EXPECT_EQ(Toolbar::buttons()[i].kind, row.kind) << row.tip;
        ++i;
    }
}

TEST_F(ToolbarButtons, OneViewIsPressedAndHTopCanBeOnlyInSideAndHTop) {
    start();
    const Control group[] = {Control::VTopButton, Control::FrontButton, Control::SideButton,
                             Control::HTopButton};
    const std::pair<Key, bool> views[] = {
        {Key::VTop, false}, {Key::Front, false}, {Key::Side, true}, {Key::HTop, true}};
    for (std::size_t i = 0; i < 4; ++i) {
        program.toolbar.click(views[i].first);
        for (std::size_t j = 0; j < 4; ++j) EXPECT_EQ(Main.checked(group[j]), i == j) << i << j;
        EXPECT_EQ(Main.controls[Control::HTopButton].enabled, views[i].second) << i;
    }
}

}  // namespace
}  // namespace velna::test
