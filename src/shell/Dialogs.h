#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "editor/Window.h"
#include "output/SolidExport.h"

namespace velna {

class PrinterSurface;
struct RibWishes;

/// What a dialog remembers its folder by.
enum class FilePurpose { Project, Airfoil, Texture, Export, Background };

/// The answer of a file dialog. A cancel has an empty `file`, and still tells the chosen filter.
struct FileAnswer {
    std::string file;     ///< full path
    int filterIndex = 1;  ///< 1-based, as the user left it
};

/// What is to become of work that was not saved when the program ended.
enum class LeftWorkAnswer { Restore, Discard, Later };

/// A NACA section as it is asked for.
struct NacaAnswer {
    std::string number = "2412";
    int points = 61;
    bool closed = true;       ///< the trailing edge
    bool everyPanel = false;  ///< on all wing panels, not on the current one alone
};

/// The common dialogs of the desktop. `filter` is a list "caption|patterns|caption|patterns".
class Dialogs {
public:
    virtual ~Dialogs() = default;

    virtual FileAnswer openFile(const std::string& filter) = 0;
    /// Appends the chosen kind's extension to a name that ends in none of the kinds'; asks before
    /// overwriting.
    virtual FileAnswer saveFile(const std::string& filter) = 0;
    /// What is wished of a file of solids; nothing when cancelled.
    virtual std::optional<SolidOptions> askSolidOptions(const SolidOptions& preset) = 0;
    /// Nothing when cancelled. A colour is a 24-bit value with red in the low byte.
    virtual std::optional<std::uint32_t> pickColour(std::uint32_t preset) = 0;
    virtual bool askYesNo(const std::string& text, BoxIcon icon, bool defaultYes) = 0;
    /// The question about work that was left behind: Restore, which the Enter key takes, Discard,
    /// and Keep for later, which is also the answer of Escape and of the window's close button.
    virtual LeftWorkAnswer askLeftWork(const std::string& text) = 0;
    /// A message with an OK button; false when it was dismissed with Escape.
    virtual bool message(const std::string& title, const std::string& text, BoxIcon icon) = 0;
    virtual std::optional<std::string> askText(const std::string& prompt, const std::string& title,
                                               const std::string& preset) = 0;
    /// A NACA section that can be made; nothing when cancelled.
    virtual std::optional<NacaAnswer> askNaca(const NacaAnswer& preset) = 0;
    /// The system's printer dialog for the named jobs; with files as the target it asks once before
    /// replacing any. Null when cancelled; the printer is valid until the next call.
    virtual PrinterSurface* askPrinter(const std::vector<std::string>& jobs) = 0;
    /// The question what ribs and sections to be cut shall be like, with lengths in `units`. False,
    /// with `wishes` as they were, when cancelled.
    virtual bool askRibWishes(RibWishes& wishes, int units) = 0;
    /// The modal forms. Each works on its own record and returns when it closes.
    virtual void showPreferences() = 0;
    virtual void showManager() = 0;
    virtual void showPrintSelect() = 0;
};

}  // namespace velna
