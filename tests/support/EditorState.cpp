#include "support/EditorState.h"

#include <functional>
#include <stdexcept>
#include <string>
#include <type_traits>

#include "editor/PanelTable.h"
#include "model/Fuselage.h"
#include "model/Plane.h"
#include "support/ScenarioForm.h"

namespace velna::test {
namespace {

using nlohmann::json;

template <class Field>
void assign(Field& field, const json& value) {
    if constexpr (std::is_integral_v<Field> && !std::is_same_v<Field, bool>)
        field = static_cast<Field>(wholeNumber(value));
    else
        value.get_to(field);
}

/// A field of an object under its name: how to read it and how to assign it.
template <class Object>
struct Named {
    const char* name;
    json (*get)(const Object&);
    void (*set)(Object&, const json&);
};

template <auto field, class Object>
constexpr Named<Object> named(const char* name) {
    return {name, [](const Object& object) { return json(object.*field); },
            [](Object& object, const json& value) { assign(object.*field, value); }};
}

using W = SymWingSections;
constexpr Named<W> wingFields[] = {
    named<&W::span, W>("span"),
    named<&W::length1, W>("length1"),
    named<&W::length2, W>("length2"),
    named<&W::pos1, W>("pos1"),
    named<&W::pos2, W>("pos2"),
    named<&W::elevation1, W>("elevation1"),
    named<&W::elevation2, W>("elevation2"),
    named<&W::shift, W>("shift"),
    named<&W::thickness1, W>("thickness1"),
    named<&W::thickness2, W>("thickness2"),
};

using V = VertWingSection;
constexpr Named<V> finFields[] = {
    named<&V::span, V>("span"),
    named<&V::length1, V>("length1"),
    named<&V::length2, V>("length2"),
    named<&V::pos1, V>("pos1"),
    named<&V::pos2, V>("pos2"),
    named<&V::offset1, V>("offset1"),
    named<&V::offset2, V>("offset2"),
    named<&V::shift, V>("shift"),
    named<&V::thickness1, V>("thickness1"),
    named<&V::thickness2, V>("thickness2"),
};

using M = MeshSections;
constexpr Named<M> fuselageFields[] = {
    named<&M::nb_sections, M>("nb_sections"),
    named<&M::nb_cross, M>("nb_cross"),
    named<&M::transparent, M>("transparent"),
    named<&M::shift, M>("shift"),
    named<&M::pos_offset, M>("pos_offset"),
    named<&M::elevation_offset, M>("elevation_offset"),
    named<&M::uniqueCurvature, M>("uniqueCurvature"),
    named<&M::linkedCurvatures, M>("linkedCurvatures"),
    named<&M::sel_sec, M>("sel_sec"),
};

struct SectionField {
    const char* name;
    Array1<double> M::*field;
};
constexpr SectionField sectionFields[] = {
    {"height", &M::height},         {"width", &M::width},         {"pos", &M::pos},
    {"elevation", &M::elevation},   {"curvature", &M::curvature}, {"curvature2", &M::curvature2},
    {"bias_curve", &M::bias_curve},
};

using E = ElectroBox;
constexpr Named<E> boxFields[] = {
    named<&E::length, E>("length"),
    named<&E::width, E>("width"),
    named<&E::height, E>("height"),
    named<&E::pos, E>("pos"),
    named<&E::elevation, E>("elevation"),
    named<&E::shift, E>("shift"),
    named<&E::weight, E>("weight"),
    named<&E::orientation, E>("orientation"),
    named<&E::box, E>("box"),
};

constexpr Named<Grip> gripFields[] = {
    named<&Grip::paint, Grip>("paint"),
    named<&Grip::selected, Grip>("selected"),
    named<&Grip::selected_part, Grip>("selected_part"),
};

template <class Object, std::size_t n>
void addFields(json& state, const std::string& path, const Object& object,
               const Named<Object> (&fields)[n]) {
    for (const auto& field : fields) state[path + "." + field.name] = field.get(object);
}

/// An object's fields, and what the pointer does with it.
template <class Object, std::size_t n>
void addObject(json& state, const std::string& path, const Object& object,
               const Named<Object> (&fields)[n], const Grip& grip) {
    addFields(state, path, object, fields);
    addFields(state, path, grip, gripFields);
}

template <class Object, std::size_t n>
void setField(Object& object, const Named<Object> (&fields)[n], const std::string& name,
              const json& value) {
    for (const auto& field : fields)
        if (name == field.name) return field.set(object, value);
    throw std::runtime_error("no such field: " + name);
}

/// A box has one part: which of them the pointer rests on is no question.
void addBox(json& state, const std::string& path, const ElectroBox& box, const Grip& grip) {
    addFields(state, path, box, boxFields);
    state[path + ".paint"] = grip.paint;
    state[path + ".selected"] = grip.selected;
}

std::string indexed(const std::string& name, int i) {
    return name + "(" + std::to_string(i) + ")";
}

void addSections(json& state, const std::string& path, const MeshSections& fuselage) {
    for (int k = 1; k <= fuselage.nb_sections; ++k) {
        state[indexed(path + ".sectionOrder", k)] = fuselage.sectionOrder(k);
        for (const auto& row : sectionFields)
            state[indexed(path + "." + row.name, k)] = (fuselage.*row.field)(k);
    }
}

void addModel(json& state) {
    state["nbWings"] = nbWings;
    state["currentWing"] = currentWing;
    state["nbFuselages"] = nbFuselages;
    state["currentFuselage"] = currentFuselage;
    state["nbEquipments"] = nbEquipments;
    state["currentEquipment"] = currentEquipment;
    state["units"] = project.units;
    const AircraftViews& views = Main.views;
    for (int i = 1; i <= nbWings; ++i)
        addObject(state, indexed("Wings", i), Wings(i), wingFields, views.wings(i).grip);
    addObject(state, "Stabilizer", Stabilizer, wingFields, views.stabilizer.grip);
    addObject(state, "Rudder", Rudder, finFields, views.rudder.grip);
    for (int i = 1; i <= nbFuselages; ++i) {
        const std::string path = indexed("Fuselages", i);
        addObject(state, path, Fuselages(i), fuselageFields, views.fuselages(i).grip);
        state[path + ".szoom"] = views.fuselages(i).szoom;
        addSections(state, path, Fuselages(i));
    }
    for (int i = 1; i <= nbEquipments; ++i)
        addBox(state, indexed("Equipments", i), Equipments(i), views.boxes(i).grip);
}

json iconName() {
    switch (Main.pointer.cursorIcon) {
        case CursorIcon::NSShapeIcon:
            return "NSShapeIcon";
        case CursorIcon::EWShapeIcon:
            return "EWShapeIcon";
        case CursorIcon::None:
            break;
    }
    return nullptr;
}

void addViewAndPointer(json& state, const EditorBench& bench) {
    state["mode"] = Main.view.mode;
    state["tab"] = Main.tab();
    state["zoom"] = Main.view.zoom;
    state["xoff"] = Main.view.xoff;
    state["yoff"] = Main.view.yoff;
    state["xloc"] = Main.pointer.xloc;
    state["yloc"] = Main.pointer.yloc;
    state["shiftkey"] = Main.pointer.shiftkey;
    state["ctrlkey"] = Main.pointer.ctrlkey;
    state["altkey"] = Main.pointer.altkey;
    state["focusZoom"] = Main.view.focusZoom;
    state["firstPictureRefresh"] = Main.view.firstPictureRefresh;
    state["savedProject"] = Main.savedProject;
    state["cursor"] = static_cast<int>(Main.pointer.cursor);
    state["icon"] = iconName();
    const BackgroundPicture& picture = Main.pictureHere();
    state["picturePos.x"] = picture.position.x;
    state["picturePos.y"] = picture.position.y;
    state["pictureSize.x"] = picture.size.x;
    state["pictureSize.y"] = picture.size.y;
    state["pictureShown"] = picture.shown;
    state["drawMode"] = static_cast<int>(bench.area.mode);
    state["renders"] = bench.window.renders;
    state["prompts"] = bench.window.prompts;
    state["Popup"] = bench.window.popupOpen;
}

/// The name of the one among `choices` that is checked or shown.
json chosen(std::initializer_list<Control> choices, bool ControlState::*sign) {
    json found = nullptr;
    for (Control control : choices)
        if (Main.controls[control].*sign) found = controlName(control);
    return found;
}

void addControls(json& state) {
    state["LockZoom"] = Main.checked(Control::LockZoom);
    state["InsRem"] = Main.controls[Control::InsRem].enabled;
    state["HTopButton"] = Main.controls[Control::HTopButton].enabled;
    std::string view = chosen(
        {Control::VTopButton, Control::FrontButton, Control::SideButton, Control::HTopButton},
        &ControlState::checked);
    state["ViewButton"] = view.substr(0, view.size() - std::string("Button").size());
    for (Control control : {Control::FuselageVTopFrame, Control::SmoothTopCommand,
                            Control::SmoothDownCommand, Control::SmoothWidthCommand})
        state[controlName(control)] = Main.controls[control].visible;
    for (Control bar : {Control::IndexWingsScroll, Control::FuselageScroll, Control::IndexFusScroll,
                        Control::IndexServosScroll}) {
        state[std::string(controlName(bar)) + ".value"] = Main.controls[bar].value;
        state[std::string(controlName(bar)) + ".max"] = Main.controls[bar].maximum;
    }
    for (const auto& slider : panelSliders())
        state[controlName(slider.control)] = Main.controls[slider.control].value;
    state["BiasSlider.height"] = Main.controls[Control::BiasSlider].height;
    for (const auto& check : panelChecks())
        state[controlName(check.control)] = Main.checked(check.control);
    for (Control option : {Control::HorizontalServoOption, Control::VerticalServoOption})
        state[controlName(option)] = Main.checked(option);
    state["ComboShown"] = chosen({Control::ServosCombo, Control::ReceiverCombo, Control::AccuCombo},
                                 &ControlState::visible);
    state["KindOption"] = Main.checked(Control::ServoOption)      ? 0
                          : Main.checked(Control::ReceiverOption) ? 1
                                                                  : 2;
}

void addTexts(json& state) {
    int enabled = 0;
    for (const PanelField& field : panelFields()) {
        state["text." + std::string(controlName(field.control))] =
            Main.controls[field.control].text;
        if (Main.controls[field.control].enabled) ++enabled;
    }
    const bool all = enabled == static_cast<int>(panelFields().size());
    const bool one = enabled == 1 && Main.controls[Control::NbCrossFuselageText].enabled;
    state["textsEnabled"] = all ? "all" : one ? "nbcross" : "some";
}

/// "Name(index)" taken apart; index 0 where there is none.
struct PathPart {
    std::string name;
    int index = 0;
};

PathPart splitIndex(const std::string& part) {
    const auto open = part.find('(');
    if (open == std::string::npos) return {part, 0};
    return {part.substr(0, open), std::stoi(part.substr(open + 1))};
}

/// A number of a list, from 1 to `count`.
int within(int number, int count, const std::string& path) {
    if (number < 1 || number > count) throw std::runtime_error("no such object: " + path);
    return number;
}

void setNbCross(MeshSections& fuselage, std::int16_t points) {
    if (points < 0 || points > 1000) throw std::runtime_error("nb_cross is not 0 to 1000");
    fuselage.nb_cross = points;
    // The outline's arrays fit the number of its points, but for 0, which is no shape yet.
    if (points != 0) fuselage.initArrays();
}

void setFuselageField(MeshSections& fuselage, const PathPart& field, const json& value) {
    if (field.index == 0) {
        if (field.name == "nb_cross") return setNbCross(fuselage, wholeNumber(value));
        if (field.name == "nb_sections" || field.name == "sel_sec")
            within(wholeNumber(value), fuselage.sectionCount(), field.name);
        return setField(fuselage, fuselageFields, field.name, value);
    }
    within(field.index, fuselage.sectionCount(), field.name);
    for (const auto& row : sectionFields)
        if (field.name == row.name) {
            value.get_to((fuselage.*row.field)(field.index));
            return;
        }
    throw std::runtime_error("no such field: " + field.name);
}

/// The numbers of the current objects.
void setCurrent(const std::string& path, const json& value) {
    const std::int16_t number = wholeNumber(value);
    if (path == "currentFuselage")
        currentFuselage = static_cast<std::int16_t>(within(number, nbFuselages, path));
    else if (path == "currentEquipment")
        currentEquipment = static_cast<std::int16_t>(within(number, nbEquipments, path));
    else
        throw std::runtime_error("no such field: " + path);
}

}  // namespace

json editorState(const EditorBench& bench) {
    json state = json::object();
    addModel(state);
    addViewAndPointer(state, bench);
    addControls(state);
    addTexts(state);
    return state;
}

void setModelField(const std::string& path, const json& value) {
    const auto dot = path.find('.');
    if (dot == std::string::npos) return setCurrent(path, value);
    const PathPart object = splitIndex(path.substr(0, dot));
    const PathPart field = splitIndex(path.substr(dot + 1));
    const auto numberOf = [&](int count) { return within(object.index, count, path); };
    if (object.name == "Wings")
        setField(Wings(numberOf(nbWings)), wingFields, field.name, value);
    else if (object.name == "Stabilizer")
        setField(Stabilizer, wingFields, field.name, value);
    else if (object.name == "Rudder")
        setField(Rudder, finFields, field.name, value);
    else if (object.name == "Fuselages")
        setFuselageField(Fuselages(numberOf(nbFuselages)), field, value);
    else if (object.name == "Equipments")
        setField(Equipments(numberOf(nbEquipments)), boxFields, field.name, value);
    else
        throw std::runtime_error("no such object: " + path);
}

}  // namespace velna::test
