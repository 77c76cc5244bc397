#include "preview/Scene.h"

#include <GL/gl.h>

#include "model/Solids.h"
#include "preview/EquipmentScene.h"

namespace velna {
namespace {

constexpr GLuint sceneList = 1;

}  // namespace

// The fuselages come last: a transparent one blends over what already stands behind it. The list is
// called once it is complete: an implementation that draws while it compiles may give an object the
// material of the next.
void Scene::build(const Project& project, const Solids& solids) {
    textures_.beginList();
    glNewList(sceneList, GL_COMPILE);
    glDisable(GL_BLEND);
    project.Equipments.forEachDistinct(project.nbEquipments, [&](int i, const ElectroBox& box) {
        drawEquipment(box, solids.equipments(i));
    });
    project.Wings.forEachDistinct(project.nbWings, [&](int i, const SymWingSections& wing) {
        drawPanel(wing, solids.wings(i), wing_, textures_);
    });
    drawPanel(project.Stabilizer, solids.stabilizer, wing_, textures_);
    drawRudder(project.Rudder, solids.rudder, fin_, textures_);
    project.Fuselages.forEachDistinct(
        project.nbFuselages, [&](int i) { return project.ObjectList.shown(i); },
        [&](int i, const MeshSections& body) {
            drawFuselage(body, solids.fuselages(i), fuselage_, textures_);
        });
    glEndList();
}

void Scene::call() {
    glCallList(sceneList);
}

}  // namespace velna
