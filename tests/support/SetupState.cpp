#include "support/SetupState.h"

#include <array>
#include <string_view>
#include <utility>

namespace velna::test {
namespace {

using nlohmann::json;

bool contains(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}

/// The kind of object whose numbers a control of the panel shows.
std::string shownObject(std::string_view control) {
    if (contains(control, "Rudder")) return "Rudder";
    if (contains(control, "Stab")) return "Stabilizer";
    for (const char* part : {"Servo", "KindOption", "ComboShown"})
        if (contains(control, part)) return "Equipments";
    for (const char* part : {"Fus", "Offset", "Curvature", "Bias", "Transparent"})
        if (contains(control, part)) return "Fuselages";
    return "Wings";
}

/// The object or list that a key belongs to, "" for the view and the pointer.
std::string ownerOf(const std::string& key) {
    for (const char* name : {"Wings(", "Fuselages(", "Equipments(", "Stabilizer.", "Rudder."})
        if (key.starts_with(name)) return std::string(name, std::string_view(name).size() - 1);
    const bool shown = key.starts_with("text.") || contains(key, "Scroll.") ||
                       contains(key, "Slider") || contains(key, "Check") ||
                       contains(key, "ServoOption") || key == "KindOption" || key == "ComboShown";
    if (key == "textsEnabled") return "Fuselages";  // grey while the current one has no outline
    return shown ? shownObject(key) : "";
}

std::string entry(const std::string& path, const char* field, std::size_t k) {
    return path + "." + field + "(" + std::to_string(k) + ")";
}

void addSections(SetupState& state, const json& setup) {
    const std::string path = "Fuselages(" + std::to_string(setup.at("fuselage").get<int>()) + ")";
    constexpr std::array fields{"height",    "width",      "pos",       "elevation",
                                "curvature", "curvature2", "bias_curve"};
    const json& sections = setup.at("sections");
    state.known[path + ".nb_sections"] = sections.size();
    for (std::size_t k = 1; k <= sections.size(); ++k) {
        state.known[entry(path, "sectionOrder", k)] = k;
        for (std::size_t n = 0; n < fields.size(); ++n)
            state.known[entry(path, fields[n], k)] = sections[k - 1][n];
    }
    for (std::size_t k = sections.size() + 1; state.known.erase(entry(path, "pos", k)); ++k)
        for (const char* field : {"height", "width", "elevation", "curvature", "curvature2",
                                  "bias_curve", "sectionOrder"})
            state.known.erase(entry(path, field, k));
    state.touched.insert("Fuselages");
}

void addCall(SetupState& state, const std::string& call) {
    const std::array<std::pair<const char*, std::pair<const char*, const char*>>, 3> lists{
        {{"addWing", {"Wings", "nbWings"}},
         {"addFuselage", {"Fuselages", "nbFuselages"}},
         {"addBox", {"Equipments", "nbEquipments"}}}};
    for (const auto& [name, list] : lists) {
        if (call != name) continue;
        state.known[list.second] = state.known[list.second].get<int>() + 1;
        state.touched.insert(list.first);
    }
    if (call == "addWing") state.unchecked.insert("currentWing");
    if (call != "inches") return;
    state.known["units"] = 1;
    for (const char* object : {"Wings", "Stabilizer", "Rudder", "Fuselages", "Equipments"})
        state.touched.insert(object);
    // Every length is another number now.
    for (auto it = state.known.begin(); it != state.known.end();)
        it = isModelField(it.key()) && contains(it.key(), ".") ? state.known.erase(it) : ++it;
}

void addEntry(SetupState& state, const json& setup) {
    if (setup.contains("set")) {
        const std::string path = setup.at("set");
        state.known[path] = setup.at("value");
        state.touched.insert(path == "currentFuselage"    ? "Fuselages"
                             : path == "currentEquipment" ? "Equipments"
                                                          : ownerOf(path));
    }
    if (setup.contains("sections")) addSections(state, setup);
    if (setup.contains("call")) addCall(state, setup.at("call"));
    if (!setup.contains("transform")) return;
    state.known["LockZoom"] = true;
    for (std::size_t i = 0; i < 3; ++i)
        state.known[std::array{"zoom", "xoff", "yoff"}[i]] = setup.at("transform")[i];
}

}  // namespace

bool SetupState::depends(const std::string& key) const {
    if (unchecked.contains(key)) return true;
    if (key == "zoom" || key == "xoff" || key == "yoff")
        return !touched.empty() && known.at("LockZoom") != true;
    return touched.contains(ownerOf(key));
}

SetupState stateAfterSetup(const json& base, const json& setup) {
    SetupState state{base, {}, {}};
    std::set<std::string> named;
    for (const json& each : setup) {
        addEntry(state, each);
        if (each.contains("set")) named.insert(each.at("set"));
    }
    // What the program makes of a touched object shows in the steps. The object's own fields, and
    // what the pointer left on it, stay as they are.
    const auto derived = [&](const std::string& key) {
        const bool stays = isPointerField(key) || (isModelField(key) && !key.ends_with(".szoom") &&
                                                   !state.unchecked.contains(key));
        return !stays && !named.contains(key) && state.depends(key);
    };
    for (const auto& item : base.items())
        if (derived(item.key())) state.known.erase(item.key());
    return state;
}

bool isPointerField(const std::string& key) {
    for (const char* field : {".paint", ".selected", ".selected_part", ".sel_sec"})
        if (key.ends_with(field)) return true;
    return false;
}

bool isModelField(const std::string& key) {
    if (isPointerField(key)) return false;
    for (const char* name : {"Wings(", "Fuselages(", "Equipments(", "Stabilizer.", "Rudder.", "nbW",
                             "nbF", "nbE", "current", "units"})
        if (key.starts_with(name)) return true;
    return false;
}

}  // namespace velna::test
