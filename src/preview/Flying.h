#pragma once

#include "preview/Joystick.h"

namespace velna::Flying {

extern Joystick* joystick;  ///< the port, set once at start

extern bool flying;           ///< the loop runs; false ends it
extern bool joystickEnabled;  ///< a joystick answered at the start
extern double flightSpeed;    ///< distance a frame
extern double flightRoll;     ///< degrees a frame
extern double flightPitch;
extern double flightYaw;

/// True from the start of a flight until the project has its own lengths back, a little longer than
/// `flying`: nothing may be saved, opened or reset in between.
bool running();

/// Back to the state before start-up; the port stays.
void reset();

/// The flight: returns only when it ends. A second start while it runs does nothing. The project's
/// lengths afterwards are exactly those before.
void flyPreview();

/// The pointer over `Render` during the flight (`Rendering::mouseMove` and `mouseDown` hand it on).
void mouseMove(double x, double y);
/// Left halves the speed, right makes it half as much again.
void mouseDown(int button);

}  // namespace velna::Flying
