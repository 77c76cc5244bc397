#include "support/SceneBench.h"

#include <stdexcept>

#include "persistence/ProjectFile.h"

namespace velna::test {
namespace {

using nlohmann::json;

json pictureOf(const SolidPicture& picture) {
    return {
        {"texture_loaded", picture.texture_loaded}, {"xtex", picture.xtex}, {"ytex", picture.ytex}};
}

/// The picture of a wing half or the fin, with its places on root and tip.
template <class Object>
json placedPictureOf(const Object& object) {
    json picture = pictureOf(object.picture);
    json& root = picture["rootTexCoords"] = json::array();
    json& tip = picture["tipTexCoords"] = json::array();
    for (int i = 1; i <= object.pointCount(); ++i) {
        root.push_back(object.rootTexCoord(i));
        tip.push_back(object.tipTexCoord(i));
    }
    return picture;
}

void addHalves(json& pictures, const std::string& name, const PanelSolid& wing) {
    if (wing.Left.picture.texture_filename.empty()) return;
    pictures[name + ".Left"] = placedPictureOf(wing.Left);
    pictures[name + ".Right"] = placedPictureOf(wing.Right);
}

std::string indexed(const std::string& list, int i) {
    return list + "(" + std::to_string(i) + ")";
}

template <class Panel>
double* fieldOf(Panel& panel, const std::string& field) {
    if (field == "span") return &panel.span;
    if (field == "length1") return &panel.length1;
    if (field == "length2") return &panel.length2;
    if (field == "pos1") return &panel.pos1;
    if (field == "pos2") return &panel.pos2;
    if (field == "shift") return &panel.shift;
    return nullptr;
}

double* fieldNamed(const std::string& name) {
    const auto dot = name.find('.');
    const std::string field = dot == std::string::npos ? "" : name.substr(dot + 1);
    const std::string object = name.substr(0, dot);
    if (object == "Rudder") return fieldOf(Rudder, field);
    if (object == "Stabilizer") return fieldOf(Stabilizer, field);
    for (int i = 1; i <= nbWings; ++i)
        if (object == indexed("Wings", i)) return fieldOf(Wings(i), field);
    return nullptr;
}

}  // namespace

SceneBench::SceneBench() {
    resetModel();
    GlTape::clear();
    GlTape::hasContext = false;
    GlTape::largestTexture = 4096;
    rendering_.context = &context;
    rendering_.imaging = &pictures;
    rendering_.createRenderContext();
    GlTape::calls().clear();
}

SceneBench::~SceneBench() {
    resetModel();
}

void SceneBench::open(const std::string& file) {
    const auto refuse = [](const Outcome& outcome) {
        if (!outcome.isDone()) throw std::runtime_error(outcome.reason());
    };
    refuse(Plane::checkProject(file));
    refuse(Plane::readProject(project, file));
    ObjectList.update(Fuselages, nbFuselages);
}

void SceneBench::assign(const std::string& field, double value) {
    double* const target = fieldNamed(field);
    if (!target) throw std::runtime_error("no such field: " + field);
    *target = value;
}

std::vector<json> SceneBench::rebuild() {
    GlTape::calls().clear();
    GlTape::pictures().clear();
    rendering_.renderScene(true);
    return GlTape::calls();
}

json SceneBench::objectPictures() {
    json found = json::object();
    for (int i = 1; i <= nbWings; ++i) addHalves(found, indexed("Wings", i), solids.wings(i));
    addHalves(found, "Stabilizer", solids.stabilizer);
    if (!solids.rudder.picture.texture_filename.empty())
        found["Rudder"] = placedPictureOf(solids.rudder);
    for (int i = 1; i <= nbFuselages; ++i)
        if (const SolidPicture& picture = solids.fuselages(i).picture;
            !picture.texture_filename.empty())
            found[indexed("Fuselages", i)] = pictureOf(picture);
    return found;
}

}  // namespace velna::test
