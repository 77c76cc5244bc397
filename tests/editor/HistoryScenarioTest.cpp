// Every scripted gesture with the history on: one step a gesture, and the way back and forth.
#include "support/HistoryRun.h"
#include "support/ScenarioRun.h"

namespace velna::test {
namespace {

void noToolbar(EditorBench&, const std::string& key) {
    ADD_FAILURE() << "no toolbar here to click " << key << " on";
}

class HistoryScenario : public ::testing::TestWithParam<std::size_t> {
protected:
    EditorBench bench;
};

TEST_P(HistoryScenario, GoesBackToTheStartAndForthToTheEnd) {
    runHistory(bench, scenarios().at("cases").at(GetParam()), noToolbar);
    EXPECT_FALSE(HasFailure());
}

INSTANTIATE_TEST_SUITE_P(Scenarios, HistoryScenario,
                         ::testing::ValuesIn(scenariosThatClickTheToolbar(false)), scenarioName);

/// A history that lost its steps would pass all of the above.
TEST(HistoryScenarios, MakeStepsAtAll) {
    std::size_t steps = 0;
    for (const std::size_t i : scenariosThatClickTheToolbar(false)) {
        EditorBench bench;
        runHistory(bench, scenarios().at("cases").at(i), noToolbar);
        steps += Main.history.stepCount();
    }
    EXPECT_GT(steps, scenariosThatClickTheToolbar(false).size() / 2);
}

}  // namespace
}  // namespace velna::test
