#include "support/HistoryRun.h"
#include "support/ScenarioRun.h"
#include "support/ToolbarBench.h"

// The scenarios that click the toolbar, on its own commands and with a picture to draw.

namespace velna::test {
namespace {

class ToolbarScenario : public ::testing::TestWithParam<std::size_t> {
protected:
    EditorBench bench;
    ToolbarBench toolbar;
};

TEST_P(ToolbarScenario, EndsAsComputed) {
    runScenario(bench, scenarios().at("cases").at(GetParam()), clickToolbar);
    EXPECT_FALSE(HasFailure());
    EXPECT_TRUE(GlTape::faults().empty());
}

TEST_P(ToolbarScenario, GoesBackToTheStartAndForthToTheEnd) {
    runHistory(bench, scenarios().at("cases").at(GetParam()), clickToolbar);
    EXPECT_FALSE(HasFailure());
}

INSTANTIATE_TEST_SUITE_P(Scenarios, ToolbarScenario,
                         ::testing::ValuesIn(scenariosThatClickTheToolbar(true)), scenarioName);

}  // namespace
}  // namespace velna::test
