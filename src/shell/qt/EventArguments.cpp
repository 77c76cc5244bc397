#include "shell/qt/EventArguments.h"

#include "editor/Main.h"

namespace velna::EventArguments {
namespace {

std::int16_t modifierBit(int key) {
    switch (key) {
        case Qt::Key_Shift:
            return ShiftState::shift;
        case Qt::Key_Control:
            return ShiftState::ctrl;
        case Qt::Key_Alt:
            return ShiftState::alt;
        default:
            return 0;
    }
}

}  // namespace

std::int16_t button(Qt::MouseButton button) {
    if (button == Qt::LeftButton) return 1;
    return button == Qt::RightButton ? 2 : 4;
}

std::int16_t buttons(Qt::MouseButtons buttons) {
    int mask = 0;
    if (buttons & Qt::LeftButton) mask |= 1;
    if (buttons & Qt::RightButton) mask |= 2;
    if (buttons & ~(Qt::LeftButton | Qt::RightButton)) mask |= 4;
    return static_cast<std::int16_t>(mask);
}

std::int16_t shift(Qt::KeyboardModifiers modifiers) {
    int mask = 0;
    if (modifiers & Qt::ShiftModifier) mask |= ShiftState::shift;
    if (modifiers & Qt::ControlModifier) mask |= ShiftState::ctrl;
    if (modifiers & Qt::AltModifier) mask |= ShiftState::alt;
    return static_cast<std::int16_t>(mask);
}

std::int16_t shift(const QKeyEvent& event) {
    const int held = shift(event.QInputEvent::modifiers());
    const int own = modifierBit(event.key());
    return static_cast<std::int16_t>(event.type() == QEvent::KeyPress ? held | own : held & ~own);
}

std::int16_t keyCode(int key) {
    if ((key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Qt::Key_0 && key <= Qt::Key_9))
        return static_cast<std::int16_t>(key);
    switch (key) {
        case Qt::Key_Shift:
            return shiftKey;
        case Qt::Key_Control:
            return ctrlKey;
        case Qt::Key_Alt:
            return altKey;
        default:
            return 0;
    }
}

bool isModifier(std::int16_t keyCode) {
    return keyCode == shiftKey || keyCode == ctrlKey || keyCode == altKey;
}

std::int16_t modifierKey(std::int16_t shift) {
    if (shift & ShiftState::shift) return shiftKey;
    return shift & ShiftState::ctrl ? ctrlKey : altKey;
}

}  // namespace velna::EventArguments
