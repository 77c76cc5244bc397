#pragma once

#include <string>

#include "common/Outcome.h"
#include "editor/Main.h"
#include "model/Project.h"
#include "shell/Ports.h"
#include "shell/Settings.h"

namespace velna {

/// The settings file and the form of the preferences; what the form holds is `Main.Prefs`.
struct Preferences {
    MainForm& main;
    Settings& settings;
    const ShellPorts& ports;

    /// What the first record of `prefs.txt` held: "DoIt" asks for the guided demonstration.
    std::string firstUseState{};
    /// The demonstration that was asked for waits for the next start.
    bool demonstrationDue = false;
    /// The settings have been read. A start that fails before, or finds a file that it cannot
    /// read, must not write the defaults over them.
    bool known = false;

    /// The settings file that is read: the one beside the program where that folder keeps files,
    /// else the user's own once it exists. The last quit counts: what it could only write to the
    /// user's folder is read from there, whatever can be written now.
    std::string fileToRead() const;

    /// The bytes of a settings file, its first 64 KB at most: no quit writes a longer one, and what
    /// has grown or was put in its place must not cost the start. Throws ReadFailure when there is
    /// none.
    static std::string settingsBytes(const std::string& file);

    /// Reads `prefs.txt` as far as it goes: a record that fails leaves its option as it was. The
    /// project's unit is not touched. A missing file changes nothing.
    void readAll();

    /// Replaces `prefs.txt`: beside the program where that can be and nothing is installed there,
    /// otherwise in the user's configuration folder. A failure leaves the old file and one line on
    /// standard error.
    void writeAll() const;

    /// Reads what the settings file of the user's own tells.
    void readSettings();

    /// Whether Ctrl+Z, Ctrl+Y and Ctrl+S undo, redo and save again, from now on and at the next
    /// start.
    void setCtrlZ(bool on);

    /// The form opens: the options from the unit in use, the factor 1.
    void formLoad();

    /// The line beside the factor: the current wing's full span at the factor typed, as the panel
    /// shows it.
    std::string spanText() const;

    /// The form's two buttons. Closing it by its window button is Cancel.
    void CloseCommand_Click();
    void CancelCommand_Click();

    /// The default aircraft in inches, where that option is on. It is no change by the user:
    /// `savedProject` stays.
    void convertDefault();

private:
    std::string sharedFile() const;
    std::string ownFile() const;
    std::string ownerFile() const;
    bool wroteToOwn() const;
    Outcome writeTo(const std::string& path) const;
};

}  // namespace velna
