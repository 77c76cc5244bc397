#pragma once

#include <string>

namespace velna::Startup {

extern bool smallFontsVariable;
/// How much larger the splash and the preferences are with small fonts, so that they fill the same
/// place.
inline constexpr double smallFontsScale = 1.23;

/// Brings the program up, in the one order in which each step finds what it reads; returns when the
/// window stands, the preferences are read and a demonstration that was asked for is over.
void run();

/// Full initialisation of the main form on the default aircraft.
void initMain();

/// Whether the desktop's text is small (16 pixels or less). The compact layout is for an
/// installation that has its settings file: without one the call fails and the answer is false.
bool smallFontsMode();

/// Appends a line to the diagnostic log beside the program. Nothing calls it in the finished flows.
void monitorLoad(const std::string& text);

/// `Timer1`: one tick that gives the picture its first view and applies a stored inch setting.
void timer1Tick();

/// `Timer2`: one step of the cursor's glide in the demonstration.
void timer2Tick();

/// The question before the window closes; false keeps it open. A flight or a demonstration under
/// way is ended first, a command is let come to its end, and the window then closes itself with its
/// question. After a Yes to `querySessionEnd` it is not asked again.
bool queryUnload();

/// The same question while a log-out can still be called off; false calls it off.
bool querySessionEnd();
/// The user works on, whatever has been agreed: the next close asks.
void sessionGoesOn();

/// While one stands, a command works on the model, which must not be released under it.
struct CommandUnderWay {
    CommandUnderWay();
    ~CommandUnderWay();
    CommandUnderWay(const CommandUnderWay&) = delete;
    CommandUnderWay& operator=(const CommandUnderWay&) = delete;
};

/// Releases everything and writes the settings, which happens nowhere else.
void unload();

/// To be called when a command, a flight or a demonstration has ended: closes the window if that
/// was asked for, and nothing else is under way.
void closeIfAsked();

}  // namespace velna::Startup
