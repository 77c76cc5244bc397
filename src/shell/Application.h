#pragma once

#include "editor/Main.h"
#include "model/Solids.h"
#include "output/Plans.h"
#include "preview/Flying.h"
#include "preview/PictureCopies.h"
#include "preview/Rendering.h"
#include "preview/ViewMouse.h"
#include "shell/AirfoilCommands.h"
#include "shell/FigureSheet.h"
#include "shell/FileCommands.h"
#include "shell/Helper.h"
#include "shell/HistoryCommands.h"
#include "shell/MemoryGuard.h"
#include "shell/Ports.h"
#include "shell/Preferences.h"
#include "shell/PrintCommand.h"
#include "shell/Quit.h"
#include "shell/RecentFiles.h"
#include "shell/Recovery.h"
#include "shell/Settings.h"
#include "shell/Startup.h"
#include "shell/ToolbarCommands.h"

namespace velna {

/// One running program: it owns one of each, and each knows only what it works on. Two of them in
/// one process do not know of each other. The ports (`Main.window`, `shell.dialogs`,
/// `rendering.context` and the like) are set before anything is called.
struct Application {
    Project project;
    Solids solids;
    PictureStore pictures;
    ShellPorts shell;
    Settings settings;
    PrintSelectRecord PrintSelect;

    MainForm Main{project};
    FigureSheet figures{Main};
    Rendering rendering{project, solids};
    Flying flying{project, rendering};
    RenderPointer renderPointer{rendering, flying};

    Preferences preferences{Main, settings, shell};
    Helper helper{Main, rendering, shell};
    Recovery recovery{Main, flying, shell};
    RecentFiles recent{settings};
    Quit quit{project, rendering, flying, helper, preferences, recovery, shell};
    AirfoilCommands airfoils{Main, rendering, shell, {}};
    FileCommands files{Main,     solids, rendering, preferences, pictures,
                       recovery, recent, airfoils,  shell};
    Startup startup{Main, rendering, helper, preferences, recovery, files, shell};
    PrintCommand print{Main, PrintSelect, settings, shell, figures};
    HistoryCommands history{Main, rendering, helper, flying};
    MemoryGuard memory{Main, rendering, shell};
    ToolbarCommands toolbar{Main,    solids,      rendering, flying,   files, print,
                            history, preferences, quit,      recovery, shell};

    Application() = default;
    /// Start-up, with `file` opened where one is named, or the demonstration of a first use; a
    /// close that was asked for meanwhile follows.
    void run(const std::string& file = {}) {
        {
            const CommandUnderWay start(quit);
            startup.run(file);
        }
        quit.closeIfAsked();
    }

    // Its parts refer to each other.
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;
};

}  // namespace velna
