#include "preview/Scene.h"

#include <algorithm>

#include <GL/gl.h>

#include "model/Solids.h"
#include "preview/EquipmentScene.h"

namespace velna {
namespace {

constexpr GLuint sceneList = 1;

/// A name for a list that is not the whole's.
GLuint newList() {
    const GLuint name = glGenLists(1);
    return name == sceneList ? glGenLists(1) : name;
}

void addPicture(std::vector<Texels>& pictures, const SolidPicture& picture) {
    if (picture.texture_loaded && picture.texels) pictures.push_back(picture.texels);
}

std::vector<Texels> picturesOf(const BoxSolid&) {
    return {};
}

std::vector<Texels> picturesOf(const PanelSolid& panel) {
    std::vector<Texels> pictures;
    addPicture(pictures, panel.Left.picture);
    addPicture(pictures, panel.Right.picture);
    return pictures;
}

/// Of a fin or a fuselage.
template <class Solid>
std::vector<Texels> picturesOf(const Solid& solid) {
    std::vector<Texels> pictures;
    addPicture(pictures, solid.picture);
    return pictures;
}

}  // namespace

/// Calls `visit(solid, draw)` for each object in the order in which they are drawn. The fuselages
/// come last: a transparent one blends over what already stands behind it.
template <class Visit>
void Scene::forEachObject(const Project& project, Solids& solids, Visit visit) {
    project.Equipments.forEachDistinct(project.nbEquipments, [&](int i, const ElectroBox& box) {
        BoxSolid& solid = solids.equipments(i);
        visit(solid, [&] { drawEquipment(box, solid); });
    });
    const auto panel = [&](const SymWingSections& wing, PanelSolid& solid) {
        visit(solid, [&] { drawPanel(wing, solid, wing_, textures_); });
    };
    project.Wings.forEachDistinct(
        project.nbWings, [&](int i, const SymWingSections& wing) { panel(wing, solids.wings(i)); });
    panel(project.Stabilizer, solids.stabilizer);
    visit(solids.rudder, [&] { drawRudder(project.Rudder, solids.rudder, fin_, textures_); });
    project.Fuselages.forEachDistinct(
        project.nbFuselages, [&](int i) { return project.ObjectList.shown(i); },
        [&](int i, const MeshSections& body) {
            BodySolid& solid = solids.fuselages(i);
            visit(solid, [&] { drawFuselage(body, solid, fuselage_, textures_); });
        });
}

/// Finds out whether the object's list still shows it.
template <class Solid>
void Scene::lookAt(Solid& solid) {
    ObjectList& list = lists_[&solid];
    list.wanted = true;
    std::vector<Texels> pictures = picturesOf(solid);
    list.upToDate = list.name != 0 && solid.builtFrom.drawn && pictures == list.pictures;
    if (list.upToDate) return;
    picturesChanged_ = picturesChanged_ || !pictures.empty() || !list.pictures.empty();
    list.pictures = std::move(pictures);
    solid.builtFrom.drawn = true;
}

void Scene::dropUnwanted() {
    std::erase_if(lists_, [this](const auto& entry) {
        const ObjectList& list = entry.second;
        if (list.wanted) return false;
        picturesChanged_ = picturesChanged_ || !list.pictures.empty();
        glDeleteLists(list.name, 1);
        return true;
    });
}

/// The first list of a picture hands it over, and the others rely on it: they are made together.
void Scene::renewPictures() {
    picturesChanged_ = false;
    textures_.beginList();
    for (auto& [solid, list] : lists_)
        if (!list.pictures.empty()) list.upToDate = false;
}

void Scene::makeWholeList(const std::vector<GLuint>& objects) const {
    glNewList(sceneList, GL_COMPILE);
    glDisable(GL_BLEND);
    for (const GLuint object : objects) glCallList(object);
    glEndList();
}

// A list is called once it is complete: an implementation that draws while it compiles may give an
// object the material of the next.
void Scene::build(const Project& project, Solids& solids) {
    for (auto& [solid, list] : lists_) list.wanted = false;
    forEachObject(project, solids, [this](auto& solid, auto) { lookAt(solid); });
    dropUnwanted();
    if (picturesChanged_) renewPictures();
    bool changed = false;
    std::vector<GLuint> order;
    forEachObject(project, solids, [&](auto& solid, auto draw) {
        ObjectList& list = lists_[&solid];
        if (!list.upToDate) {
            changed = true;
            if (list.name == 0) list.name = newList();
            glNewList(list.name, GL_COMPILE);
            draw();
            glEndList();
        }
        order.push_back(list.name);
    });
    if (!changed && order == order_) return;
    makeWholeList(order);
    order_ = std::move(order);
}

void Scene::call() {
    glCallList(sceneList);
}

void Scene::forget() {
    lists_.clear();
    order_.clear();
    picturesChanged_ = true;
}

}  // namespace velna
