// Every scripted gesture with the history on: one step a gesture, and the way back and forth.
#include <map>

#include "support/EditorState.h"
#include "support/SameAircraft.h"
#include "support/ScenarioRun.h"

namespace velna::test {
namespace {

using nlohmann::json;

void noToolbar(EditorBench&, const std::string& key) {
    ADD_FAILURE() << "no toolbar here to click " << key << " on";
}

class HistoryScenario : public ::testing::TestWithParam<std::size_t> {
protected:
    /// Runs a scenario, and keeps the project as it is after each step of the history.
    void run(const json& scenario) {
        applySetup(bench, scenario.at("setup"));
        bench.window.onUnanswered = [](const std::string&) {};
        Main.beginHistory();
        states[0] = project;
        for (const json& step : scenario.at("steps")) {
            const std::size_t before = Main.history.position();
            runStep(bench, step, noToolbar);
            expectOneStepAtMost(before, step);
        }
        Main.cancelGesture();
        note();
        bench.window.onUnanswered = {};
    }
    void expectOneStepAtMost(std::size_t before, const json& step) {
        EXPECT_LE(Main.history.position(), before + 1) << step.dump();
        if (Main.history.isOpen()) {
            EXPECT_EQ(Main.history.position(), before) << "in mid-gesture, " << step.dump();
            return;
        }
        note();
    }
    /// What is not in the history now would become a step of its own at the next undo.
    void note() {
        const std::size_t steps = Main.history.stepCount();
        Project looking = project;
        std::string file;
        if (Main.history.undo(looking, file)) Main.history.redo(looking, file);
        EXPECT_EQ(Main.history.stepCount(), steps) << "changed without a step";
        states[Main.history.position()] = project;
    }

    EditorBench bench;
    std::map<std::size_t, Project> states;
};

TEST_P(HistoryScenario, GoesBackToTheStartAndForthToTheEnd) {
    run(scenarios().at("cases").at(GetParam()));
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

INSTANTIATE_TEST_SUITE_P(Scenarios, HistoryScenario,
                         ::testing::ValuesIn(scenariosThatClickTheToolbar(false)), scenarioName);

}  // namespace
}  // namespace velna::test
