#include "shell/qt/PopupMenu.h"

#include <QTimer>
#include <algorithm>

#include "editor/Main.h"
#include "shell/qt/DisplaySystem.h"
#include "shell/qt/Mirrors.h"

namespace velna {
namespace {

struct Entry {
    Control control;
    const char* caption;
};

constexpr Entry entries[] = {
    {Control::Change, "Change Direction (Shift + Click)"},
    {Control::InsRem, "Insert/Remove Section (Ctrl + Click)"},
    {Control::LoadBitmap, "Load Bitmap (O)"},
    {Control::MoveBitmap, "Move Bitmap (Alt +Click)"},
    {Control::SizeBitmap, "Size Bitmap (I)"},
    {Control::LockZoom, "Lock Zoom"},
    {Control::ClearBitmap, "Clear Bitmap"},
    {Control::UndoStep, "Undo"},
    {Control::RedoStep, "Redo"},
    {Control::StartView, "Picture Back to the Start View (Home)"},
    {Control::TracePicture, "Trace by Two Points"},
};

// What undo and redo would do stands in the text of their controls ("Tip chord").
QString captionOf(const Entry& entry, const ControlState& state) {
    const bool undo = entry.control == Control::UndoStep;
    if (!undo && entry.control != Control::RedoStep) return entry.caption;
    const QString what = QString::fromStdString(state.text.empty() ? "" : " " + state.text);
    return QString("%1%2 (%3)")
        .arg(entry.caption, what, undo ? "Alt+Backspace" : "Alt+Shift+Backspace");
}

}  // namespace

PopupMenu::PopupMenu(MainForm& main, Mirrors& mirrors, QWidget* parent) : QMenu(parent) {
    setObjectName("Popup");
    for (const Entry& entry : entries) {
        if (entry.control == Control::UndoStep) addSeparator();
        QAction* action = addAction(entry.caption);
        action->setObjectName(controlName(entry.control));
        action->setCheckable(entry.control == Control::LockZoom);
        connect(action, &QAction::triggered, this, [&main, &mirrors, control = entry.control] {
            main.menuClicked(control);
            mirrors.show(control);
        });
        mirrors.add(entry.control, [action, &entry](const ControlState& state) {
            action->setText(captionOf(entry, state));
            action->setEnabled(state.enabled);
            action->setChecked(state.checked);
        });
    }
}

// Wayland lets a menu have the pointer only when a press has opened it, and else closes it at once:
// there it stands inside the window.
void PopupMenu::openUnasked(QPoint place) {
    if (!DisplaySystem::isWayland()) return popup(place);
    QWidget& window = *parentWidget();
    const QSize size = sizeHint();
    const QPoint corner = window.mapFromGlobal(place);
    setParent(&window, Qt::Widget);
    setGeometry({{std::clamp(corner.x(), 0, std::max(window.width() - size.width(), 0)),
                  std::clamp(corner.y(), 0, std::max(window.height() - size.height(), 0))},
                 size});
    show();
    raise();
    setFocus(Qt::PopupFocusReason);
}

// A press beside it closes it, as it does a window's menu.
void PopupMenu::focusOutEvent(QFocusEvent* event) {
    QMenu::focusOutEvent(event);
    if (!isWindow()) hide();
}

void PopupMenu::hideEvent(QHideEvent* event) {
    QMenu::hideEvent(event);
    if (isWindow()) return;
    QTimer::singleShot(0, this, [this] { setParent(parentWidget(), Qt::Popup); });
}

}  // namespace velna
