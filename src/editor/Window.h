#pragma once

#include <optional>
#include <string>

#include "editor/Controls.h"

namespace velna {

/// Cursor shapes over the drawing surface, by the platform's numbers.
enum class CursorShape {
    Default = 0,
    Cross = 2,
    FourWay = 5,
    NorthSouth = 7,
    WestEast = 9,
    Custom = 99
};

/// The picture of the custom cursor.
enum class CursorIcon { None, NSShapeIcon, EWShapeIcon };

/// The sign in a message box.
enum class BoxIcon { Exclamation, Question, Information, Stop };

/// What the editor asks of the main window. The states of the controls are in `Main.controls`; the
/// window is told which one has changed and shows it, without sending an event back.
class Window {
public:
    virtual ~Window() = default;

    /// `Main.controls[control]` has changed: show it.
    virtual void changed(Control control) = 0;

    /// A catalogue combo box has new entries (in `Equipment`).
    virtual void catalogueFilled(Control combo) = 0;

    /// The rows of `ObjectList` have changed: show them where the manager is open.
    virtual void fuselageListChanged() = 0;

    virtual void setCursor(CursorShape shape, CursorIcon icon) = 0;

    /// Opens the popup menu at a place on the drawing surface, in pixels. Returns at once.
    virtual void openPopup(float x, float y) = 0;

    /// Shows the picture in three dimensions again; `rebuild` makes its list anew.
    virtual void renderScene(bool rebuild) = 0;
    /// Between true and false `renderScene` only takes note, and the last false shows the picture
    /// once: what moves several things in one step is built once.
    virtual void holdPicture(bool on) = 0;

    /// Sets the place of the eye for the pictures to come: pan, distance, spin and tilt.
    virtual void setViewTransform(double panX, double panY, double distance, double spin,
                                  double tilt) = 0;

    /// One step of the history back, or forth, as the toolbar's buttons do.
    virtual void undo() = 0;
    virtual void redo() = 0;
    /// The picture in three dimensions as it was seen after the start; nothing during a flight or
    /// a drag there.
    virtual void showStartView() = 0;

    /// The hidden prompt for the picture's frustum.
    virtual void promptFrustum() = 0;

    /// A question with Yes and No; `defaultYes` tells which the Enter key takes. Escape is No.
    virtual bool askYesNo(const std::string& text, BoxIcon icon, bool defaultYes) = 0;

    /// The file dialog of the background picture; empty when cancelled.
    virtual std::string askPictureFile() = 0;

    /// An input box; nothing when cancelled.
    virtual std::optional<std::string> askText(const std::string& prompt, const std::string& title,
                                               const std::string& preset) = 0;
};

}  // namespace velna
