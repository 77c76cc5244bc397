#pragma once

#include <string>

#include "common/Outcome.h"
#include "editor/Main.h"
#include "preview/PictureCopies.h"
#include "preview/Rendering.h"
#include "shell/Ports.h"
#include "shell/Preferences.h"

namespace velna {

/// The commands New, Open and Save.
struct FileCommands {
    MainForm& main;
    Solids& solids;
    Rendering& rendering;
    Preferences& preferences;
    PictureStore& pictures;
    const ShellPorts& ports;

    /// Resets to the default aircraft, after a question.
    void newProject();

    /// Opens a project, an airfoil for the current wing, or a picture for the open tab's part; a
    /// cancel with the picture filter takes that picture away.
    void open();

    /// Saves the project, or exports the model or the view on screen. Each save asks for a name.
    void save();

private:
    void resetModel();
    bool openProject(const std::string& file);
    void openWingAirfoil(const std::string& file);
    void openTexture(const std::string& file);
    void saveProjectAs(const std::string& file);
    Outcome exportModel(const std::string& file);
    Outcome writeDrawing(const std::string& file) const;
    Outcome exportView(const std::string& file);
    void showModel();
};

}  // namespace velna
