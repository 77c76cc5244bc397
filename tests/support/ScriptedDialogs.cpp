#include "support/ScriptedDialogs.h"

#include <gtest/gtest.h>

namespace velna::test {

namespace {

/// The next answer of a script; an empty script fails the test and gives the fallback.
template <class Answer>
Answer next(std::deque<Answer>& script, const char* what, Answer fallback) {
    if (script.empty()) {
        ADD_FAILURE() << "an unscripted question: " << what;
        return fallback;
    }
    Answer answer = script.front();
    script.pop_front();
    return answer;
}

void act(const std::function<void()>& user) {
    if (user) user();
}

}  // namespace

FileAnswer ScriptedDialogs::openFile(const std::string& filter) {
    asked.push_back({"open", filter, {}});
    return next(files, "open dialog", FileAnswer{});
}

FileAnswer ScriptedDialogs::saveFile(const std::string& filter) {
    asked.push_back({"save", filter, {}});
    return next(files, "save dialog", FileAnswer{});
}

std::optional<SolidOptions> ScriptedDialogs::askSolidOptions(const SolidOptions& preset) {
    const std::string ticked = std::string(preset.each ? "each" : "") + (preset.cut ? "cut" : "");
    asked.push_back({"solids", ticked, {}});
    return next(solidOptions, "options of solids", std::optional<SolidOptions>{});
}

std::optional<std::uint32_t> ScriptedDialogs::pickColour(std::uint32_t preset) {
    asked.push_back({"colour", {}, {}, BoxIcon::Information, false, preset});
    return next(colours, "colour dialog", std::optional<std::uint32_t>{});
}

bool ScriptedDialogs::askYesNo(const std::string& text, BoxIcon icon, bool defaultYes) {
    asked.push_back({"yesno", text, {}, icon, defaultYes});
    return next(yesNo, text.c_str(), false);
}

LeftWorkAnswer ScriptedDialogs::askLeftWork(const std::string& text) {
    asked.push_back({"leftwork", text, {}, BoxIcon::Question});
    return next(leftWork, text.c_str(), LeftWorkAnswer::Later);
}

bool ScriptedDialogs::message(const std::string& title, const std::string& text, BoxIcon icon) {
    asked.push_back({"message", text, title, icon});
    act(inMessage);
    if (dismissals.empty()) return true;
    const bool kept = dismissals.front();
    dismissals.pop_front();
    return kept;
}

std::optional<std::string> ScriptedDialogs::askText(const std::string& prompt,
                                                    const std::string& title,
                                                    const std::string& preset) {
    asked.push_back({"text", prompt + "|" + preset, title});
    return next(texts, prompt.c_str(), std::optional<std::string>{});
}

std::optional<NacaAnswer> ScriptedDialogs::askNaca(const NacaAnswer& preset) {
    asked.push_back({"naca", preset.number, {}});
    return next(nacas, "NACA dialog", std::optional<NacaAnswer>{});
}

PrinterSurface* ScriptedDialogs::askPrinter(const std::vector<std::string>& jobs) {
    std::string names;
    for (const auto& job : jobs) names += job + " ";
    asked.push_back({"printer", names, {}});
    return next(printers, "printer dialog", static_cast<PrinterSurface*>(nullptr));
}

bool ScriptedDialogs::askRibWishes(RibWishes& wishes, int units) {
    asked.push_back({"ribs", units == 0 ? "mm" : "in", {}});
    const auto answer = next(ribWishes, "rib wishes", std::function<bool(RibWishes&)>{});
    return answer && answer(wishes);
}

void ScriptedDialogs::showPreferences() {
    asked.push_back({"preferences", {}, {}});
    act(inPreferences);
}

void ScriptedDialogs::showManager() {
    asked.push_back({"manager", {}, {}});
    act(inManager);
}

void ScriptedDialogs::showPrintSelect() {
    asked.push_back({"printselect", {}, {}});
    act(inPrintSelect);
}

std::string ScriptedDialogs::story() const {
    std::string kinds;
    for (const Asked& one : asked) kinds += (kinds.empty() ? "" : " ") + one.kind;
    return kinds;
}

}  // namespace velna::test
