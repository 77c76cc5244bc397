#include "shell/qt/EventArguments.h"

#include <string_view>

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

/// A row of the Latin keyboard, from the key with its first letter on (X11 and Wayland count keys
/// alike).
struct KeyRow {
    quint32 firstKey;
    std::string_view letters;
};
constexpr KeyRow latinKeyboard[] = {{24, "QWERTYUIOP"}, {38, "ASDFGHJKL"}, {52, "ZXCVBNM"}};

std::int16_t letterAt(quint32 key) {
    for (const KeyRow& row : latinKeyboard) {
        if (key >= row.firstKey && key - row.firstKey < row.letters.size())
            return row.letters[key - row.firstKey];
    }
    return 0;
}

/// Cyrillic, Greek and the like, whose letters lie where the Latin ones are.
bool isOtherLetter(int key) {
    return key > Qt::Key_ydiaeresis && key < Qt::Key_Escape &&
           QChar::isLetter(static_cast<char32_t>(key));
}

bool hasLetters(const QKeyEvent& event) {
    return !event.text().isEmpty() && event.text().front().isPrint();
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

std::int16_t keyCode(const QKeyEvent& event) {
    const int key = event.key();
    if (isOtherLetter(key)) return letterAt(event.nativeScanCode());
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

bool types(const QKeyEvent& event) {
    return hasLetters(event) && !(event.modifiers() & Qt::AltModifier);
}

bool typesWithAlt(const QKeyEvent& event) {
    return hasLetters(event) && (event.modifiers() & Qt::AltModifier);
}

bool isModifier(std::int16_t keyCode) {
    return keyCode == shiftKey || keyCode == ctrlKey || keyCode == altKey;
}

std::int16_t modifierKey(std::int16_t shift) {
    if (shift & ShiftState::shift) return shiftKey;
    return shift & ShiftState::ctrl ? ctrlKey : altKey;
}

}  // namespace velna::EventArguments
