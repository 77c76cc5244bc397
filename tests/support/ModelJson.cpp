#include "support/ModelJson.h"

#include <set>

#include <gtest/gtest.h>

#include "support/InHand.h"

namespace velna {

using nlohmann::json;

namespace {

template <class Object, class Value>
struct Field {
    const char* name;
    Value Object::*member;
};

template <class Object, class Value, std::size_t Count>
void take(Object& object, const json& data, const Field<Object, Value> (&fields)[Count]) {
    for (const auto& field : fields)
        if (data.contains(field.name))
            object.*field.member = data[field.name].template get<Value>();
}

Point3D point(const json& data) {
    return {data[0].get<double>(), data[1].get<double>(), data[2].get<double>()};
}

constexpr Field<SolidPicture, std::int32_t> pictureCodes[] = {
    {"xtex", &SolidPicture::xtex},
    {"ytex", &SolidPicture::ytex},
};
constexpr Field<SolidPicture, bool> pictureFlags[] = {
    {"texture_loaded", &SolidPicture::texture_loaded},
};

/// What the tables tell with an object of the picture that its solid carries.
void takePicture(SolidPicture& picture, const json& data) {
    picture.texture_filename = data["texture_filename"].get<std::string>();
    take(picture, data, pictureCodes);
    take(picture, data, pictureFlags);
}

using Wing = SymWingSections;
constexpr Field<Wing, double> wingNumbers[] = {
    {"span", &Wing::span},
    {"length1", &Wing::length1},
    {"length2", &Wing::length2},
    {"thickness1", &Wing::thickness1},
    {"thickness2", &Wing::thickness2},
    {"pos1", &Wing::pos1},
    {"pos2", &Wing::pos2},
    {"elevation1", &Wing::elevation1},
    {"elevation2", &Wing::elevation2},
    {"shift", &Wing::shift},
};
constexpr Field<Wing, std::string> wingTexts[] = {
    {"airfoil_filename", &Wing::airfoil_filename},
    {"qualified_texture_filename", &Wing::qualified_texture_filename},
};

void takeWing(Wing& wing, PanelSolid& solid, const json& data) {
    const json& airfoil = data["airfoil"];
    wing.nb = static_cast<std::int16_t>(airfoil.size());
    wing.allocate();
    for (int i = 1; i <= wing.nb; ++i) {
        const json& place = airfoil[static_cast<std::size_t>(i) - 1];
        wing.setAirfoilPoint(i, place[0].get<double>(), place[1].get<double>());
    }
    wing.nb = data["nb"].get<std::int16_t>();
    take(wing, data, wingNumbers);
    take(wing, data, wingTexts);
    wing.set_texture_filename(data["texture_filename"].get<std::string>());
    solid.Left.picture.texture_filename = wing.texture_filename();
    solid.Right.picture.texture_filename = wing.texture_filename();
    solid.Left.picture.texture_loaded = data["texture_loaded"][0].get<bool>();
    solid.Right.picture.texture_loaded = data["texture_loaded"][1].get<bool>();
    wing.set_color(point(data["color"]));
}

using Fin = VertWingSection;
constexpr Field<Fin, double> finNumbers[] = {
    {"span", &Fin::span},
    {"length1", &Fin::length1},
    {"length2", &Fin::length2},
    {"thickness1", &Fin::thickness1},
    {"thickness2", &Fin::thickness2},
    {"pos1", &Fin::pos1},
    {"pos2", &Fin::pos2},
    {"shift", &Fin::shift},
    {"offset1", &Fin::offset1},
    {"offset2", &Fin::offset2},
};
constexpr Field<Fin, std::string> finTexts[] = {
    {"texture_filename", &Fin::texture_filename},
    {"qualified_texture_filename", &Fin::qualified_texture_filename},
};

void takeFin(const json& data) {
    Rudder.nb = data["nb"].get<std::int16_t>();
    take(Rudder, data, finNumbers);
    take(Rudder, data, finTexts);
    takePicture(solids.rudder.picture, data);
    Rudder.set_color(point(data["color"]));
}

using Body = MeshSections;
constexpr Field<Body, double> bodyNumbers[] = {
    {"curv", &Body::curv},
    {"shift", &Body::shift},
    {"pos_offset", &Body::pos_offset},
    {"elevation_offset", &Body::elevation_offset},
};
constexpr Field<Body, std::int16_t> bodyCounts[] = {
    {"nb_sections", &Body::nb_sections},
    {"nb_cross", &Body::nb_cross},
    {"sel_sec", &Body::sel_sec},
};
constexpr Field<Body, bool> bodyFlags[] = {
    {"cut", &Body::cut},
    {"transparent", &Body::transparent},
    {"uniqueCurvature", &Body::uniqueCurvature},
    {"linkedCurvatures", &Body::linkedCurvatures},
};
constexpr Field<Body, std::string> bodyTexts[] = {
    {"texture_filename", &Body::texture_filename},
    {"qualified_texture_filename", &Body::qualified_texture_filename},
};
constexpr Field<Body, Array1<double>> bodyArrays[] = {
    {"height", &Body::height},
    {"width", &Body::width},
    {"pos", &Body::pos},
    {"elevation", &Body::elevation},
    {"curvature", &Body::curvature},
    {"curvature2", &Body::curvature2},
    {"bias_curve", &Body::bias_curve},
};

/// The arrays may hold more entries than there are sections.
template <class T>
void takeArray(Array1<T>& array, const json& data) {
    array.allocate(static_cast<int>(data.size()));
    for (int i = 1; i <= array.upper(); ++i)
        array(i) = data[static_cast<std::size_t>(i) - 1].get<T>();
}

void takeBody(Body& body, BodySolid& solid, const json& data) {
    take(body, data, bodyNumbers);
    take(body, data, bodyCounts);
    take(body, data, bodyFlags);
    take(body, data, bodyTexts);
    takePicture(solid.picture, data);
    body.set_color(point(data["color"]));
    body.initArrays();
    for (const auto& array : bodyArrays) takeArray(body.*array.member, data[array.name]);
    takeArray(body.sectionOrder, data["sectionOrder"]);
}

constexpr Field<ElectroBox, double> boxNumbers[] = {
    {"length", &ElectroBox::length}, {"width", &ElectroBox::width},
    {"height", &ElectroBox::height}, {"weight", &ElectroBox::weight},
    {"pos", &ElectroBox::pos},       {"elevation", &ElectroBox::elevation},
    {"shift", &ElectroBox::shift},
};
constexpr Field<ElectroBox, std::int32_t> boxCodes[] = {
    {"orientation", &ElectroBox::orientation},
    {"box", &ElectroBox::box},
};

void takeBox(ElectroBox& box, const json& data) {
    take(box, data, boxNumbers);
    take(box, data, boxCodes);
}

void takeLists(const json& model) {
    nbWings = model["nbWings"].get<std::int16_t>();
    MainWing::allocateWings(project);
    currentWing = model["currentWing"].get<std::int16_t>();
    for (int i = 1; i <= nbWings; ++i)
        takeWing(Wings(i), solids.wings(i), model["Wings"][static_cast<std::size_t>(i) - 1]);
    nbFuselages = model["nbFuselages"].get<std::int16_t>();
    Fuselage::resizeFuselages(project);
    currentFuselage = model["currentFuselage"].get<std::int16_t>();
    for (int i = 1; i <= nbFuselages; ++i)
        takeBody(Fuselages(i), solids.fuselages(i),
                 model["Fuselages"][static_cast<std::size_t>(i) - 1]);
    nbEquipments = model["nbEquipments"].get<std::int16_t>();
    Equipment::resizeEquipments(project, nbEquipments);
    currentEquipment = model["currentEquipment"].get<std::int16_t>();
    for (int i = 1; i <= nbEquipments; ++i)
        takeBox(Equipments(i), model["Equipments"][static_cast<std::size_t>(i) - 1]);
}

}  // namespace

void applyModel(const json& model) {
    solids = {};
    project.units = model["Prefs"]["units"].get<int>();
    project.defaultColor = point(model["defaultColor"]);
    project.projectDirectory = model["projectDirectory"].get<std::string>();
    takeLists(model);
    takeWing(Stabilizer, solids.stabilizer, model["Stabilizer"]);
    takeFin(model["Rudder"]);
    ObjectList.clear();
    for (const json& row : model["ObjectList"])
        ObjectList.rows.push_back({row["text"].get<std::string>(), row["status"].get<std::string>(),
                                   row["sections"].get<std::string>(), row["checked"].get<bool>()});
}

namespace {

template <class Object, class Value, std::size_t Count>
void give(json& data, const Object& object, const Field<Object, Value> (&fields)[Count]) {
    for (const auto& field : fields) data[field.name] = object.*field.member;
}

json triple(const Point3D& point) {
    return {point.x, point.y, point.z};
}

/// Entries 1 to the upper bound.
template <class T>
json entries(const Array1<T>& array) {
    json list = json::array();
    for (int i = 1; i <= array.upper(); ++i) list.push_back(array(i));
    return list;
}

void givePicture(json& data, const SolidPicture& picture) {
    give(data, picture, pictureCodes);
    give(data, picture, pictureFlags);
}

json wingJson(const Wing& wing, const PanelSolid& solid) {
    json data;
    give(data, wing, wingNumbers);
    give(data, wing, wingTexts);
    data["nb"] = wing.nb;
    data["texture_filename"] = wing.texture_filename();
    data["texture_loaded"] = {solid.Left.picture.texture_loaded,
                              solid.Right.picture.texture_loaded};
    data["color"] = triple(wing.color());
    data["airfoil"] = json::array();
    for (int i = 1; i <= wing.airfoilSize(); ++i)
        data["airfoil"].push_back({wing.airfoilPoint(i).x, wing.airfoilPoint(i).z});
    return data;
}

json finJson() {
    json data;
    give(data, Rudder, finNumbers);
    give(data, Rudder, finTexts);
    givePicture(data, solids.rudder.picture);
    data["nb"] = Rudder.nb;
    data["color"] = triple(Rudder.color());
    return data;
}

json bodyJson(const Body& body, const BodySolid& solid) {
    json data;
    give(data, body, bodyNumbers);
    give(data, body, bodyCounts);
    give(data, body, bodyFlags);
    give(data, body, bodyTexts);
    givePicture(data, solid.picture);
    for (const auto& array : bodyArrays) data[array.name] = entries(body.*array.member);
    data["sectionOrder"] = entries(body.sectionOrder);
    data["color"] = triple(body.color());
    return data;
}

json boxJson(const ElectroBox& box) {
    json data;
    give(data, box, boxNumbers);
    give(data, box, boxCodes);
    data["spec"] = nullptr;
    return data;
}

/// What the tables tell besides the model: the gesture on an object, the scale of its picture in
/// the section editor and what the form of the preferences shows, which lie with the editor, and
/// the export's constant.
bool tellsOfNoModel(const std::string& key) {
    static const std::set<std::string> keys{"initval",        "initval2",     "initval3",
                                            "paint",          "selected",     "selected_part",
                                            "szoom",          "InchesOption", "MillimetersOption",
                                            "zeroTranslation"};
    return keys.contains(key);
}

/// Adds a line to `differences` for each place where `actual` is not what `expected` tells.
void compare(const json& expected, const json& actual, const std::string& place,
             std::string& differences) {
    if (expected.is_object() && actual.is_object()) {
        for (const auto& [key, value] : expected.items())
            if (!tellsOfNoModel(key))
                compare(value, actual.contains(key) ? actual[key] : json("missing"),
                        place + "." + key, differences);
        return;
    }
    if (expected.is_array() && actual.is_array() && expected.size() == actual.size()) {
        for (std::size_t i = 0; i < expected.size(); ++i)
            compare(expected[i], actual[i], place + "(" + std::to_string(i + 1) + ")", differences);
        return;
    }
    if (expected != actual)
        differences +=
            place + ": expected " + expected.dump() + ", stands at " + actual.dump() + "\n";
}

json withFolder(const json& model, const std::string& folder) {
    const std::string placeholder = "{DIR}";
    std::string text = model.dump();
    for (auto at = text.find(placeholder); at != std::string::npos;
         at = text.find(placeholder, at + folder.size()))
        text.replace(at, placeholder.size(), folder);
    return json::parse(text);
}

}  // namespace

json modelJson() {
    json model{{"nbWings", nbWings},
               {"currentWing", currentWing},
               {"nbFuselages", nbFuselages},
               {"currentFuselage", currentFuselage},
               {"nbEquipments", nbEquipments},
               {"currentEquipment", currentEquipment},
               {"Stabilizer", wingJson(Stabilizer, solids.stabilizer)},
               {"Rudder", finJson()},
               {"defaultColor", triple(project.defaultColor)},
               {"projectDirectory", project.projectDirectory},
               {"Wings", json::array()},
               {"Fuselages", json::array()},
               {"Equipments", json::array()},
               {"ObjectList", json::array()}};
    model["Prefs"] = {{"units", project.units}};
    for (int i = 1; i <= nbWings; ++i)
        model["Wings"].push_back(wingJson(Wings(i), solids.wings(i)));
    for (int i = 1; i <= nbFuselages; ++i)
        model["Fuselages"].push_back(bodyJson(Fuselages(i), solids.fuselages(i)));
    for (int i = 1; i <= nbEquipments; ++i) model["Equipments"].push_back(boxJson(Equipments(i)));
    for (const FuselageRow& row : ObjectList.rows)
        model["ObjectList"].push_back({{"text", row.text},
                                       {"status", row.status},
                                       {"sections", row.sections},
                                       {"checked", row.checked}});
    return model;
}

void expectModelEquals(const json& model, const std::string& folder) {
    std::string differences;
    compare(withFolder(model, folder), modelJson(), "model", differences);
    EXPECT_EQ(differences, "");
}

}  // namespace velna
