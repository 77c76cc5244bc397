#include "preview/Flying.h"

#include <exception>
#include <new>
#include <utility>

#include <GL/gl.h>

#include "common/Finite.h"
#include "common/Raised.h"
#include "model/Plane.h"

namespace velna {
namespace {

constexpr double stickUnitsPerDegree = 4000;
constexpr double pointerUnitsPerDegree = 500;
constexpr double flightHalfWidth = 50;

/// Scales the aircraft so that flying round it takes some seconds.
double flightScale(const Project& project) {
    return project.units == inches ? 2.0 : 0.1;
}

void placeAtStart() {
    glLoadIdentity();
    glTranslated(0, 0, -1000);
    glRotated(-90, 1, 0, 0);
    glRotated(-45, 0, 0, 1);
}

}  // namespace

void Flying::initFlight() {
    stick_ = {};
    if (joystick) joystick->open();
    joystickEnabled = joystick && joystick->read(stick_);
    centre_ = stick_;
    rendering_.context->setFlyingInfo(true, joystickEnabled ? "Joystick enabled" : "Mouse enabled");
    flightRoll = 0;
    flightPitch = 0;
    flightYaw = 0;
}

/// Stick sideways rolls; with a button held it yaws, and the roll of the moment at which the button
/// was pressed goes on.
void Flying::steerByStick() {
    joystick->read(stick_);
    const double sideways = -(1.0 * stick_.x - centre_.x) / stickUnitsPerDegree;
    if (stick_.buttons != 0) {
        flightYaw = sideways;
    } else {
        flightRoll = sideways;
        flightYaw = 0;
    }
    flightPitch = (1.0 * stick_.y - centre_.y) / stickUnitsPerDegree;
}

// The matrix is never reset: each frame turns about the axes on which the frames before have left
// the aircraft.
void Flying::flyFrame() {
    if (joystickEnabled) steerByStick();
    glRotated(flightPitch, 0, 1, 0);
    glRotated(flightRoll, 1, 0, 0);
    glRotated(flightYaw, 0, 0, 1);
    glTranslated(-flightSpeed, 0, 0);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    Scene::call();
    rendering_.context->swapBuffers();
    rendering_.context->pumpEvents();
}

/// The flight itself, through the whole screen.
void Flying::flyScaled() {
    Plane::rescaleAll(project_, flightScale(project_));
    rendering_.context->setFullScreen(true);
    rendering_.createRenderContextWide(flightHalfWidth);
    flightSpeed = 10;
    if (rendering_.contextCreated) {
        placeAtStart();
        rendering_.renderScene(true);
    }
    // Without a picture there is nothing to fly through, and nothing that would pace the loop.
    while (flying && rendering_.contextCreated) flyFrame();
}

void Flying::flyPreview() {
    if (underWay_ || !rendering_.contextCreated) return;
    // Multiplying and dividing back would leave other last digits.
    Project kept = project_;
    const Raised whileThisRuns(underWay_);
    const Raised meanwhile(rendering_.matrixIsSum);
    rendering_.endDrags();
    initFlight();
    flying = true;
    std::exception_ptr failure;
    try {
        flyScaled();
    } catch (const std::bad_alloc&) {
        // It lands as any other.
        failure = std::current_exception();
    }

    joystickEnabled = false;
    flying = false;
    if (joystick) joystick->close();
    rendering_.context->setFullScreen(false);
    project_ = std::move(kept);
    rendering_.createRenderContext();
    // Without a picture the solids still follow.
    if (!rendering_.contextCreated) rendering_.renderScene(true);
    rendering_.context->setFlyingInfo(false, "");
    if (failure) std::rethrow_exception(failure);
}

// Mouse steering: the middle of the screen means straight on. The pointer has no yaw.
void Flying::mouseMove(double x, double y) {
    if (joystickEnabled) return;
    flightRoll = (rendering_.context->screenWidth() / 2 - x) / pointerUnitsPerDegree;
    flightPitch = (y - rendering_.context->screenHeight() / 2) / pointerUnitsPerDegree;
}

void Flying::mouseDown(int button) {
    if (button == Rendering::leftButton) flightSpeed /= 2;
    if (button == Rendering::rightButton) assignFinite(flightSpeed, flightSpeed * 1.5);
}

}  // namespace velna
