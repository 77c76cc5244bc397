#include "support/ScenarioReplay.h"

#include <stdexcept>

#include "model/Plane.h"
#include "support/EditorState.h"
#include "support/ScenarioForm.h"

namespace velna::test {
namespace {

using nlohmann::json;

std::string colourName(Rgb colour) {
    if (colour == black) return "black";
    if (colour == white) return "white";
    if (colour == project.dimColor) return "dim";
    if (colour == project.highlightColor) return "highlight";
    return "unknown";
}

json callAsJson(const SurfaceCall& call) {
    switch (call.kind) {
        case SurfaceCall::Kind::Clear:
            return json::array({"clear"});
        case SurfaceCall::Kind::Picture:
            return json::array({"picture", call.x1, call.y1, call.x2, call.y2});
        case SurfaceCall::Kind::Line:
            break;
    }
    return json::array({call.x1, call.y1, call.x2, call.y2, colourName(call.colour)});
}

json callsAsJson(const std::vector<SurfaceCall>& calls) {
    json list = json::array();
    for (const SurfaceCall& call : calls) list.push_back(callAsJson(call));
    return list;
}

/// The section editor draws in the foreground colour, which the scenarios call "fore".
json sectionAsJson(const RecordingSurface& surface) {
    if (surface.count(SurfaceCall::Kind::Clear) == 0) return json::array();
    json lines = callsAsJson(surface.sinceClear());
    for (json& line : lines)
        if (line.back() == "black") line.back() = "fore";
    return lines;
}

ReplayedStep replayStep(EditorBench& bench, const json& step, ToolbarClick click) {
    ReplayedStep replayed;
    bench.area.calls.clear();
    bench.sectionArea.calls.clear();
    bench.window.onUnanswered = [&](const std::string& question) {
        replayed.unanswered.push_back(question);
    };
    runStep(bench, step, click);
    bench.window.onUnanswered = {};
    replayed.state = editorState(bench);
    replayed.lines = callsAsJson(bench.area.calls);
    replayed.section = sectionAsJson(bench.sectionArea);
    return replayed;
}

}  // namespace

ReplayedScenario replayScenario(EditorBench& bench, const json& scenario, ToolbarClick click) {
    checkScenarioForm(scenario);
    std::string at = "setup: ";
    try {
        applySetup(bench, scenario.at("setup"));
        ReplayedScenario replayed{editorState(bench), {}};
        for (const json& step : scenario.at("steps")) {
            at = "step " + std::to_string(replayed.steps.size()) + ": ";
            replayed.steps.push_back(replayStep(bench, step, click));
        }
        return replayed;
    } catch (const std::exception& wrong) {
        throw std::runtime_error(at + wrong.what());
    }
}

}  // namespace velna::test
