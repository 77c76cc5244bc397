#include "support/ToolbarBench.h"

#include <algorithm>
#include <array>
#include <stdexcept>

#include "shell/Application.h"
#include "support/EditorBench.h"
#include "support/ProgramInHand.h"

namespace velna::test {

ToolbarBench::ToolbarBench() {
    GlTape::clear();
    program.rendering.context = &context;
    program.rendering.createRenderContext();
}

ToolbarBench::~ToolbarBench() {
    program.rendering.destroyRenderContext();
    program.rendering.context = nullptr;
}

void clickToolbar(EditorBench& bench, const std::string& key) {
    constexpr std::array keys{Toolbar::Key::VTop, Toolbar::Key::Front, Toolbar::Key::Side,
                              Toolbar::Key::HTop, Toolbar::Key::Render};
    const auto button = std::ranges::find(Toolbar::buttons(), key, &Toolbar::Button::name);
    if (button == Toolbar::buttons().end() || std::ranges::find(keys, button->key) == keys.end())
        throw std::runtime_error("no such toolbar key: " + key);
    if (button->state && !Main.controls[*button->state].enabled) return;
    const int before = GlTape::count("SwapBuffers");
    program.toolbar.click(button->key);
    bench.window.renders += GlTape::count("SwapBuffers") - before;
}

}  // namespace velna::test
