#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "common/Point.h"
#include "editor/Controls.h"

namespace velna::Toolbar {

enum class Key {
    New,
    Open,
    Save,
    Print,
    VTop,
    Front,
    Side,
    HTop,
    Palette,
    Render,
    Prefs,
    Manager,
    FlyingPreview,
    Help,
    // without a button of their own
    Exit,
    Centering
};

enum class ButtonKind { Push, View, Toggle };

/// A button of the toolbar `Bar`: its key, name, tool tip and role, and where its state is kept.
struct Button {
    Key key;
    const char* name;
    const char* tip;
    ButtonKind kind;
    std::optional<Control> state;
};

/// The buttons in toolbar order.
extern const std::array<Button, 14> buttons;

/// Runs a key's workflow. During a flight every key but `FlyingPreview` does nothing.
void click(Key key);

/// The hidden prompt for the picture's frustum: a number above 0 makes the context anew.
void frustumPrompt();

/// A colour record as the colour dialog's 24-bit value (red in the low byte), and back.
std::uint32_t dialogColour(const Point3D& color);
Point3D colourRecord(std::uint32_t value);

}  // namespace velna::Toolbar
