#pragma once

#include <QPointer>
#include <QString>
#include <memory>

#include "shell/DialogFolders.h"

class QFileDialog;
class QWidget;

namespace velna {

class ManagerForm;
struct Preferences;
struct PrintCommand;
class QtPrinterSurface;
class SaveDialog;
struct Startup;

/// The dialogs of the program, each over the main window.
class QtDialogs : public Dialogs {
public:
    /// `startup` knows the size of the forms' text.
    QtDialogs(QWidget& owner, Preferences& preferences, PrintCommand& print,
              const Startup& startup);
    ~QtDialogs() override;

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

    /// The open dialog that starts in the folder of one purpose.
    FileAnswer openFile(const std::string& filter, FilePurpose purpose);
    /// The rows of the manager have changed: it shows them where it is open.
    void showFuselageRows();

private:
    /// Asks by `dialog`, which is also `saving` where a name to save under is wanted.
    FileAnswer ask(QFileDialog& dialog, SaveDialog* saving, const std::string& filter,
                   FilePurpose purpose);

    QWidget& owner_;
    Preferences& preferences_;
    PrintCommand& print_;
    const Startup& startup_;
    DialogFolders folders_;
    QPointer<ManagerForm> manager_;
    std::unique_ptr<QtPrinterSurface> printer_;
};

}  // namespace velna
