#pragma once

#include <QColor>

namespace velna {

/// How well two opaque colours stand out from each other, from 1 (not at all) to 21 (black on
/// white), as the guidelines for readable pages reckon it.
double contrast(const QColor& a, const QColor& b);

/// `ink` as it looks on `ground`, brought nearer to the colour of `letters` there until it can be
/// read: desktops that set a dark palette leave some inks at what suits white paper.
QColor legible(const QColor& ink, const QColor& ground, const QColor& letters);

/// A warm tint over the ground that letters stand on, light or dark: of a field whose text is not
/// taken.
QColor tinted(const QColor& ground);

}  // namespace velna
