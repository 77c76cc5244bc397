#pragma once

#include "model/Project.h"
#include "preview/Joystick.h"
#include "preview/Rendering.h"

namespace velna {

/// The flight round the aircraft, in the picture of the same project. Both must outlive it.
class Flying {
public:
    Joystick* joystick = nullptr;  ///< the port; without one the pointer steers

    bool flying = false;           ///< the loop runs; false ends it
    bool joystickEnabled = false;  ///< a joystick answered at the start
    double flightSpeed = 10;       ///< distance a frame
    double flightRoll = 0;         ///< degrees a frame
    double flightPitch = 0;
    double flightYaw = 0;

    Flying(Project& flown, Rendering& picture) : project_(flown), rendering_(picture) {}

    /// True from the start of a flight until the project is what it was, a little longer than
    /// `flying`: nothing may be saved, opened or reset in between.
    bool running() const { return underWay_; }

    /// The flight: returns only when it ends. A second start while it runs does nothing. The
    /// project afterwards is exactly the one before.
    void flyPreview();

    /// The pointer over `Render` during the flight.
    void mouseMove(double x, double y);
    /// Left halves the speed, right makes it half as much again.
    void mouseDown(int button);

private:
    void initFlight();
    void steerByStick();
    void flyFrame();
    void flyScaled();

    Project& project_;
    Rendering& rendering_;
    bool underWay_ = false;  ///< outlives `flying` by the events that follow the end in its turn
    JoystickReading stick_;  ///< the last; it stays in force when the joystick stops answering
    JoystickReading centre_;
};

}  // namespace velna
