#pragma once

#include <string>

#include "shell/ContextIDs.h"
#include "shell/FileCommands.h"
#include "shell/Helper.h"
#include "shell/Ports.h"
#include "shell/Preferences.h"

namespace velna {

/// How the program comes up, and what its two timers do.
struct Startup {
    MainForm& main;
    Rendering& rendering;
    Helper& helper;
    Preferences& preferences;
    Recovery& recovery;
    FileCommands& files;
    const ShellPorts& ports;

    bool smallFontsVariable = false;
    /// How much larger the splash and the preferences are with small fonts, so that they fill the
    /// same place.
    static constexpr double smallFontsScale = 1.23;
    HelpWindowRecord helpWindow{};
    bool firstViewDue = false;  ///< `Timer1` has yet to give the picture its first view

    /// Brings the program up, in the one order in which each step finds what it reads; returns when
    /// the window stands, the preferences are read and a demonstration that was asked for is over.
    /// Work that was left behind is asked about first, then `file` is opened, where one is named;
    /// after either the demonstration waits for another start.
    void run(const std::string& file = {});

    /// Full initialisation of the main form on the default aircraft.
    void initMain();

    /// Whether the desktop's text is small (16 pixels or less). The compact layout is for an
    /// installation that has its settings file: without one the call fails and the answer is false.
    bool smallFontsMode() const;

    /// Appends a line to the diagnostic log beside the program, if it is not installed there.
    /// Nothing calls it in the finished flows.
    void monitorLoad(const std::string& text) const;

    /// `Timer1`: one tick that gives the picture its first view and applies a stored inch setting.
    void timer1Tick();

    /// `Timer2`: one step of the cursor's glide in the demonstration.
    void timer2Tick() { helper.glideStep(); }

private:
    std::string logFile() const;
    void initPicture();
    void initPointer();
    void initPictureContext();
    void finishFirstView();
    bool bringBackWork();
};

}  // namespace velna
