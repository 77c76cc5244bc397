#include "support/ScenarioSteps.h"

#include <iterator>
#include <map>
#include <stdexcept>
#include <string>

#include "model/Equipment.h"
#include "model/Fuselage.h"
#include "model/MainWing.h"
#include "model/Plane.h"
#include "support/EditorState.h"

namespace velna::test {
namespace {

using nlohmann::json;
using Runner = void (*)(EditorBench&, const json&);

Control controlNamed(const std::string& name) {
    static const std::map<std::string, Control> shortNames{
        {"EquipmentPlus", Control::IndexServosPlusButton},
        {"EquipmentMinus", Control::IndexServosMinusButton}};
    if (const auto found = shortNames.find(name); found != shortNames.end()) return found->second;
    for (std::size_t i = 0; i < controlCount; ++i)
        if (name == controlName(static_cast<Control>(i))) return static_cast<Control>(i);
    throw std::runtime_error("no such control: " + name);
}

Control controlOf(const json& step) {
    return controlNamed(step.at("control"));
}

// ---- setup

void setSections(const json& entry) {
    const int number = entry.at("fuselage");
    if (number < 1 || number > nbFuselages) throw std::runtime_error("no such fuselage");
    MeshSections& fuselage = Fuselages(number);
    const json& sections = entry.at("sections");
    fuselage.nb_sections = static_cast<std::int16_t>(sections.size());
    fuselage.initArrays();
    for (int k = 1; k <= fuselage.nb_sections; ++k) {
        const json& values = sections.at(static_cast<std::size_t>(k) - 1);
        fuselage.sectionOrder(k) = static_cast<std::int16_t>(k);
        fuselage.height(k) = values.at(0);
        fuselage.width(k) = values.at(1);
        fuselage.pos(k) = values.at(2);
        fuselage.elevation(k) = values.at(3);
        fuselage.curvature(k) = values.at(4);
        fuselage.curvature2(k) = values.at(5);
        fuselage.bias_curve(k) = values.at(6);
    }
}

/// No scenario needs more of a kind.
void addOne(std::int16_t& count) {
    if (count >= 1000) throw std::runtime_error("more than 1000 objects of a kind");
    ++count;
}

void callSetup(const json& entry) {
    const std::string call = entry.at("call");
    if (call == "addWing") {
        addOne(nbWings);
        MainWing::addWing(project);
    } else if (call == "addFuselage") {
        addOne(nbFuselages);
        Fuselage::resizeFuselages(project);
        Fuselage::addFuselage(project);
        ObjectList.update(Fuselages, nbFuselages);
    } else if (call == "addBox") {
        addOne(nbEquipments);
        Equipment::resizeEquipments(project, nbEquipments);
    } else if (call == "tick") {
        const int index = entry.at("index");
        if (index < 1 || index > nbFuselages) throw std::runtime_error("no such item to tick");
        ObjectList.setShown(index, entry.at("value"));
    } else if (call == "inches") {
        project.units = inches;
        Prefs.selectUnit(inches);
        Plane::switchAllToInches(project);
        Main.fillCatalogues();
    } else {
        throw std::runtime_error("no such setup: " + call);
    }
}

void setTransform(const json& transform) {
    Main.controls[Control::LockZoom].checked = true;
    Main.view.zoom = transform.at(0);
    Main.view.xoff = transform.at(1);
    Main.view.yoff = transform.at(2);
}

// ---- steps

void view(EditorBench&, const json& step) {
    const std::string name = step.at("view");
    if (name == "VTop") Main.initVTopView();
    if (name == "Front") Main.initFrontView();
    if (name == "Side") Main.initSideView();
    if (name == "HTop") Main.initHTopView();
}

template <void (MainForm::*event)(std::int16_t, std::int16_t, float, float)>
void pointer(EditorBench&, const json& step) {
    (Main.*event)(step.at("button"), step.at("shift"), step.at("x"), step.at("y"));
}

/// Writes down the answers that a step's dialogs will get.
void scriptAnswers(EditorBench& bench, const json& step) {
    if (step.contains("picture")) {
        const json& size = step.at("picture");
        if (size.is_null()) {
            bench.window.pictureFiles.push_back("");
        } else {
            const std::string file = "picture" + size.dump();
            bench.area.pictures[file] = {size.at(0), size.at(1)};
            bench.window.pictureFiles.push_back(file);
        }
    }
    if (!step.contains("answer")) return;
    const json& answer = step.at("answer");
    if (answer.is_boolean())
        bench.window.yesNoAnswers.push_back(answer);
    else
        bench.window.textAnswers.push_back(answer.get<std::string>());
}

void setFlag(EditorBench&, const json& step) {
    const std::map<std::string, bool PointerState::*> flags{{"shiftkey", &PointerState::shiftkey},
                                                            {"ctrlkey", &PointerState::ctrlkey},
                                                            {"altkey", &PointerState::altkey}};
    Main.pointer.*flags.at(step.at("name")) = step.at("value").get<bool>();
}

void clickMenu(EditorBench& bench, const json& step) {
    bench.window.popupOpen = false;
    Main.menuClicked(controlNamed(step.at("entry")));
}

void typeText(EditorBench&, const json& step) {
    const Control box = controlOf(step);
    if (!Main.controls[box].enabled) return;
    Main.textEdited(box, step.at("text"));
    // The number of outline points needs no further key.
    if (box != Control::NbCrossFuselageText) Main.textKeyDown(box, step.at("text"));
}

void moveSlider(EditorBench&, const json& step) {
    const int value = step.at("value");
    if (Main.controls[controlOf(step)].value != value) Main.sliderChanged(controlOf(step), value);
}

void moveScroll(EditorBench&, const json& step) {
    const int value = step.at("value");
    if (Main.controls[controlOf(step)].value != value) Main.scrollChanged(controlOf(step), value);
}

void manager(EditorBench&, const json& step) {
    const std::string action = step.at("action");
    const json selected = step.value("selected", json::array());
    const auto rows = selected.get<std::vector<int>>();
    for (const int row : rows)
        if (row < 1 || row > std::ssize(ObjectList.rows))
            throw std::runtime_error("no such row: " + std::to_string(row));
    if (action == "show") Main.showCommand(rows);
    if (action == "hide") Main.hideCommand(rows);
    if (action == "showAll") Main.showAll();
    if (action == "close") Main.closeManager(rows.empty() ? 0 : rows.front());
}

void preferences(EditorBench&, const json& step) {
    Prefs.selectUnit(step.at("inches") ? inches : millimetres);
    Prefs.scaleTextKeyDown(step.at("scale"));
    Main.applyPreferences();
}

const std::map<std::string, Runner> runners{
    {"view", view},
    {"tab", [](EditorBench&, const json& step) { Main.tabClicked(step.at("tab")); }},
    {"press", pointer<&MainForm::DrawArea_MouseDown>},
    {"move", pointer<&MainForm::DrawArea_MouseMove>},
    {"release", pointer<&MainForm::DrawArea_MouseUp>},
    {"key", [](EditorBench&,
               const json& step) { Main.DrawArea_keydown(step.at("code"), step.at("shift")); }},
    {"keyup", [](EditorBench&, const json&) { Main.DrawArea_keyup(); }},
    {"formkeyup", [](EditorBench&, const json&) { Main.Form_keyup(); }},
    {"flag", setFlag},
    {"menu", clickMenu},
    {"text", typeText},
    {"slider", moveSlider},
    {"scroll", moveScroll},
    {"check",
     [](EditorBench&, const json& step) { Main.checkClicked(controlOf(step), step.at("value")); }},
    {"button",
     [](EditorBench&, const json& step) {
         Main.buttonPressed(controlOf(step), step.value("shift", std::int16_t{0}));
     }},
    {"option", [](EditorBench&, const json& step) { Main.optionClicked(controlOf(step)); }},
    {"combo",
     [](EditorBench&, const json& step) { Main.comboClicked(controlOf(step), step.at("index")); }},
    {"manager", manager},
    {"prefs", preferences},
    {"refresh", [](EditorBench&, const json&) { Main.refreshDrawingArea(); }},
};

}  // namespace

void applySetup(EditorBench& bench, const json& setup) {
    if (setup.empty()) return;
    for (const json& entry : setup) {
        if (entry.contains("set")) setModelField(entry.at("set"), entry.at("value"));
        if (entry.contains("sections")) setSections(entry);
        if (entry.contains("call")) callSetup(entry);
        if (entry.contains("transform")) setTransform(entry.at("transform"));
    }
    Main.refreshPanels();
    Main.initVTopView();
    bench.forget();
}

void runStep(EditorBench& bench, const json& step, ToolbarClick click) {
    scriptAnswers(bench, step);
    if (step.at("op") == "toolbar")
        click(bench, step.at("key"));
    else
        runners.at(step.at("op"))(bench, step);
}

}  // namespace velna::test
