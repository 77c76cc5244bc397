#include <gtest/gtest.h>

#include "shell/qt/EventArguments.h"

namespace velna {
namespace {

std::int16_t shiftOf(QEvent::Type type, int key, Qt::KeyboardModifiers reported) {
    const QKeyEvent event(type, key, reported);
    return EventArguments::shift(event);
}

std::int16_t codeOf(int key, quint32 place = 0) {
    return EventArguments::keyCode({QEvent::KeyPress, key, Qt::NoModifier, place, 0, 0});
}

TEST(EventArguments, ButtonsAreLeftRightAndAllOthers) {
    EXPECT_EQ(EventArguments::button(Qt::LeftButton), 1);
    EXPECT_EQ(EventArguments::button(Qt::RightButton), 2);
    EXPECT_EQ(EventArguments::button(Qt::MiddleButton), 4);
    EXPECT_EQ(EventArguments::button(Qt::BackButton), 4);
}

TEST(EventArguments, HeldButtonsAddUp) {
    EXPECT_EQ(EventArguments::buttons(Qt::NoButton), 0);
    EXPECT_EQ(EventArguments::buttons(Qt::LeftButton | Qt::RightButton), 3);
    EXPECT_EQ(EventArguments::buttons(Qt::LeftButton | Qt::MiddleButton | Qt::BackButton), 5);
}

TEST(EventArguments, ModifiersAddUp) {
    EXPECT_EQ(EventArguments::shift(Qt::NoModifier), 0);
    EXPECT_EQ(EventArguments::shift(Qt::ShiftModifier | Qt::ControlModifier), 3);
    EXPECT_EQ(EventArguments::shift(Qt::AltModifier), 4);
    EXPECT_EQ(EventArguments::shift(Qt::KeypadModifier | Qt::MetaModifier), 0);
}

TEST(EventArguments, AModifiersOwnKeyCountsInItsPressWhateverThePlatformReports) {
    EXPECT_EQ(shiftOf(QEvent::KeyPress, Qt::Key_Shift, Qt::NoModifier), 1);
    EXPECT_EQ(shiftOf(QEvent::KeyPress, Qt::Key_Shift, Qt::ShiftModifier), 1);
    EXPECT_EQ(shiftOf(QEvent::KeyPress, Qt::Key_Control, Qt::NoModifier), 2);
    EXPECT_EQ(shiftOf(QEvent::KeyPress, Qt::Key_Alt, Qt::ControlModifier), 6);
}

TEST(EventArguments, AModifiersOwnKeyNoLongerCountsInItsRelease) {
    EXPECT_EQ(shiftOf(QEvent::KeyRelease, Qt::Key_Shift, Qt::ShiftModifier), 0);
    EXPECT_EQ(shiftOf(QEvent::KeyRelease, Qt::Key_Alt, Qt::AltModifier | Qt::ShiftModifier), 1);
}

TEST(EventArguments, LettersAreTheirCapitalsAndModifiersTheClassicCodes) {
    EXPECT_EQ(codeOf(Qt::Key_Z), 'Z');
    EXPECT_EQ(codeOf(Qt::Key_Shift), 16);
    EXPECT_EQ(codeOf(Qt::Key_Control), 17);
    EXPECT_EQ(codeOf(Qt::Key_Alt), 18);
    EXPECT_EQ(codeOf(Qt::Key_Escape), 0);
    EXPECT_EQ(codeOf(Qt::Key_F1), 0);
}

TEST(EventArguments, LettersOfOtherAlphabetsCountByTheirPlace) {
    constexpr int cyrillicYa = 0x042F, greekOmega = 0x03A9;
    constexpr quint32 z = 52, v = 55, o = 32, digit = 10;
    EXPECT_EQ(codeOf(cyrillicYa, z), 'Z');
    EXPECT_EQ(codeOf(greekOmega, v), 'V');
    EXPECT_EQ(codeOf(cyrillicYa, o), 'O');
    EXPECT_EQ(codeOf(cyrillicYa, digit), 0);
    EXPECT_EQ(codeOf(Qt::Key_A, z), 'A');
    EXPECT_EQ(codeOf(Qt::Key_Escape, z), 0);
}

TEST(EventArguments, AHeldModifierStandsForItsKey) {
    EXPECT_EQ(EventArguments::modifierKey(1), 16);
    EXPECT_EQ(EventArguments::modifierKey(2), 17);
    EXPECT_EQ(EventArguments::modifierKey(4), 18);
}

}  // namespace
}  // namespace velna
