#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "common/Point.h"
#include "editor/Controls.h"
#include "preview/Flying.h"
#include "shell/FileCommands.h"
#include "shell/HistoryCommands.h"
#include "shell/PrintCommand.h"
#include "shell/Quit.h"

namespace velna {

namespace Toolbar {

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
    Undo,
    Redo,
    Figures,
    // without a button of their own
    Exit,
    Centering,
    SaveAgain,
    NacaSection,
    AirfoilOnAll
};

/// A step of the history tells in its tip what it would do.
enum class ButtonKind { Push, View, Toggle, Step };

/// A button of the toolbar `Bar`: its key, name, tool tip and role, and where its state is kept.
struct Button {
    Key key;
    const char* name;
    const char* tip;
    ButtonKind kind;
    std::optional<Control> state;
};

/// The buttons in toolbar order.
std::span<const Button> buttons();

/// A colour record as the colour dialog's 24-bit value (red in the low byte), and back.
std::uint32_t dialogColour(const Point3D& color);
Point3D colourRecord(std::uint32_t value);

}  // namespace Toolbar

/// What the toolbar's keys do.
struct ToolbarCommands {
    MainForm& main;
    Solids& solids;
    Rendering& rendering;
    Flying& flying;
    FileCommands& files;
    PrintCommand& print;
    HistoryCommands& history;
    Preferences& preferences;
    Quit& quit;
    Recovery& recovery;
    const ShellPorts& ports;

    /// Runs a key's workflow. During a flight every key but `FlyingPreview` does nothing.
    void click(Toolbar::Key key);

    /// `FileCommands::openFile` and `openDropped`, as a command of the toolbar: they too do nothing
    /// during a flight, nor in the demonstration or a drag.
    void openFile(const std::string& file);
    void openDropped(const std::string& uriList);
    /// Whether a file can be taken from outside at this moment.
    bool takesFiles() const;

    /// The hidden prompt for the picture's frustum: a number above 0 makes the context anew.
    void frustumPrompt();

    /// What the colour dialog was left with.
    std::uint32_t dialogValue = 0;

private:
    template <class Work>
    void perform(Work work);
};

}  // namespace velna
