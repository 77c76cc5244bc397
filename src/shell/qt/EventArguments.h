#pragma once

#include <QKeyEvent>
#include <QMouseEvent>
#include <cstdint>

namespace velna {

/// The toolkit's events as the plain arguments that the program's procedures take.
namespace EventArguments {

inline constexpr std::int16_t shiftKey = 16;
inline constexpr std::int16_t ctrlKey = 17;
inline constexpr std::int16_t altKey = 18;

/// 1 left, 2 right, 4 any other.
std::int16_t button(Qt::MouseButton button);
/// All buttons held, added up.
std::int16_t buttons(Qt::MouseButtons buttons);
/// 1 Shift, 2 Ctrl, 4 Alt, added up.
std::int16_t shift(Qt::KeyboardModifiers modifiers);
/// The modifiers as they are after the event: a modifier's own key counts in its press and no
/// longer in its release, whatever the platform reports.
std::int16_t shift(const QKeyEvent& event);
/// Letters and digits by their capital, the modifiers by the classic codes, else 0. A letter of
/// another alphabet counts as the Latin one in its place on the keyboard.
std::int16_t keyCode(const QKeyEvent& event);
/// Whether a key press puts letters, digits or signs into a text.
bool types(const QKeyEvent& event);
/// Whether it would in the toolkit's own boxes, but has Alt with it: that is a mnemonic or a
/// command, and no text.
bool typesWithAlt(const QKeyEvent& event);
/// Whether a code is that of Shift, Ctrl or Alt.
bool isModifier(std::int16_t keyCode);
/// The code of the key that holds the lowest bit of a modifier mask.
std::int16_t modifierKey(std::int16_t shift);

}  // namespace EventArguments
}  // namespace velna
