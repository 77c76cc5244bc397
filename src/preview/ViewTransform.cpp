#include <algorithm>
#include <cmath>

#include <GL/gl.h>

#include "model/MeshSections.h"
#include "preview/Rendering.h"

namespace velna {
namespace {

/// The number that turns tenths of a degree into radians here; the pictures of every project have
/// always been seen with it, and it is good to a twentieth of a degree.
constexpr double roughPi = 3.14;

/// Lets an aircraft of a few inches fill the picture as one of as many centimetres does.
constexpr double inchScale = 25;

/// The light stands behind the viewer's shoulder, whichever way the model is turned.
void placeLight(double spin, double tilt) {
    const double b = roughPi * spin / 10 / 180;
    const double c = roughPi * tilt / 10 / 180;
    const GLfloat position[] = {static_cast<GLfloat>(-1000 * std::sin(b) * std::cos(c)),
                                static_cast<GLfloat>(-1000 * std::cos(b) * std::cos(c)),
                                static_cast<GLfloat>(1000 * std::sin(c)), 1};
    glLightfv(GL_LIGHT0, GL_POSITION, position);
}

/// The model turns about the middle of the current fuselage.
void centreOnFuselage(const Project& project) {
    const int current = project.currentFuselage;
    if (current < 1 || current > std::min<int>(project.nbFuselages, project.Fuselages.size()))
        return;
    const MeshSections& fuselage = project.Fuselages(current);
    const double middle = (fuselage.startpoint() + fuselage.lengthPoint()) / 2;
    if (std::isfinite(middle)) glTranslated(-middle, 0, 0);
}

}  // namespace

void Rendering::setViewTransform(double panX, double panY, double distance, double spin,
                                 double tilt) {
    shownView = {panX, panY, distance, spin, tilt};
    if (!contextCreated) return;
    glLoadIdentity();
    glTranslated(0, 0, -1000);
    glTranslated(panX / 5, 0, 0);
    glTranslated(0, panY / 5, 0);
    glTranslated(0, 0, -distance * 5);
    glRotated(-90, 1, 0, 0);
    glRotated(spin / 10, 0, 0, 1);
    // The screen's horizontal axis as the model sees it, hence turned back by the spin.
    const double a = -roughPi * spin / 10 / 180;
    glRotated(tilt / 10, std::cos(a), std::sin(a), 0);
    placeLight(spin, tilt);
    if (project_.units == inches) glScaled(inchScale, inchScale, inchScale);
    centreOnFuselage(project_);
}

void Rendering::reapplyViewTransform() {
    setViewTransform(shownView.panX, shownView.panY, shownView.distance, shownView.spin,
                     shownView.tilt);
}

}  // namespace velna
