#include "Expectation.h"

#include <set>
#include <string>
#include <vector>

#include "support/ScenarioDifferences.h"
#include "support/SetupState.h"

namespace velna::test {
namespace {

using nlohmann::json;

/// A member of what is stored, an empty object where there is none.
Document member(const Document& stored, const std::string& name) {
    return stored.is_object() ? stored.value(name, Document::object()) : Document::object();
}

/// The actual value, or the stored one where that says the same.
Document kept(const Document& stored, const json& actual) {
    return sameValue(json(stored), actual) ? stored : Document(actual);
}

/// Each of `keys` that the state has: those that are stored first, in their order.
Document toldOf(const json& state, const std::vector<std::string>& keys, const Document& stored) {
    Document told = Document::object();
    for (const auto& [key, value] : stored.items())
        if (state.contains(key)) told[key] = kept(value, state.at(key));
    for (const std::string& key : keys)
        if (!told.contains(key) && state.contains(key)) told[key] = state.at(key);
    return told;
}

std::vector<std::string> keysOf(const json& state, bool (*wanted)(const std::string&)) {
    std::vector<std::string> keys;
    for (const auto& item : state.items())
        if (wanted(item.key())) keys.push_back(item.key());
    return keys;
}

/// Follows the state from step to step, and tells what is new in it.
class Changes {
public:
    /// Without stored expectations the smallest change is one.
    Changes(const json& start, bool exact) : told_(start), exact_(exact) {}

    /// The keys that changed, and those that are gone.
    Document changed(const Document& stored, const json& state) {
        Document found = Document::object();
        for (const auto& [key, value] : stored.items())
            if (state.contains(key) && (isNew(key, state.at(key)) || isTold(key, value, state)))
                found[key] = kept(value, state.at(key));
        for (const auto& [key, value] : state.items())
            if (!found.contains(key) && isNew(key, value)) found[key] = value;
        for (const auto& [key, value] : found.items()) {
            told_[key] = value;
            touched_.insert(key);
        }
        return found;
    }
    Document gone(const Document& stored, const json& state) {
        Document found = Document::array();
        const auto take = [&](const std::string& key) {
            if (state.contains(key) || told_.erase(key) == 0) return;
            found.push_back(key);
        };
        for (const Document& key : stored)
            if (key.is_string()) take(key);
        const json before = told_;
        for (const auto& item : before.items()) take(item.key());
        return found;
    }

private:
    bool isNew(const std::string& key, const json& value) const {
        if (!told_.contains(key)) return true;
        return exact_ ? told_.at(key) != value : !sameValue(told_.at(key), value);
    }
    /// What is stored holds, and says something new: of a control that was free that is anything.
    bool isTold(const std::string& key, const Document& value, const json& state) const {
        const bool free = isFreeAtFirst(key) && !touched_.contains(key);
        return sameValue(json(value), state.at(key)) && (free || told_.at(key) != json(value));
    }

    json told_;
    std::set<std::string> touched_;
    bool exact_;
};

void addCalls(Document& result, const Document& stored, const std::string& name, const json& calls,
              double tolerance) {
    const bool same = stored.contains(name) && sameCalls(json(stored.at(name)), calls, tolerance);
    result[name] = same ? stored.at(name) : Document(calls);
}

Document stepOf(const ReplayedStep& step, const json& asked, const Document& stored,
                Changes& changes, bool allLines) {
    Document result;
    result["changed"] = changes.changed(member(stored, "changed"), step.state);
    Document gone = changes.gone(member(stored, "gone"), step.state);
    if (!gone.empty()) result["gone"] = std::move(gone);
    const auto wanted = [&](const char* name) {
        return allLines || asked.value(name, false) || stored.contains(name);
    };
    if (wanted("lines")) addCalls(result, stored, "lines", step.lines, lineTolerance);
    if (wanted("section")) addCalls(result, stored, "section", step.section, sectionTolerance);
    return result;
}

Document modelChangedOf(const ReplayedScenario& replayed, const Document& stored) {
    json changed = json::object();
    for (const auto& [key, value] : replayed.end().items()) {
        if (!isModelField(key)) continue;
        const json before = replayed.start.value(key, json());
        const bool same = stored.is_null() ? before == value : sameValue(before, value);
        if (!same) changed[key] = value;
    }
    return toldOf(changed, keysOf(changed, isModelField), member(stored, "model_changed"));
}

}  // namespace

Document expectationOf(const ReplayedScenario& replayed, const json& scenario,
                       const Document& stored, bool allLines) {
    static const std::vector<std::string> endKeys{
        "mode", "tab", "zoom", "xoff", "yoff", "cursor", "icon", "shiftkey", "ctrlkey", "altkey"};
    Document expected;
    Document& steps = expected["steps"] = Document::array();
    const Document storedSteps = member(stored, "steps");
    Changes changes(replayed.start, stored.is_null());
    for (std::size_t i = 0; i < replayed.steps.size(); ++i) {
        const bool there = storedSteps.is_array() && i < storedSteps.size();
        steps.push_back(stepOf(replayed.steps[i], scenario.at("steps").at(i),
                               there ? storedSteps[i] : Document::object(), changes, allLines));
    }
    expected["end"] = toldOf(replayed.end(), endKeys, member(stored, "end"));
    expected["model_changed"] = modelChangedOf(replayed, stored);
    expected["handles"] =
        toldOf(replayed.end(), keysOf(replayed.end(), isPointerField), member(stored, "handles"));
    return expected;
}

Document baseOf(const json& state, const Document& stored) {
    const auto any = [](const std::string&) { return true; };
    Document base = toldOf(state, keysOf(state, any), stored);
    // What is free is told as it was.
    for (const auto& [key, value] : stored.items())
        if (isFreeAtFirst(key)) base[key] = value;
    return base;
}

}  // namespace velna::test
