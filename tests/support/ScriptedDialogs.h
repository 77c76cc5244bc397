#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "output/RibWishes.h"
#include "shell/Dialogs.h"

namespace velna::test {

/// Dialogs that answer from a script and keep what they were asked. A question that the script does
/// not expect fails the test.
class ScriptedDialogs : public Dialogs {
public:
    struct Asked {
        std::string kind;  ///< "open", "save", "solids", "colour", "yesno", "leftwork", "message",
                           ///< "text", "naca", "printer", a form's name
        std::string text;  ///< filter, question, prompt
        std::string title;
        BoxIcon icon = BoxIcon::Information;
        bool defaultYes = false;
        std::uint32_t colour = 0;
    };

    std::vector<Asked> asked;

    // the script, used from the front
    std::deque<FileAnswer> files;
    std::deque<std::optional<SolidOptions>> solidOptions;
    std::deque<std::optional<std::uint32_t>> colours;
    std::deque<bool> yesNo;
    std::deque<LeftWorkAnswer> leftWork;
    std::deque<std::optional<std::string>> texts;
    std::deque<PrinterSurface*> printers;
    std::deque<std::optional<NacaAnswer>> nacas;
    /// What the user does in a form while it is open.
    std::function<void()> inPreferences, inManager, inPrintSelect, inMessage;
    /// The answers about ribs: what is done to the wishes, and whether they are taken.
    std::deque<std::function<bool(RibWishes&)>> ribWishes;
    /// What a message box returns; false stands for Escape.
    std::deque<bool> dismissals;

    FileAnswer openFile(const std::string& filter) override;
    FileAnswer saveFile(const std::string& filter) override;
    std::optional<SolidOptions> askSolidOptions(const SolidOptions& preset) override;
    std::optional<std::uint32_t> pickColour(std::uint32_t preset) override;
    bool askYesNo(const std::string& text, BoxIcon icon, bool defaultYes) override;
    LeftWorkAnswer askLeftWork(const std::string& text) override;
    bool message(const std::string& title, const std::string& text, BoxIcon icon) override;
    std::optional<std::string> askText(const std::string& prompt, const std::string& title,
                                       const std::string& preset) override;
    std::optional<NacaAnswer> askNaca(const NacaAnswer& preset) override;
    PrinterSurface* askPrinter(const std::vector<std::string>& jobs) override;
    bool askRibWishes(RibWishes& wishes, int units) override;
    void showPreferences() override;
    void showManager() override;
    void showPrintSelect() override;

    /// The kinds asked so far, in order, joined by blanks.
    std::string story() const;
};

}  // namespace velna::test
