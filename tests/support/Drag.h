#pragma once

#include <cstdint>

#include "support/EditorInHand.h"

namespace velna::test {

/// A gesture of the pointer on the drawing surface, in pixels, that reads as it is made:
/// `drag(Main).press(120, 80).move(150, 80).release()`.
class Drag {
public:
    explicit Drag(MainForm& form) : form_(form) {}

    /// Comes to the place with no button held, so that what lies there lights.
    Drag& hover(float x, float y) {
        form_.DrawArea_MouseMove(0, 0, x, y);
        return at(x, y);
    }
    Drag& press(float x, float y, std::int16_t button = 1) {
        button_ = button;
        form_.DrawArea_MouseDown(button, 0, x, y);
        return at(x, y);
    }
    Drag& move(float x, float y) {
        form_.DrawArea_MouseMove(button_, 0, x, y);
        return at(x, y);
    }
    Drag& release() {
        form_.DrawArea_MouseUp(button_, 0, x_, y_);
        button_ = 0;
        return *this;
    }
    /// Holds a modifier key, by its key code and bit.
    Drag& key(std::int16_t keyCode, std::int16_t shift) {
        form_.DrawArea_keydown(keyCode, shift);
        return *this;
    }

private:
    Drag& at(float x, float y) {
        x_ = x;
        y_ = y;
        return *this;
    }

    MainForm& form_;
    std::int16_t button_ = 0;
    float x_ = 0;
    float y_ = 0;
};

inline Drag drag(MainForm& form) {
    return Drag(form);
}

}  // namespace velna::test
