#include "shell/qt/PopupMenu.h"

#include "editor/Main.h"
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
};

}  // namespace

PopupMenu::PopupMenu(Mirrors& mirrors, QWidget* parent) : QMenu(parent) {
    setObjectName("Popup");
    for (const Entry& entry : entries) {
        QAction* action = addAction(entry.caption);
        action->setObjectName(controlName(entry.control));
        action->setCheckable(entry.control == Control::LockZoom);
        connect(action, &QAction::triggered, this, [&mirrors, control = entry.control] {
            Main.menuClicked(control);
            mirrors.show(control);
        });
        mirrors.add(entry.control, [action](const ControlState& state) {
            action->setEnabled(state.enabled);
            action->setChecked(state.checked);
        });
    }
}

}  // namespace velna
