#include "support/ScenarioRun.h"

// The scenarios that need the editor alone; those that click the toolbar run where the toolbar is.

namespace velna::test {
namespace {

void noToolbar(EditorBench&, const std::string& key) {
    ADD_FAILURE() << "no toolbar here to click " << key << " on";
}

class ViewScenario : public ::testing::TestWithParam<std::size_t> {
protected:
    EditorBench bench;
};

TEST_P(ViewScenario, EndsAsComputed) {
    runScenario(bench, scenarios().at("cases").at(GetParam()), noToolbar);
    EXPECT_FALSE(HasFailure());
}

INSTANTIATE_TEST_SUITE_P(Scenarios, ViewScenario,
                         ::testing::ValuesIn(scenariosThatClickTheToolbar(false)), scenarioName);

TEST(ViewScenarios, StartFromTheStateOfAFreshStart) {
    const EditorBench bench;
    EXPECT_EQ(differencesFromAFreshStart(bench), std::vector<std::string>{});
}

TEST(ViewScenarios, AreAllThere) {
    EXPECT_EQ(scenarios().at("cases").size(), 231U);
    EXPECT_EQ(scenariosThatClickTheToolbar(false).size(), 227U);
    EXPECT_EQ(scenariosThatClickTheToolbar(true).size(), 4U);
}

}  // namespace
}  // namespace velna::test
