#pragma once

#include "editor/Main.h"
#include "preview/Flying.h"
#include "preview/Rendering.h"
#include "shell/Helper.h"

namespace velna {

/// The commands Undo and Redo. While something is dragged, during the demonstration and in flight
/// they do nothing.
struct HistoryCommands {
    MainForm& main;
    Rendering& rendering;
    const Helper& helper;
    const Flying& flying;

    void undo() const { step(&MainForm::undo); }
    void redo() const { step(&MainForm::redo); }

private:
    void step(bool (MainForm::*direction)()) const;
};

}  // namespace velna
