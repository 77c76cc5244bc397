#pragma once

#include <deque>
#include <optional>

#include "preview/Joystick.h"

namespace velna::test {

/// A joystick that gives scripted readings, one a call; nothing, and nothing when the script is at
/// its end, stand for a stick that does not answer.
class FakeJoystick : public Joystick {
public:
    std::deque<std::optional<JoystickReading>> readings;
    int opened = 0;
    int closed = 0;
    int reads = 0;

    void open() override { ++opened; }
    bool read(JoystickReading& reading) override {
        ++reads;
        if (readings.empty()) return false;
        const std::optional<JoystickReading> next = readings.front();
        readings.pop_front();
        if (next) reading = *next;
        return next.has_value();
    }
    void close() override { ++closed; }
};

}  // namespace velna::test
