// Any bytes as the two files of settings: what is recalled of them is within its bounds, and what
// is remembered is recalled alike.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <fstream>
#include <string>

#include "FuzzModel.h"
#include "editor/Main.h"
#include "output/Plans.h"
#include "output/RibTexts.h"
#include "shell/CuttingSettings.h"
#include "shell/DialogFolders.h"
#include "shell/Preferences.h"
#include "shell/PrintAdditions.h"
#include "shell/RecentFiles.h"
#include "shell/Settings.h"
#include "support/FakeDesktop.h"

namespace velna::fuzz {
namespace {

void putFile(const std::string& title, const std::string& bytes) {
    std::ofstream(scratchFolder() + title, std::ios::binary) << bytes;
}

/// Texts that the settings have read, or that somebody has typed, come back as they were.
void expectKept(Settings& settings, const std::string& key, const std::vector<std::string>& texts) {
    if (!settings.store(key, texts).isDone()) broken("the settings cannot be written");
    Settings again;
    again.load(scratchFolder());
    if (again.list(key) != texts) broken("the settings hold another text");
}

/// At the ends of all numbers a text of fifteen digits in inches may be none in millimetres.
bool isUsual(double length) {
    return length == 0 || (1e-300 < length && length < 1e300);
}

void expectSlots(const std::string& text) {
    constexpr double inch = 25.4;
    std::vector<SparSlot> spars;
    if (!readSlots(text, inch, spars).isDone()) return;
    for (const SparSlot& slot : spars) {
        if (!std::isfinite(slot.width) || !std::isfinite(slot.depth)) broken("a typed slot");
        if (!isUsual(std::abs(slot.width)) || !isUsual(std::abs(slot.depth))) return;
    }
    std::vector<SparSlot> again;
    if (!readSlots(slotsText(spars, inch), inch, again).isDone() || again.size() != spars.size())
        broken("a slot that cannot be typed again");
}

/// What the form shows of the wishes is taken when it is left as it is.
void expectForm(const RibWishes& wishes) {
    bool usual = isUsual(wishes.stations.spacing) && isUsual(wishes.skin);
    for (const SparSlot& slot : wishes.spars)
        usual = usual && isUsual(std::abs(slot.width)) && isUsual(std::abs(slot.depth));
    if (!usual) return;
    for (const double unit : {1.0, 25.4}) {
        const RibTexts texts = ribTexts(wishes, unit);
        for (const std::string* text : {&texts.spacing, &texts.skin, &texts.spars})
            if (!unfiniteWord(*text).empty()) broken("the form shows " + *text);
        RibWishes read;
        expectWord("a form", readRibTexts(texts, unit, read));
    }
}

void expectWishes(Settings& settings) {
    const RibWishes wishes = recallRibWishes(settings);
    const StationWish& stations = wishes.stations;
    if (stations.count < 2 || stations.count > mostStations) broken("a count of stations");
    if (!std::isfinite(stations.spacing) || stations.spacing < 0) broken("a spacing");
    if (!std::isfinite(wishes.skin) || wishes.skin < 0) broken("a skin");
    for (const SparSlot& slot : wishes.spars)
        for (const double number : {slot.percent, slot.width, slot.depth})
            if (!std::isfinite(number)) broken("a slot");
    expectForm(wishes);
    keepRibWishes(settings, wishes);
    Settings again;
    again.load(scratchFolder());
    const auto texts = [](const RibWishes& some) {
        std::string all;
        for (const auto& [name, text] : ribWishTexts(some)) all += name + ' ' + text + '\n';
        return all;
    };
    if (texts(recallRibWishes(again)) != texts(wishes)) broken("other wishes are recalled");
}

void expectCorrection(Settings& settings) {
    const PrinterCorrection correction = recallCorrection(settings);
    for (const double factor : {correction.x, correction.y})
        if (!(factor >= leastCorrection && factor <= largestCorrection)) broken("a correction");
    keepCorrection(settings, correction);
}

void workSettings(const std::string& bytes) {
    putFile("settings.txt", bytes);
    Settings settings;
    settings.load(scratchFolder());
    expectWishes(settings);
    expectSlots(settings.text("ribs"));
    expectSlots(bytes);
    expectCorrection(settings);
    PrintSelectRecord print;
    recallPrintAdditions(settings, print);
    keepPrintAdditions(settings, print);
    RecentFiles recent{settings};
    recent.add(settings.text(SettingKey::recent));
    if (recent.list().size() > RecentFiles::most) broken("too many recent files");
    static_cast<void>(DialogFolders{settings}.of(FilePurpose::Project));
    expectKept(settings, "any", {bytes.substr(0, 200), "", bytes.substr(bytes.size() / 2, 100)});
    takeScratchFiles();
}

void workPreferences(const std::string& bytes) {
    test::FakeDesktop desktop;
    desktop.program = desktop.configuration = scratchFolder();
    resetModel();
    MainForm form(project);
    Settings settings;
    const ShellPorts ports{&desktop};
    Preferences preferences{form, settings, ports};
    putFile("prefs.txt", bytes);
    preferences.readAll();
    if (form.Prefs.InchesOption && form.Prefs.MillimetersOption) broken("two units at once");
    const PrefsRecord read = form.Prefs;
    preferences.writeAll();
    preferences.readAll();
    if (read.InchesOption != form.Prefs.InchesOption ||
        read.MillimetersOption != form.Prefs.MillimetersOption)
        broken("another unit is recalled");
    takeScratchFiles();
}

}  // namespace
}  // namespace velna::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(data, data + size);
    velna::fuzz::workSettings(bytes);
    velna::fuzz::workPreferences(bytes);
    return 0;
}
