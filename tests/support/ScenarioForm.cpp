#include "support/ScenarioForm.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <map>
#include <stdexcept>
#include <vector>

namespace velna::test {
namespace {

using nlohmann::json;

/// What a value may be. No window is larger, and no aircraft, than `Number` allows.
enum class Kind { Text, Number, Whole, Flag, Wholes, Numbers, Picture, Answer, Value };

constexpr double largestNumber = 1e6;

bool isNumber(const json& value) {
    return value.is_number() && std::abs(value.get<double>()) <= largestNumber;
}

bool isWhole(const json& value) {
    if (!isNumber(value)) return false;
    using Limits = std::numeric_limits<std::int16_t>;
    const double number = value;
    return number == std::floor(number) && Limits::min() <= number && number <= Limits::max();
}

bool isList(const json& value, bool (*fits)(const json&)) {
    return value.is_array() && std::ranges::all_of(value, fits);
}

bool is(const json& value, Kind kind) {
    switch (kind) {
        case Kind::Text:
            return value.is_string();
        case Kind::Number:
            return isNumber(value);
        case Kind::Whole:
            return isWhole(value);
        case Kind::Flag:
            return value.is_boolean();
        case Kind::Wholes:
            return isList(value, isWhole);
        case Kind::Numbers:
            return isList(value, isNumber);
        case Kind::Picture:
            return value.is_null() || (isList(value, isNumber) && value.size() == 2);
        case Kind::Answer:
            return value.is_boolean() || value.is_string();
        case Kind::Value:
            return value.is_boolean() || isNumber(value);
    }
    return false;
}

struct Member {
    const char* name;
    Kind kind;
};
using Members = std::vector<Member>;

/// What stands in a step beside its `op`, by that.
const std::map<std::string, Members>& steps() {
    static const Members pointer{
        {"button", Kind::Whole}, {"shift", Kind::Whole}, {"x", Kind::Number}, {"y", Kind::Number}};
    static const Members moved{{"control", Kind::Text}, {"value", Kind::Whole}};
    static const std::map<std::string, Members> forms{
        {"view", {{"view", Kind::Text}}},
        {"toolbar", {{"key", Kind::Text}}},
        {"tab", {{"tab", Kind::Whole}}},
        {"press", pointer},
        {"move", pointer},
        {"release", pointer},
        {"key", {{"code", Kind::Whole}, {"shift", Kind::Whole}}},
        {"keyup", {}},
        {"formkeyup", {}},
        {"flag", {{"name", Kind::Text}, {"value", Kind::Flag}}},
        {"menu", {{"entry", Kind::Text}}},
        {"text", {{"control", Kind::Text}, {"text", Kind::Text}}},
        {"slider", moved},
        {"scroll", moved},
        {"check", {{"control", Kind::Text}, {"value", Kind::Flag}}},
        {"button", {{"control", Kind::Text}}},
        {"option", {{"control", Kind::Text}}},
        {"combo", {{"control", Kind::Text}, {"index", Kind::Whole}}},
        {"manager", {{"action", Kind::Text}}},
        {"prefs", {{"inches", Kind::Flag}, {"scale", Kind::Text}}},
        {"refresh", {}},
    };
    return forms;
}

/// What may stand in any step.
constexpr std::array optionalMembers{
    Member{"lines", Kind::Flag},    Member{"section", Kind::Flag},
    Member{"shift", Kind::Whole},   Member{"selected", Kind::Wholes},
    Member{"answer", Kind::Answer}, Member{"picture", Kind::Picture},
};

/// The names that a member may have, where those are few.
const std::map<std::string, std::vector<std::string>>& choices() {
    static const std::map<std::string, std::vector<std::string>> names{
        {"view", {"VTop", "Front", "Side", "HTop"}},
        {"action", {"show", "hide", "showAll", "close"}},
        {"call", {"addWing", "addFuselage", "addBox", "tick", "inches"}},
    };
    return names;
}

void checkMember(const json& entry, const Member& member) {
    const std::string name = std::string("\"") + member.name + "\"";
    if (!entry.contains(member.name)) throw std::runtime_error("no " + name);
    const json& value = entry.at(member.name);
    if (!is(value, member.kind)) throw std::runtime_error(name + " cannot be " + value.dump());
    const auto known = choices().find(member.name);
    if (known != choices().end() &&
        std::ranges::count(known->second, value.get<std::string>()) == 0)
        throw std::runtime_error("no such " + std::string(member.name) + ": " + value.dump());
}

void checkMembers(const json& entry, const Members& members) {
    for (const Member& member : members) checkMember(entry, member);
}

void checkSections(const json& entry) {
    checkMember(entry, {"fuselage", Kind::Whole});
    const json& sections = entry.at("sections");
    const auto isSection = [](const json& section) {
        return is(section, Kind::Numbers) && section.size() == 7;
    };
    if (!isList(sections, isSection) || sections.empty() || sections.size() > 1000)
        throw std::runtime_error("\"sections\" is not 1 to 1000 lists of 7 numbers");
}

void checkSetup(const json& entry) {
    if (!entry.is_object()) throw std::runtime_error("is no object");
    if (entry.contains("set")) {
        checkMembers(entry, {{"set", Kind::Text}, {"value", Kind::Value}});
    } else if (entry.contains("sections")) {
        checkSections(entry);
    } else if (entry.contains("call")) {
        checkMember(entry, {"call", Kind::Text});
        if (entry.at("call") == "tick")
            checkMembers(entry, {{"index", Kind::Whole}, {"value", Kind::Flag}});
    } else {
        checkMember(entry, {"transform", Kind::Numbers});
        if (entry.at("transform").size() != 3)
            throw std::runtime_error("\"transform\" is not three numbers");
    }
}

void checkStep(const json& step) {
    if (!step.is_object()) throw std::runtime_error("is no object");
    checkMember(step, {"op", Kind::Text});
    const auto form = steps().find(step.at("op"));
    if (form == steps().end()) throw std::runtime_error("no such step: " + step.at("op").dump());
    checkMembers(step, form->second);
    for (const Member& member : optionalMembers)
        if (step.contains(member.name)) checkMember(step, member);
}

void checkEach(const json& scenario, const std::string& list, void (*check)(const json&)) {
    const std::string name = list == "steps" ? "step " : "setup ";
    if (!scenario.contains(list)) throw std::runtime_error("no \"" + list + "\"");
    if (!scenario.at(list).is_array()) throw std::runtime_error("\"" + list + "\" is no list");
    for (std::size_t i = 0; i < scenario.at(list).size(); ++i) {
        try {
            check(scenario.at(list)[i]);
        } catch (const std::runtime_error& wrong) {
            throw std::runtime_error(name + std::to_string(i) + ": " + wrong.what());
        }
    }
}

}  // namespace

std::int16_t wholeNumber(const json& value) {
    if (!isWhole(value)) throw std::runtime_error(value.dump() + " is no whole number of 16 bits");
    return static_cast<std::int16_t>(value.get<double>());
}

void checkScenarioForm(const json& scenario) {
    checkEach(scenario, "setup", checkSetup);
    checkEach(scenario, "steps", checkStep);
}

}  // namespace velna::test
