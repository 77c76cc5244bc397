#pragma once

#include <cstdint>

namespace velna {

/// A reading of the first joystick: axes from 0 to 65535, a mask of the pressed buttons.
struct JoystickReading {
    std::int32_t x = 32767;
    std::int32_t y = 32767;
    std::uint32_t buttons = 0;
};

class Joystick {
public:
    virtual ~Joystick() = default;

    /// Opens the first device if there is one. Called at the start of a flight.
    virtual void open() = 0;
    /// Reads it; false when no joystick answers, `reading` is then left alone.
    virtual bool read(JoystickReading& reading) = 0;
    virtual void close() = 0;
};

}  // namespace velna
