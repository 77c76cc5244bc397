#include "support/SceneReplay.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <numeric>
#include <sstream>
#include <stdexcept>

#include "preview/Bitmap.h"
#include "support/GlForm.h"
#include "support/SceneBench.h"

namespace velna::test {
namespace {

using nlohmann::json;
using Lines = std::vector<std::string>;
using Bytes = std::vector<unsigned char>;

const std::string rebuildStep = "renderScene(true)";
const std::string recordedStep = "renderScene(true), recorded";

std::string textOf(const json& scene, const char* member) {
    if (!scene.contains(member) || !scene.at(member).is_string())
        throw std::runtime_error(std::string("no text \"") + member + "\"");
    return scene.at(member);
}

/// "Wings(1): span := 350, length1 := 115", or "Rudder.span := 75".
void assignFields(const std::string& step) {
    const std::runtime_error unknown("no such step: " + step);
    std::string object;
    std::string assignments = step;
    if (const auto colon = step.find(": "); colon != std::string::npos) {
        object = step.substr(0, colon) + ".";
        assignments.erase(0, colon + 2);
    }
    std::istringstream words(assignments);
    std::string name;
    std::string sign;
    double value = 0;
    char comma = ',';
    do {
        if (comma != ',' || !(words >> name >> sign >> value) || sign != ":=") throw unknown;
        SceneBench::assign(object + name, value);
    } while (words >> comma);
}

GlCalls takeSteps(SceneBench& bench, const json& scene) {
    const json steps = scene.value("steps", json::array());
    if (!steps.is_array() || steps.empty() || steps.back() != recordedStep)
        throw std::runtime_error("the last of \"steps\" is not \"" + recordedStep + "\"");
    for (std::size_t i = 0; i + 1 < steps.size(); ++i) {
        if (!steps[i].is_string()) throw std::runtime_error("no such step: " + steps[i].dump());
        if (steps[i] == rebuildStep)
            bench.rebuild();
        else
            assignFields(steps[i]);
    }
    return bench.rebuild();
}

/// The pixels of `file` as a texture, as they lie or turned.
Bytes texelsOf(const std::string& file, bool turned) {
    FakeImaging reader;
    std::string reason;
    if (!reader.load(file, reason)) return {};
    if (turned) reader.rotateQuarter();
    reader.resize(Bitmap::roundedSize(reader.width()), Bitmap::roundedSize(reader.height()));
    return reader.pixels().bytes;
}

/// The title of the file among `files` that a texture holds.
std::string titleOf(const Bytes& texture, const std::vector<std::string>& files) {
    for (const std::string& file : files)
        if (texture == texelsOf(file, true) || texture == texelsOf(file, false))
            return file.substr(file.rfind('/') + 1);
    return "the picture of no file";
}

void nameUploads(GlCalls& calls, const std::vector<std::string>& files) {
    std::size_t upload = 0;
    for (json& call : calls)
        if (call[0] == "glTexImage2D")
            call.back() = titleOf(GlTape::pictures().at(upload++), files);
}

/// The vertex counts of the primitives that have any.
std::vector<std::size_t> filledPrimitives(const GlCalls& calls) {
    std::vector<std::size_t> counts;
    for (const json& call : calls) {
        const std::string name = call[0];
        if (name == "glBegin") counts.push_back(0);
        if (name.starts_with("glVertex")) ++counts.back();
    }
    std::erase(counts, 0U);
    return counts;
}

bool nearPlace(const json& expected, const json& actual) {
    return expected.is_number() && actual.is_number() &&
           std::abs(expected.get<double>() - actual.get<double>()) <= 1e-12;
}

/// What the objects have otherwise than expected, a line a member.
Lines pictureDifferences(const json& expected, const json& actual) {
    Lines found;
    for (const auto& [object, members] : expected.items()) {
        const json there = actual.value(object, json::object());
        for (const auto& [member, value] : members.items()) {
            const json is = there.value(member, json("missing"));
            if (!samePlaces(value, is))
                found.push_back("pictures, " + object + "." + member + " is " + is.dump() +
                                ", expected " + value.dump());
        }
    }
    for (const auto& item : actual.items())
        if (!expected.contains(item.key()))
            found.push_back("pictures, " + item.key() + " should have none");
    return found;
}

void tell(Lines& found, const std::string& what, const json& expected, const json& actual) {
    if (expected != actual)
        found.push_back(what + " is " + actual.dump() + ", expected " + expected.dump());
}

}  // namespace

std::size_t ReplayedScene::primitives() const {
    return filledPrimitives(calls).size();
}

std::size_t ReplayedScene::vertices() const {
    const std::vector<std::size_t> counts = filledPrimitives(calls);
    return std::accumulate(counts.begin(), counts.end(), std::size_t{0});
}

ReplayedScene replayScene(const json& scene, const std::string& folder) {
    if (textOf(scene, "check") != "exact") throw std::runtime_error("\"check\" is not \"exact\"");
    SceneBench bench;
    SceneBench::open(folder + textOf(scene, "file"));
    ReplayedScene replayed;
    replayed.calls = takeSteps(bench, scene);
    nameUploads(replayed.calls, bench.pictures.loads);
    replayed.messages = bench.pictures.errors;
    replayed.pictures = SceneBench::objectPictures();
    replayed.faults = GlTape::faults();
    if (GlTape::insideList()) replayed.faults.emplace_back("a list left open");
    return replayed;
}

void checkSceneExpectations(const json& scene) {
    for (const char* member : {"messages", "soft", "pictures", "primitives", "vertices", "calls"})
        if (!scene.contains(member)) throw std::runtime_error(std::string("no \"") + member + "\"");
    const auto isObject = [](const json& value) { return value.is_object(); };
    if (!scene.at("pictures").is_object() || !std::ranges::all_of(scene.at("pictures"), isObject))
        throw std::runtime_error("\"pictures\" holds no objects");
    const auto isIndex = [](const json& value) { return value.is_number_unsigned(); };
    if (!scene.at("soft").is_array() || !std::ranges::all_of(scene.at("soft"), isIndex))
        throw std::runtime_error("\"soft\" is no list of numbers of calls");
    checkGlCalls(scene.at("calls"));
}

bool samePlaces(const json& expected, const json& actual) {
    if (!expected.is_array() || !actual.is_array()) return expected == actual;
    return std::ranges::equal(expected, actual, nearPlace);
}

Lines sceneDifferences(const json& scene, const ReplayedScene& replayed) {
    checkSceneExpectations(scene);
    Lines found = glDifferences(scene.at("calls"), replayed.calls, scene.at("soft"));
    tell(found, "primitives", scene.at("primitives"), replayed.primitives());
    tell(found, "vertices", scene.at("vertices"), replayed.vertices());
    tell(found, "messages", scene.at("messages"), replayed.messages);
    for (const std::string& line : pictureDifferences(scene.at("pictures"), replayed.pictures))
        found.push_back(line);
    for (const std::string& fault : replayed.faults) found.push_back("fault: " + fault);
    return found;
}

}  // namespace velna::test
