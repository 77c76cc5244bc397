#pragma once

#include <optional>
#include <string>

#include "common/Point.h"

namespace velna {

/// The screen, the program's own window and folders, as start-up and the demonstration need them.
class Desktop {
public:
    virtual ~Desktop() = default;

    // folders, each with its "/"
    virtual std::string programFolder() const = 0;
    /// The user's own configuration folder of the program; it need not exist yet.
    virtual std::string configurationFolder() const = 0;
    /// The user's own folder for what the program keeps from run to run and nobody edits; it need
    /// not exist yet.
    virtual std::string stateFolder() const = 0;

    // the window
    /// Height in pixels of the desktop's text, nothing where there is no screen to ask.
    virtual std::optional<int> characterHeight() const = 0;
    /// Lays out the main window and makes its surfaces ready, in the compact form with small fonts.
    virtual void layOutWindow(bool smallFonts) = 0;
    virtual void setCaption(const std::string& caption) = 0;
    /// Shows the splash; `version` is its line "Version 2.2.1".
    virtual void showSplash(const std::string& version, bool smallFonts) = 0;
    virtual void hideSplash() = 0;
    virtual void showMainWindow() = 0;
    /// Closes the main window as its close button does, question included.
    virtual void closeMainWindow() = 0;
    /// Ends the process at once: no question, nothing written.
    virtual void endProcess() = 0;

    // timers: `Timer1` 10 ms, `Timer2` 30 ms
    virtual void enableTimer1(bool on) = 0;
    virtual void enableTimer2(bool on) = 0;
    virtual bool timer2Enabled() const = 0;
    /// Waits for the next event and lets pending ones run.
    virtual void pumpEvents() = 0;

    // the demonstration; places in pixels of the main window's client area
    virtual Point2D screenCentre() const = 0;
    /// The place in the window of a pixel of `DrawArea`.
    virtual Point2D drawAreaToWindow(Point2D pixel) const = 0;
    /// Moves the real cursor to a place in the window, or, where the platform lets no program do
    /// that, a drawn one, the moves then being given to `DrawArea` directly.
    virtual void setCursorPosition(int x, int y) = 0;
    /// `ShiftButton` as a floating sign at a place in the window.
    virtual void placeSign(int left, int top) = 0;
    /// Opens the popup menu beside the cursor, and returns at once.
    virtual void openPopupAtCursor() = 0;

    // figures
    /// Shows the window of figures beside the views, or hides it where it is shown.
    virtual void toggleFigures() = 0;

    // help
    /// Names the help file and its window's place; the window opens on demand.
    virtual void setHelpFile(const std::string& file) = 0;
    virtual void placeHelpWindow(int x, int y, int width, int height) = 0;
    virtual void showHelpContents() = 0;
    virtual void closeHelp() = 0;
};

}  // namespace velna
