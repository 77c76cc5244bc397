#include "shell/qt/SdlJoystick.h"

#include <QLibrary>
#include <algorithm>

#include <SDL.h>

namespace velna {
namespace {

/// What of SDL a joystick needs. The library comes with two dozen others for sound and video: it is
/// loaded at the first flight, and stays.
struct Sdl {
    template <typename Procedure>
    void find(Procedure& procedure, const char* name) {
        procedure = reinterpret_cast<Procedure>(library.resolve(name));
        complete = complete && procedure;
    }

    Sdl() {
        find(setHint, "SDL_SetHint");
        find(initSubSystem, "SDL_InitSubSystem");
        find(quitSubSystem, "SDL_QuitSubSystem");
        find(numJoysticks, "SDL_NumJoysticks");
        find(open, "SDL_JoystickOpen");
        find(close, "SDL_JoystickClose");
        find(update, "SDL_JoystickUpdate");
        find(attached, "SDL_JoystickGetAttached");
        find(axis, "SDL_JoystickGetAxis");
        find(numButtons, "SDL_JoystickNumButtons");
        find(button, "SDL_JoystickGetButton");
    }

    QLibrary library{"SDL2-2.0", 0};
    bool complete = true;
    decltype(&SDL_SetHint) setHint;
    decltype(&SDL_InitSubSystem) initSubSystem;
    decltype(&SDL_QuitSubSystem) quitSubSystem;
    decltype(&SDL_NumJoysticks) numJoysticks;
    decltype(&SDL_JoystickOpen) open;
    decltype(&SDL_JoystickClose) close;
    decltype(&SDL_JoystickUpdate) update;
    decltype(&SDL_JoystickGetAttached) attached;
    decltype(&SDL_JoystickGetAxis) axis;
    decltype(&SDL_JoystickNumButtons) numButtons;
    decltype(&SDL_JoystickGetButton) button;
};

const Sdl& sdl() {
    static const Sdl loaded;
    return loaded;
}

// SDL's axes go from -32768 to 32767.
std::int32_t axis(SDL_Joystick* device, int number) {
    return sdl().axis(device, number) + 32768;
}

}  // namespace

SdlJoystick::~SdlJoystick() {
    close();
}

void SdlJoystick::open() {
    close();
    if (!sdl().complete) return;
    // Ctrl+C in the terminal must keep ending the program.
    sdl().setHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    // The flight's events are the window's own.
    sdl().setHint(SDL_HINT_JOYSTICK_ALLOW_BACKGROUND_EVENTS, "1");
    if (sdl().initSubSystem(SDL_INIT_JOYSTICK) != 0) return;
    started_ = true;
    if (sdl().numJoysticks() > 0) device_ = sdl().open(0);
}

bool SdlJoystick::read(JoystickReading& reading) {
    if (!device_) return false;
    sdl().update();
    if (sdl().attached(device_) != SDL_TRUE) return false;
    reading.x = axis(device_, 0);
    reading.y = axis(device_, 1);
    reading.buttons = 0;
    constexpr int maskBits = 32;
    const int buttons = std::min(sdl().numButtons(device_), maskBits);
    for (int i = 0; i < buttons; ++i)
        if (sdl().button(device_, i)) reading.buttons |= 1U << i;
    return true;
}

void SdlJoystick::close() {
    if (device_) sdl().close(device_);
    device_ = nullptr;
    if (started_) sdl().quitSubSystem(SDL_INIT_JOYSTICK);
    started_ = false;
}

}  // namespace velna
