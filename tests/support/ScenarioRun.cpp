#include "support/ScenarioRun.h"

#include <algorithm>
#include <fstream>

#include "support/EditorState.h"
#include "support/ScenarioDifferences.h"

namespace velna::test {

using nlohmann::json;

const json& scenarios() {
    static const json all =
        json::parse(std::ifstream(std::string(VELNA_TEST_DATA) + "/views/views.json"));
    return all;
}

std::vector<std::size_t> scenariosThatClickTheToolbar(bool click) {
    std::vector<std::size_t> places;
    const json& cases = scenarios().at("cases");
    for (std::size_t i = 0; i < cases.size(); ++i) {
        const bool clicks = std::ranges::any_of(
            cases[i].at("steps"), [](const json& step) { return step.at("op") == "toolbar"; });
        if (clicks == click) places.push_back(i);
    }
    return places;
}

std::string scenarioName(const ::testing::TestParamInfo<std::size_t>& info) {
    std::string name = scenarios().at("cases").at(info.param).at("name");
    for (char& c : name)
        if (!std::isalnum(static_cast<unsigned char>(c))) c = '_';
    return std::to_string(info.param) + "_" + name;
}

std::vector<std::string> differencesFromAFreshStart(const EditorBench& bench) {
    return startDifferences(scenarios().at("base"), editorState(bench));
}

void runScenario(EditorBench& bench, const json& scenario, ToolbarClick click) {
    const ReplayedScenario replayed = replayScenario(bench, scenario, click);
    for (const std::string& line : scenarioDifferences(scenarios().at("base"), scenario, replayed))
        ADD_FAILURE() << line;
}

}  // namespace velna::test
