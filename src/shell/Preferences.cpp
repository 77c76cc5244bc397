#include "shell/Preferences.h"

#include <cstddef>
#include <cstdio>
#include <filesystem>

#include "common/ReplacedFile.h"
#include "common/ValueReader.h"
#include "editor/Main.h"
#include "model/Plane.h"
#include "model/Prefs.h"
#include "preview/Rendering.h"
#include "shell/Ports.h"

namespace velna::Preferences {

namespace {

constexpr const char* fileTitle = "prefs.txt";
/// Beside the user's own settings: the folder of the program that had no other place for them.
constexpr const char* ownerTitle = "prefs-owner.txt";
constexpr std::size_t mostSettings = 65536;

std::string sharedFile() {
    return Shell.desktop->programFolder() + fileTitle;
}
std::string ownFile() {
    return Shell.desktop->configurationFolder() + fileTitle;
}

std::string ownerFile() {
    return Shell.desktop->configurationFolder() + ownerTitle;
}

/// Runs one record's reading; a failure skips it and those behind it, for they have no place of
/// their own.
template <class Statement>
bool read(Statement statement) {
    try {
        statement();
        return true;
    } catch (const ReadFailure&) {
        return false;
    }
}

/// Whether the last quit of this program could only write to the user's folder.
bool wroteToOwn() {
    std::string bytes;
    if (!read([&] { bytes = settingsBytes(ownerFile()); })) return false;
    return bytes == Shell.desktop->programFolder();
}

/// Notes whose settings lie in the user's folder. Without the note the program's folder decides
/// alone, as it does where nothing of this kind ever happened.
void noteOwner() {
    ReplacedFile file(ownerFile());
    file.buffer() = Shell.desktop->programFolder();
    file.commit();
}

const char* record(bool on) {
    return on ? "#TRUE#" : "#FALSE#";
}

/// Returns the reason of a failure, empty for none.
std::string writeTo(const std::string& path) {
    ReplacedFile file(path);
    file.line("\"Done\"");
    file.line(record(Prefs.InchesOption));
    file.line(record(Prefs.MillimetersOption));
    return file.commit() ? std::string() : file.error();
}

}  // namespace

std::string firstUseState;
bool known = false;

// The file that the last quit has written: beside the program wherever that can be.
std::string fileToRead() {
    std::error_code ignored;
    const std::string own = ownFile();
    if (!std::filesystem::exists(own, ignored)) return sharedFile();
    const bool shared = takesFiles(Shell.desktop->programFolder()) && !wroteToOwn();
    return shared ? sharedFile() : own;
}

std::string settingsBytes(const std::string& file) {
    return readFileStart(file, mostSettings);
}

void readAll() {
    known = true;
    std::string bytes;
    if (!read([&] { bytes = settingsBytes(fileToRead()); })) return;
    ValueReader file(bytes);
    bool inchesOn = Prefs.InchesOption;
    bool millimetresOn = Prefs.MillimetersOption;
    read([&] {
        firstUseState = file.text();
        inchesOn = file.boolean();
        if (inchesOn) millimetresOn = false;
        millimetresOn = file.boolean();
        if (millimetresOn) inchesOn = false;
    });
    Prefs.InchesOption = inchesOn;
    Prefs.MillimetersOption = millimetresOn;
}

void writeAll() {
    std::error_code ignored;
    std::string reason = writeTo(sharedFile());
    if (reason.empty()) {
        if (wroteToOwn()) std::filesystem::remove(ownerFile(), ignored);
        return;
    }
    std::filesystem::create_directories(Shell.desktop->configurationFolder(), ignored);
    reason = writeTo(ownFile());
    if (reason.empty()) {
        noteOwner();
    } else {
        std::fprintf(stderr, "velna: the settings could not be saved: %s\n", reason.c_str());
    }
}

void formLoad() {
    Prefs.selectUnit(Prefs.units);
    Prefs.modelScaleFactor = 1.0;
    Prefs.ScaleText = "100";
}

std::string spanText() {
    auto& wing = Wings(currentWing);
    return Main.Formatter((wing.span + wing.shift) * 2 * Prefs.modelScaleFactor);
}

void CloseCommand_Click() {
    Main.closePreferences();
}

void convertDefault() {
    const bool saved = Main.savedProject;
    CloseCommand_Click();
    Main.refreshPanels();
    Main.savedProject = saved;
}

void CancelCommand_Click() {
    // A project is saved under the option's unit: an option that was clicked and then cancelled
    // would give it the wrong one.
    formLoad();
}

}  // namespace velna::Preferences
