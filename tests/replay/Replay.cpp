#include "Replay.h"

#include <algorithm>
#include <functional>
#include <stdexcept>

#include "Expectation.h"
#include "support/EditorState.h"
#include "support/ScenarioDifferences.h"
#include "support/SceneReplay.h"
#include "support/ToolbarBench.h"

namespace velna::test {
namespace {

using nlohmann::json;
using Lines = std::vector<std::string>;

std::string nameOf(const Document& named) {
    if (!named.is_object() || !named.contains("name") || !named.at("name").is_string())
        throw std::runtime_error("a case without a name");
    return named.at("name");
}

/// Runs `work`; what it throws is told with the case's name before it.
template <class Work>
auto ofCase(const std::string& name, Work work) {
    try {
        return work();
    } catch (const std::exception& wrong) {
        throw std::runtime_error(name + ": " + wrong.what());
    }
}

bool hasScenarios(const Document& document) {
    if (!document.is_object()) throw std::runtime_error("is no object");
    if (document.contains("cases")) {
        const bool held = document.at("cases").is_array() &&
                          (!document.contains("base") || document.at("base").is_object());
        if (!held) throw std::runtime_error("\"cases\" is no list, or \"base\" no object");
        return true;
    }
    if (!document.contains("file") || !document.contains("steps"))
        throw std::runtime_error("holds neither \"cases\" nor a scene's \"file\" and \"steps\"");
    return false;
}

/// The editor on recorders, with a picture behind the toolbar.
struct Stage {
    EditorBench bench;
    ToolbarBench toolbar;
};

json surfaceOf(const EditorBench& bench) {
    return {{"DrawArea", {bench.area.width(), bench.area.height()}},
            {"DrawSectionArea", {bench.sectionArea.width(), bench.sectionArea.height()}}};
}

/// The state of a fresh start; the document's surface must be that of the bench.
json freshState(const Document& document) {
    const Stage stage;
    const json surface = surfaceOf(stage.bench);
    if (!document.contains("surface") || json(document.at("surface")) != surface)
        throw std::runtime_error("\"surface\" is not " + surface.dump());
    return editorState(stage.bench);
}

ReplayedScenario run(const json& scenario, Lines& faults) {
    Stage stage;
    ReplayedScenario replayed = replayScenario(stage.bench, scenario, clickToolbar);
    for (const std::string& fault : GlTape::faults()) faults.push_back("fault: " + fault);
    return replayed;
}

/// Where a question has no answer there is nothing to write down.
void refuseUnanswered(const ReplayedScenario& replayed) {
    for (std::size_t i = 0; i < replayed.steps.size(); ++i)
        for (const std::string& question : replayed.steps[i].unanswered)
            throw std::runtime_error("step " + std::to_string(i) +
                                     ": a question without an answer: " + question);
}

Document replayedCase(const Document& stored, bool allLines) {
    Lines faults;
    const json scenario = stored;
    const ReplayedScenario run = test::run(scenario, faults);
    refuseUnanswered(run);
    if (!faults.empty()) throw std::runtime_error(faults.front());
    Document result = stored;
    result["expected"] = expectationOf(run, scenario, nullptr, allLines);
    return result;
}

Lines caseDifferences(const json& base, const Document& stored, bool all) {
    if (!stored.contains("expected")) return {"has no \"expected\""};
    Lines faults;
    const json scenario = stored;
    Lines found = scenarioDifferences(base, scenario, run(scenario, faults), all);
    found.insert(found.end(), faults.begin(), faults.end());
    return found;
}

Document acceptedCase(const json& base, const Document& stored) {
    Lines faults;
    const json scenario = stored;
    const ReplayedScenario run = test::run(scenario, faults);
    refuseUnanswered(run);
    Document result = stored;
    const Document former = stored.value("expected", Document::object());
    result["expected"] = expectationOf(run, scenario, former, false);
    Lines left = scenarioDifferences(base, json(result), run);
    left.insert(left.end(), faults.begin(), faults.end());
    if (!left.empty()) throw std::runtime_error("cannot be accepted: " + left.front());
    return result;
}

/// A picture's members in the order of the stored ones, which stand where they say the same.
Document inOrderOf(const Document& stored, const json& actual) {
    if (!stored.is_object() || !actual.is_object())
        return samePlaces(json(stored), actual) ? stored : Document(actual);
    Document result = Document::object();
    for (const auto& [name, value] : stored.items())
        if (actual.contains(name)) result[name] = inOrderOf(value, actual.at(name));
    for (const auto& [name, value] : actual.items())
        if (!result.contains(name)) result[name] = value;
    return result;
}

/// The normals that hang on rounding, in the program's own calls.
Document softOf(const json& scene, const ReplayedScene& run) {
    if (!scene.contains("calls")) return Document::array();
    return softNormals(scene.at("calls"), scene.at("soft"), run.calls);
}

/// The scene with everything that it expects as the run gave it.
Document withRun(const Document& scene, const ReplayedScene& run) {
    Document result = scene;
    result["messages"] = run.messages;
    result["soft"] = softOf(json(scene), run);
    result["pictures"] = run.pictures;
    result["primitives"] = run.primitives();
    result["vertices"] = run.vertices();
    result["calls"] = Document(json(run.calls));
    return result;
}

ReplayedScene runScene(const json& scene, const std::string& folder) {
    if (scene.contains("calls")) checkSceneExpectations(scene);
    ReplayedScene run = replayScene(scene, folder);
    if (!run.faults.empty()) throw std::runtime_error("fault: " + run.faults.front());
    return run;
}

Document acceptedScene(const Document& stored, const std::string& folder) {
    const json scene = stored;
    const ReplayedScene run = runScene(scene, folder);
    Document result = withRun(stored, run);
    if (!scene.contains("calls")) return result;
    result["pictures"] = inOrderOf(stored.at("pictures"), run.pictures);
    if (glDifferences(scene.at("calls"), run.calls, scene.at("soft")).empty()) {
        result["soft"] = stored.at("soft");
        result["calls"] = stored.at("calls");
    }
    return result;
}

/// Adds the case to those that hold the program's own figures.
void note(Document& document, const std::string& name) {
    Document& told = document["accepted"];
    told["note"] =
        "These hold figures that the program gave and somebody looked at, no longer ones made "
        "apart from it.";
    Document& cases = told["cases"];
    if (std::ranges::find(cases, Document(name)) == cases.end()) cases.push_back(name);
}

void prefix(Lines& lines, const std::string& name, const Lines& more) {
    for (const std::string& line : more) lines.push_back(name + ": " + line);
}

Lines sceneLines(const Document& scene, const std::string& folder) {
    if (!scene.contains("calls")) return {"has no \"calls\""};
    return sceneDifferences(json(scene), replayScene(json(scene), folder));
}

}  // namespace

Document replayed(const Document& document, const std::string& folder, bool allLines) {
    if (!hasScenarios(document))
        return ofCase(nameOf(document),
                      [&] { return withRun(document, runScene(json(document), folder)); });
    Document result = document;
    result["base"] = baseOf(freshState(document), Document::object());
    for (Document& scenario : result["cases"])
        scenario = ofCase(nameOf(scenario), [&] { return replayedCase(scenario, allLines); });
    return result;
}

Lines differencesIn(const Document& document, const std::string& folder, bool all) {
    Lines found;
    if (!hasScenarios(document)) {
        const std::string name = nameOf(document);
        prefix(found, name, ofCase(name, [&] { return sceneLines(document, folder); }));
        return found;
    }
    if (!document.contains("base")) throw std::runtime_error("no \"base\"");
    const json base = document.at("base");
    prefix(found, "base", startDifferences(base, freshState(document)));
    for (const Document& scenario : document.at("cases")) {
        const std::string name = nameOf(scenario);
        prefix(found, name, ofCase(name, [&] { return caseDifferences(base, scenario, all); }));
    }
    return found;
}

Document accepted(const Document& document, const std::string& folder) {
    Document result = document;
    if (!hasScenarios(document)) {
        const std::string name = nameOf(document);
        if (differencesIn(document, folder).empty()) return result;
        result = ofCase(name, [&] { return acceptedScene(document, folder); });
        note(result, name);
        return result;
    }
    const json fresh = freshState(document);
    if (!document.contains("base")) throw std::runtime_error("no \"base\"");
    if (!startDifferences(document.at("base"), fresh).empty()) {
        result["base"] = baseOf(fresh, document.at("base"));
        note(result, "base");
    }
    const json base = result.at("base");
    Lines names;
    for (Document& scenario : result["cases"]) {
        const std::string name = nameOf(scenario);
        ofCase(name, [&] {
            if (caseDifferences(base, scenario, false).empty()) return;
            scenario = acceptedCase(base, scenario);
            names.push_back(name);
        });
    }
    for (const std::string& name : names) note(result, name);
    return result;
}

}  // namespace velna::test
