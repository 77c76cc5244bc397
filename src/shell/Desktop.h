#pragma once

#include <string>

#include "common/Point.h"

namespace velna {

/// The screen, the program's own window and folders, as start-up and the demonstration need them.
class Desktop {
public:
    virtual ~Desktop() = default;

    /// Folder of the program with its "/"; and the user's own configuration folder.
    virtual std::string programFolder() const = 0;
    virtual std::string configurationFolder() const = 0;

    /// Lays out the main window (splash still shown) and makes its surfaces ready.
    virtual void layOutWindow() = 0;
    virtual void setCaption(const std::string& caption) = 0;
    virtual void showSplash(const std::string& version) = 0;
    virtual void hideSplash() = 0;
    virtual void showMainWindow() = 0;
    /// Ends the process at once: no question, nothing written.
    virtual void endProcess() = 0;

    virtual void startTimer1() = 0;
    virtual void stopTimer1() = 0;
    virtual void startTimer2() = 0;
    virtual void stopTimer2() = 0;
    virtual bool timer2Running() const = 0;
    /// Lets pending events run, and waits for the next one if there is none.
    virtual void pumpEvents() = 0;

    // the demonstration, in screen pixels
    virtual Point2D screenCentre() const = 0;
    /// The place on the screen of a pixel of `DrawArea`.
    virtual Point2D drawAreaToScreen(Point2D pixel) const = 0;
    /// Moves the real cursor, or, where the platform lets no program do that, a drawn one with the moves
    /// given to `DrawArea` directly.
    virtual void setCursorPosition(Point2D screen) = 0;
    /// The floating sign beside the cursor, at a place on the screen.
    virtual void showSign(const std::string& caption, Point2D screen) = 0;
    virtual void hideSign() = 0;
    /// Opens the popup menu where the cursor is, and returns at once.
    virtual void openPopupAtCursor() = 0;

    // help
    virtual void showHelpContents() = 0;
    virtual void closeHelp() = 0;
};

}  // namespace velna
