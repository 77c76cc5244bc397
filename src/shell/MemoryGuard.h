#pragma once

#include "editor/Main.h"
#include "preview/Rendering.h"
#include "shell/Ports.h"

namespace velna {

/// What becomes of an event or a command that has needed more memory than there is.
struct MemoryGuard {
    MainForm& main;
    Rendering& rendering;
    const ShellPorts& ports;

    /// Gives up what it has left half done, so that the aircraft is the one of the last whole step;
    /// shows that and tells it in one message, both as far as memory goes.
    void takeBack() const;
};

}  // namespace velna
