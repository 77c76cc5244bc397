#include "shell/qt/CommandKeys.h"

namespace velna {
namespace {

struct CommandKey {
    int key;
    Qt::KeyboardModifiers modifiers;
    Toolbar::Key command;
    bool wantsTick;
};

constexpr CommandKey commandKeys[] = {
    {Qt::Key_Backspace, Qt::AltModifier, Toolbar::Key::Undo, false},
    {Qt::Key_Backspace, Qt::AltModifier | Qt::ShiftModifier, Toolbar::Key::Redo, false},
    {Qt::Key_Z, Qt::ControlModifier, Toolbar::Key::Undo, true},
    {Qt::Key_Y, Qt::ControlModifier, Toolbar::Key::Redo, true},
    {Qt::Key_S, Qt::ControlModifier, Toolbar::Key::SaveAgain, true},
    {Qt::Key_F12, Qt::ShiftModifier, Toolbar::Key::SaveAgain, false},
    {Qt::Key_N, Qt::ControlModifier, Toolbar::Key::New, false},
    {Qt::Key_P, Qt::ControlModifier, Toolbar::Key::Print, false},
    {Qt::Key_Q, Qt::ControlModifier, Toolbar::Key::Close, false},
};

}  // namespace

std::optional<Toolbar::Key> commandOf(const QKeyEvent& event, bool ctrlZ) {
    const Qt::KeyboardModifiers held = event.modifiers() & ~Qt::KeypadModifier;
    for (const CommandKey& row : commandKeys)
        if (row.key == event.key() && row.modifiers == held && (ctrlZ || !row.wantsTick))
            return row.command;
    return std::nullopt;
}

}  // namespace velna
