#include "support/HistoryRun.h"

#include <map>
#include <string>

#include "support/SameAircraft.h"

namespace velna::test {
namespace {

using nlohmann::json;
/// The project after so many steps.
using States = std::map<std::size_t, Project>;

/// What is not in the history now would become a step of its own at the next undo.
void note(States& states) {
    const std::size_t steps = Main.history.stepCount();
    Project looking = project;
    std::string file;
    if (Main.history.undo(looking, file)) Main.history.redo(looking, file);
    EXPECT_EQ(Main.history.stepCount(), steps) << "changed without a step";
    states[Main.history.position()] = project;
}

void expectOneStepAtMost(States& states, std::size_t before, const json& step) {
    EXPECT_LE(Main.history.position(), before + 1) << step.dump();
    if (Main.history.isOpen()) {
        EXPECT_EQ(Main.history.position(), before) << "in mid-gesture, " << step.dump();
    } else {
        note(states);
    }
}

States statesOf(EditorBench& bench, const json& scenario, ToolbarClick click) {
    States states;
    applySetup(bench, scenario.at("setup"));
    bench.window.onUnanswered = [](const std::string&) {};
    Main.beginHistory();
    states[0] = project;
    for (const json& step : scenario.at("steps")) {
        const std::size_t before = Main.history.position();
        runStep(bench, step, click);
        expectOneStepAtMost(states, before, step);
    }
    Main.cancelGesture();
    note(states);
    bench.window.onUnanswered = {};
    return states;
}

}  // namespace

void runHistory(EditorBench& bench, const json& scenario, ToolbarClick click) {
    const States states = statesOf(bench, scenario, click);
    const Project end = project;
    const std::size_t steps = Main.history.stepCount();
    ASSERT_EQ(Main.history.position(), steps);
    const int mode = Main.view.mode;
    for (std::size_t i = steps; i > 0; --i) {
        ASSERT_TRUE(Main.undo()) << i;
        EXPECT_TRUE(sameAircraft(states.at(i - 1), project)) << "after undoing step " << i;
    }
    EXPECT_FALSE(Main.undo());
    EXPECT_TRUE(sameAircraft(states.at(0), project));
    for (std::size_t i = 1; i <= steps; ++i) {
        ASSERT_TRUE(Main.redo()) << i;
        EXPECT_TRUE(sameAircraft(states.at(i), project)) << "after step " << i << " again";
    }
    EXPECT_FALSE(Main.redo());
    EXPECT_TRUE(sameAircraft(end, project));
    EXPECT_EQ(Main.view.mode, mode);
}

}  // namespace velna::test
