#pragma once

#include <string>
#include <string_view>

#include "common/Outcome.h"
#include "editor/Main.h"
#include "output/Exports.h"
#include "output/SolidExport.h"
#include "preview/PictureCopies.h"
#include "preview/Rendering.h"
#include "shell/AirfoilCommands.h"
#include "shell/OpenedKind.h"
#include "shell/Ports.h"
#include "shell/Preferences.h"
#include "shell/RecentFiles.h"
#include "shell/Recovery.h"

namespace velna {

/// The commands New, Open and Save.
struct FileCommands {
    MainForm& main;
    Solids& solids;
    Rendering& rendering;
    Preferences& preferences;
    PictureStore& pictures;
    Recovery& recovery;
    RecentFiles& recent;
    AirfoilCommands& airfoils;
    const ShellPorts& ports;
    SolidOptions solidOptions = {};  ///< as they were last wished

    /// Resets to the default aircraft, after a question.
    void newProject();

    /// Opens a project, an airfoil for the current wing, or a picture for the open tab's part; a
    /// cancel with the picture filter takes that picture away.
    void open();

    /// Opens a file that was named from outside, on the command line, in the list of recent files
    /// or by a drop: a project, an airfoil or a picture, as Open does. What cannot be opened is
    /// told in one message, and nothing changes.
    void openFile(const std::string& file);

    /// Opens what was dropped on the window, a list of addresses: one file as `openFile`. Several,
    /// or what is no file of this computer, are told of in one message, and nothing changes.
    void openDropped(std::string_view uriList);

    /// Saves the project, or exports the model or the view on screen. Each save asks for a name.
    void save();

    /// Saves the project under the name of the last save or open; asks for one, as `save` does,
    /// where there is none.
    void saveAgain();

    /// Brings work back that was left behind: it is unsaved, and has the name it had.
    void restore(UnsavedWork work);

private:
    void resetModel();
    void tellNotOpened(const std::string& what, const std::string& reason);
    bool openAs(OpenedKind kind, const std::string& file);
    void showOpened();
    bool openProject(const std::string& file);
    Outcome readInPlace(const std::string& file, bool& whole);
    void openWingAirfoil(const std::string& file);
    void openTexture(const std::string& file);
    void saveProjectAs(const std::string& file);
    Outcome exportModel(const std::string& file, VrmlSpelling spelling);
    Outcome exportSolids(const std::string& file, SolidFormat format);
    Outcome exportAs(int kind, const std::string& file);
    Outcome exportView(const std::string& file);
    void showModel();
};

}  // namespace velna
