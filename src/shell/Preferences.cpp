#include "shell/Preferences.h"

#include <cstddef>
#include <filesystem>

#include "common/Complaint.h"
#include "common/ReplacedFile.h"
#include "common/ValueReader.h"
#include "shell/ProgramFolder.h"

namespace velna {

namespace {

constexpr const char* fileTitle = "prefs.txt";
/// Beside the user's own settings: the folder of the program that had no other place for them.
constexpr const char* ownerTitle = "prefs-owner.txt";
constexpr std::size_t mostSettings = 65536;

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

/// What cannot even be asked after may be there.
bool mayStand(const std::string& file) {
    std::error_code ignored;
    return std::filesystem::status(file, ignored).type() != std::filesystem::file_type::not_found;
}

const char* record(bool on) {
    return on ? "#TRUE#" : "#FALSE#";
}

}  // namespace

std::string Preferences::sharedFile() const {
    return ports.desktop->programFolder() + fileTitle;
}
std::string Preferences::ownFile() const {
    return ports.desktop->configurationFolder() + fileTitle;
}

std::string Preferences::ownerFile() const {
    return ports.desktop->configurationFolder() + ownerTitle;
}

/// Whether the last quit of this program could only write to the user's folder.
bool Preferences::wroteToOwn() const {
    std::string bytes;
    if (!read([&] { bytes = settingsBytes(ownerFile()); })) return false;
    return bytes == ports.desktop->programFolder();
}

Outcome Preferences::writeTo(const std::string& path) const {
    ReplacedFile file(path);
    file.line(demonstrationDue ? "\"DoIt\"" : "\"Done\"");
    file.line(record(main.Prefs.InchesOption));
    file.line(record(main.Prefs.MillimetersOption));
    // Beside settings in the user's folder stands whose they are.
    if (path == ownFile()) file.beside(ownerFile(), ports.desktop->programFolder());
    return file.commit() ? Outcome() : Outcome::failed(file.error());
}

// The file that the last quit has written: beside the program wherever that can be.
std::string Preferences::fileToRead() const {
    const std::string own = ownFile();
    if (!mayStand(own)) return sharedFile();
    const bool shared = keepsFiles(ports.desktop->programFolder()) && !wroteToOwn();
    return shared ? sharedFile() : own;
}

std::string Preferences::settingsBytes(const std::string& file) {
    return readFileStart(file, mostSettings);
}

void Preferences::readAll() {
    const std::string toRead = fileToRead();
    std::string bytes;
    try {
        bytes = settingsBytes(toRead);
    } catch (const ReadFailure& failure) {
        known = !mayStand(toRead);
        if (!known) complain("the settings stay as they are", failure.what());
        return;
    }
    known = true;
    ValueReader file(bytes);
    bool inchesOn = main.Prefs.InchesOption;
    bool millimetresOn = main.Prefs.MillimetersOption;
    read([&] {
        firstUseState = file.text();
        inchesOn = file.boolean();
        if (inchesOn) millimetresOn = false;
        millimetresOn = file.boolean();
        if (millimetresOn) inchesOn = false;
    });
    main.Prefs.InchesOption = inchesOn;
    main.Prefs.MillimetersOption = millimetresOn;
}

void Preferences::writeAll() const {
    std::error_code ignored;
    const bool installed = isInstalled(ports.desktop->programFolder());
    if (!installed && writeTo(sharedFile()).isDone()) {
        if (wroteToOwn()) std::filesystem::remove(ownerFile(), ignored);
        return;
    }
    std::filesystem::create_directories(ports.desktop->configurationFolder(), ignored);
    const Outcome own = writeTo(ownFile());
    if (own.hasFailed()) complain("the settings could not be saved", own.reason());
}

void Preferences::readSettings() {
    settings.load(ports.desktop->configurationFolder());
    main.Prefs.ctrlZUndoes = settings.flag(SettingKey::ctrlZ);
}

void Preferences::setCtrlZ(bool on) {
    if (main.Prefs.ctrlZUndoes == on) return;
    main.Prefs.ctrlZUndoes = on;
    const Outcome stored = settings.storeFlag(SettingKey::ctrlZ, on);
    if (stored.hasFailed()) complain("the settings could not be saved", stored.reason());
}

void Preferences::formLoad() {
    main.Prefs.selectUnit(main.project.units);
    main.Prefs.modelScaleFactor = 1.0;
    main.Prefs.ScaleText = "100";
}

std::string Preferences::spanText() const {
    const Project& project = main.project;
    const SymWingSections& wing = project.Wings(project.currentWing);
    return main.Formatter((wing.span + wing.shift) * 2 * main.Prefs.modelScaleFactor);
}

void Preferences::CloseCommand_Click() {
    main.applyPreferences();
}

void Preferences::convertDefault() {
    const bool saved = main.savedProject;
    CloseCommand_Click();
    main.refreshPanels();
    main.savedProject = saved;
}

void Preferences::CancelCommand_Click() {
    // A project is saved under the option's unit: an option that was clicked and then cancelled
    // would give it the wrong one.
    formLoad();
}

}  // namespace velna
