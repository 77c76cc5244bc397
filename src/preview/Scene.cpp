#include "preview/Scene.h"

#include "model/ObjectList.h"
#include "model/Plane.h"
#include "preview/Rendering.h"
#include "preview/Textures.h"

namespace velna::Rendering {
namespace {

constexpr GLuint sceneList = 1;

/// Solids and pictures are being made. A message box about a picture lets window events through,
/// and one of them may ask for the picture again.
bool preparing = false;

struct Preparing {
    Preparing() { preparing = true; }
    ~Preparing() { preparing = false; }
};

template <class Visit>
void forEachPanel(Visit visit) {
    Wings.forEachDistinct(nbWings, visit);
    visit(Stabilizer);
}

template <class Visit>
void forEachShownFuselage(Visit visit) {
    Fuselages.forEachDistinct(
        nbFuselages, [](int i) { return ObjectList.shown(i); },
        [&](int, MeshSections& body) { visit(body); });
}

/// Everything that the list will need, so that nothing inside it opens a box or lets events
/// through.
void prepareScene() {
    const Preparing whileThisRuns;
    Plane::createAllSolids();
    Textures::convertPictures();
}

void drawPanel(SymWingSections& panel) {
    setMaterialColor(panel.color());
    if (panel.Left) drawWingLeft(*panel.Left);
    if (panel.Right) drawWingRight(*panel.Right);
}

void drawBlended(MeshSections& fuselage) {
    setMaterialColor(fuselage.color());
    if (fuselage.transparent) {
        glEnable(GL_BLEND);
    } else {
        glDisable(GL_BLEND);
        glHint(GL_LINE_SMOOTH_HINT, GL_NICEST);
    }
    drawFuselage(fuselage);
}

// The fuselages come last: a transparent one blends over what already stands behind it. The list is
// called once it is complete: an implementation that draws while it compiles may give an object the
// material of the next.
void buildList() {
    Textures::beginList();
    glNewList(sceneList, GL_COMPILE);
    glDisable(GL_BLEND);
    drawEquipments();
    forEachPanel(drawPanel);
    setMaterialColor(Rudder.color());
    drawRudder(Rudder);
    forEachShownFuselage(drawBlended);
    glEndList();
    renderListBuilt = true;
}

}  // namespace

void setMaterialColor(const Point3D& color) {
    const GLfloat material[] = {static_cast<GLfloat>(color.x / 255),
                                static_cast<GLfloat>(color.y / 255),
                                static_cast<GLfloat>(color.z / 255), 0.7F};
    glMaterialfv(GL_FRONT_AND_BACK, GL_AMBIENT_AND_DIFFUSE, material);
}

void renderScene(bool rebuild) {
    if (preparing) {
        if (!renderListBuilt) return;
        rebuild = false;
    }
    if (!contextCreated) {
        // The solids are wanted by more than the picture.
        if (rebuild) Plane::createAllSolids();
        return;
    }
    const bool replay = !rebuild && renderListBuilt;
    if (!replay) prepareScene();
    if (!contextCreated) return;
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    if (!replay) buildList();
    glCallList(sceneList);
    context->swapBuffers();
}

}  // namespace velna::Rendering
