#pragma once

#include "preview/Flying.h"
#include "shell/Helper.h"
#include "shell/Ports.h"
#include "shell/Preferences.h"
#include "shell/Recovery.h"

namespace velna {

/// The end of the program: its question, what it waits for, and what is released.
struct Quit {
    Project& project;
    Rendering& rendering;
    Flying& flying;
    Helper& helper;
    Preferences& preferences;
    Recovery& recovery;
    const ShellPorts& ports;

    /// The question before the window closes; false keeps it open. A flight or a demonstration
    /// under way is ended first, a command is let come to its end, and the window then closes
    /// itself with its question. After a Yes to `querySessionEnd` it is not asked again.
    bool queryUnload();
    /// The same question while a log-out can still be called off; false calls it off.
    bool querySessionEnd();
    /// The user works on, whatever has been agreed: the next close asks.
    void sessionGoesOn() { quitAgreed = false; }
    /// Releases the picture's context and the help, stops the timers, gives up what is not saved,
    /// and writes the settings, which happens nowhere else.
    void unload();
    /// To be called when a command, a flight or a demonstration has ended: closes the window if
    /// that was asked for, and nothing else is under way.
    void closeIfAsked();

    bool closeAsked = false;
    bool quitAgreed = false;
    int commandsUnderWay = 0;

private:
    bool askToQuit() const;
    bool underWay() const;
};

/// While one stands, a command works on the model, which must not be released under it.
class CommandUnderWay {
public:
    explicit CommandUnderWay(Quit& quit) : quit_(quit) { ++quit_.commandsUnderWay; }
    ~CommandUnderWay() { --quit_.commandsUnderWay; }
    CommandUnderWay(const CommandUnderWay&) = delete;
    CommandUnderWay& operator=(const CommandUnderWay&) = delete;

private:
    Quit& quit_;
};

}  // namespace velna
