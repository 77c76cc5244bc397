#include <algorithm>

#include "preview/Rendering.h"
#include "shell/ToolbarCommands.h"
#include "support/FakeRenderContext.h"
#include "support/GlTape.h"
#include "support/ScenarioRun.h"

// The scenarios that click the toolbar, on its own commands and with a picture to draw.

namespace velna::test {
namespace {

/// The toolbar speaks to the picture itself; what it has drawn counts with what the editor asked
/// for.
void clickToolbar(EditorBench& bench, const std::string& key) {
    const auto button = std::ranges::find(Toolbar::buttons, key, &Toolbar::Button::name);
    ASSERT_NE(button, Toolbar::buttons.end()) << key;
    if (button->state && !Main.controls[*button->state].enabled) return;
    const int before = GlTape::count("SwapBuffers");
    Toolbar::click(button->key);
    bench.window.renders += GlTape::count("SwapBuffers") - before;
}

class ToolbarScenario : public ::testing::TestWithParam<std::size_t> {
protected:
    void SetUp() override {
        GlTape::clear();
        Rendering::reset();
        Rendering::context = &context;
        Rendering::createRenderContext();
    }
    void TearDown() override {
        Rendering::destroyRenderContext();
        Rendering::context = nullptr;
    }

    EditorBench bench;
    FakeRenderContext context;
};

TEST_P(ToolbarScenario, EndsAsComputed) {
    runScenario(bench, scenarios().at("cases").at(GetParam()), clickToolbar);
    EXPECT_FALSE(HasFailure());
    EXPECT_TRUE(GlTape::faults().empty());
}

INSTANTIATE_TEST_SUITE_P(Scenarios, ToolbarScenario,
                         ::testing::ValuesIn(scenariosThatClickTheToolbar(true)), scenarioName);

}  // namespace
}  // namespace velna::test
