#pragma once

#include "preview/Joystick.h"

struct _SDL_Joystick;

namespace velna {

/// The first joystick, through SDL. The subsystem runs from `open` to `close` only, so that a
/// program that does not fly polls nothing. Without SDL's library there is no joystick.
class SdlJoystick : public Joystick {
public:
    ~SdlJoystick() override;

    void open() override;
    bool read(JoystickReading& reading) override;
    void close() override;

private:
    _SDL_Joystick* device_ = nullptr;
    bool started_ = false;
};

}  // namespace velna
