#include "shell/qt/SdlJoystick.h"

#include <algorithm>

#include <SDL.h>

namespace velna {
namespace {

// SDL's axes go from -32768 to 32767.
std::int32_t axis(SDL_Joystick* device, int number) {
    return SDL_JoystickGetAxis(device, number) + 32768;
}

}  // namespace

SdlJoystick::~SdlJoystick() {
    close();
}

void SdlJoystick::open() {
    close();
    // Ctrl+C in the terminal must keep ending the program.
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    // The flight's events are the window's own.
    SDL_SetHint(SDL_HINT_JOYSTICK_ALLOW_BACKGROUND_EVENTS, "1");
    if (SDL_InitSubSystem(SDL_INIT_JOYSTICK) != 0) return;
    started_ = true;
    if (SDL_NumJoysticks() > 0) device_ = SDL_JoystickOpen(0);
}

bool SdlJoystick::read(JoystickReading& reading) {
    if (!device_) return false;
    SDL_JoystickUpdate();
    if (SDL_JoystickGetAttached(device_) != SDL_TRUE) return false;
    reading.x = axis(device_, 0);
    reading.y = axis(device_, 1);
    reading.buttons = 0;
    constexpr int maskBits = 32;
    const int buttons = std::min(SDL_JoystickNumButtons(device_), maskBits);
    for (int i = 0; i < buttons; ++i)
        if (SDL_JoystickGetButton(device_, i)) reading.buttons |= 1U << i;
    return true;
}

void SdlJoystick::close() {
    if (device_) SDL_JoystickClose(device_);
    device_ = nullptr;
    if (started_) SDL_QuitSubSystem(SDL_INIT_JOYSTICK);
    started_ = false;
}

}  // namespace velna
