#pragma once

#include <QMenu>

namespace velna {

class MainForm;
class Mirrors;

/// The menu `Popup` of the drawing surface.
class PopupMenu : public QMenu {
public:
    PopupMenu(MainForm& main, Mirrors& mirrors, QWidget* parent);

    /// Opens it at `place` on the screen without a press of the user's.
    void openUnasked(QPoint place);

protected:
    void focusOutEvent(QFocusEvent* event) override;
    void hideEvent(QHideEvent* event) override;
};

}  // namespace velna
