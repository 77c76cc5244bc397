#include "preview/Flying.h"

#include <GL/gl.h>

#include "common/Finite.h"
#include "model/Plane.h"
#include "model/Prefs.h"
#include "preview/KeptLengths.h"
#include "preview/Rendering.h"

namespace velna::Flying {

Joystick* joystick = nullptr;
bool flying = false;
bool joystickEnabled = false;
double flightSpeed = 10;
double flightRoll = 0;
double flightPitch = 0;
double flightYaw = 0;

namespace {

using Rendering::context;

/// Outlives `flying` by the events that follow the end in the same turn.
bool underWay = false;

/// The last reading; it stays in force when the joystick stops answering.
JoystickReading stick;
JoystickReading centre;

constexpr double stickUnitsPerDegree = 4000;
constexpr double pointerUnitsPerDegree = 500;
constexpr double flightHalfWidth = 50;
constexpr GLuint sceneList = 1;

/// Scales the aircraft so that flying round it takes some seconds.
double flightScale() {
    return Prefs.units == inches ? 2.0 : 0.1;
}

void initFlight() {
    stick = {};
    if (joystick) joystick->open();
    joystickEnabled = joystick && joystick->read(stick);
    centre = stick;
    context->setFlyingInfo(true, joystickEnabled ? "Joystick enabled" : "Mouse enabled");
    flightRoll = 0;
    flightPitch = 0;
    flightYaw = 0;
}

/// Stick sideways rolls; with a button held it yaws, and the roll of the moment at which the button
/// was pressed goes on.
void steerByStick() {
    joystick->read(stick);
    const double sideways = -(1.0 * stick.x - centre.x) / stickUnitsPerDegree;
    if (stick.buttons != 0) {
        flightYaw = sideways;
    } else {
        flightRoll = sideways;
        flightYaw = 0;
    }
    flightPitch = (1.0 * stick.y - centre.y) / stickUnitsPerDegree;
}

void placeAtStart() {
    glLoadIdentity();
    glTranslated(0, 0, -1000);
    glRotated(-90, 1, 0, 0);
    glRotated(-45, 0, 0, 1);
}

// The matrix is never reset: each frame turns about the axes on which the frames before have left
// the aircraft.
void flyFrame() {
    if (joystickEnabled) steerByStick();
    glRotated(flightPitch, 0, 1, 0);
    glRotated(flightRoll, 1, 0, 0);
    glRotated(flightYaw, 0, 0, 1);
    glTranslated(-flightSpeed, 0, 0);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    glCallList(sceneList);
    context->swapBuffers();
    context->pumpEvents();
}

}  // namespace

bool running() {
    return underWay;
}

void reset() {
    underWay = false;
    flying = false;
    joystickEnabled = false;
    flightSpeed = 10;
    flightRoll = 0;
    flightPitch = 0;
    flightYaw = 0;
}

void flyPreview() {
    if (underWay || !Rendering::contextCreated) return;
    underWay = true;
    Rendering::endDrags();
    initFlight();
    flying = true;
    const KeptLengths lengths;
    Plane::rescaleAll(flightScale());
    context->setFullScreen(true);
    Rendering::createRenderContextWide(flightHalfWidth);
    flightSpeed = 10;
    if (Rendering::contextCreated) {
        placeAtStart();
        Rendering::renderScene(true);
    }
    // Without a picture there is nothing to fly through, and nothing that would pace the loop.
    while (flying && Rendering::contextCreated) flyFrame();

    joystickEnabled = false;
    flying = false;
    if (joystick) joystick->close();
    context->setFullScreen(false);
    lengths.restore();
    Rendering::createRenderContext();
    if (!Rendering::contextCreated) Plane::createAllSolids();
    context->setFlyingInfo(false, "");
    underWay = false;
}

// Mouse steering: the middle of the screen means straight on. The pointer has no yaw.
void mouseMove(double x, double y) {
    if (joystickEnabled) return;
    flightRoll = (context->screenWidth() / 2 - x) / pointerUnitsPerDegree;
    flightPitch = (y - context->screenHeight() / 2) / pointerUnitsPerDegree;
}

void mouseDown(int button) {
    if (button == Rendering::leftButton) flightSpeed /= 2;
    if (button == Rendering::rightButton) assignFinite(flightSpeed, flightSpeed * 1.5);
}

}  // namespace velna::Flying
