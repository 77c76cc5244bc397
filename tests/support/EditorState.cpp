#include "support/EditorState.h"

#include <functional>
#include <stdexcept>
#include <string>

#include "editor/PanelTable.h"
#include "model/Fuselage.h"
#include "model/Plane.h"
#include "model/Prefs.h"

namespace velna::test {
namespace {

using nlohmann::json;

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
            [](Object& object, const json& value) { value.get_to(object.*field); }};
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
    state["units"] = Prefs.units;
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
    switch (Main.cursorIcon) {
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
    state["mode"] = Main.mode;
    state["tab"] = Main.tab();
    state["zoom"] = Main.zoom;
    state["xoff"] = Main.xoff;
    state["yoff"] = Main.yoff;
    state["xloc"] = Main.xloc;
    state["yloc"] = Main.yloc;
    state["shiftkey"] = Main.shiftkey;
    state["ctrlkey"] = Main.ctrlkey;
    state["altkey"] = Main.altkey;
    state["focusZoom"] = Main.focusZoom;
    state["firstPictureRefresh"] = Main.firstPictureRefresh;
    state["savedProject"] = Main.savedProject;
    state["cursor"] = static_cast<int>(Main.cursor);
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

void setFuselageField(MeshSections& fuselage, const PathPart& field, const json& value) {
    if (field.index == 0) {
        setField(fuselage, fuselageFields, field.name, value);
        // The outline's arrays fit the number of its points, but for 0, which is no shape yet.
        if (field.name == "nb_cross" && fuselage.nb_cross != 0) fuselage.initArrays();
        return;
    }
    for (const auto& row : sectionFields)
        if (field.name == row.name) value.get_to((fuselage.*row.field)(field.index));
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
    if (dot == std::string::npos) {
        if (path == "currentFuselage") value.get_to(currentFuselage);
        if (path == "currentEquipment") value.get_to(currentEquipment);
        return;
    }
    const PathPart object = splitIndex(path.substr(0, dot));
    const PathPart field = splitIndex(path.substr(dot + 1));
    if (object.name == "Wings") setField(Wings(object.index), wingFields, field.name, value);
    if (object.name == "Stabilizer") setField(Stabilizer, wingFields, field.name, value);
    if (object.name == "Rudder") setField(Rudder, finFields, field.name, value);
    if (object.name == "Fuselages") setFuselageField(Fuselages(object.index), field, value);
    if (object.name == "Equipments")
        setField(Equipments(object.index), boxFields, field.name, value);
}

}  // namespace velna::test
