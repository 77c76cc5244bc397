#include "shell/qt/QtDialogs.h"

#include <QAbstractButton>
#include <QColorDialog>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QKeyEvent>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <algorithm>

#include "shell/Ports.h"
#include "shell/Preferences.h"
#include "shell/PrintCommand.h"
#include "shell/Startup.h"
#include "shell/qt/ManagerForm.h"
#include "shell/qt/NacaForm.h"
#include "shell/qt/PrefsForm.h"
#include "shell/qt/PrintSelectForm.h"
#include "shell/qt/QtPrinterSurface.h"
#include "shell/qt/RibForm.h"
#include "shell/qt/SaveDialog.h"
#include "shell/qt/SolidOptionsForm.h"

namespace velna {
namespace {

// A kind of file in a dialog.
struct FileKind {
    QString caption;
    QStringList patterns;
};

QList<FileKind> fileKinds(const std::string& filter) {
    const QStringList parts = QString::fromStdString(filter).split('|', Qt::SkipEmptyParts);
    QList<FileKind> kinds;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QStringList patterns = parts[i + 1].split(';', Qt::SkipEmptyParts);
        for (QString& pattern : patterns) pattern = pattern.trimmed();
        kinds.append({parts[i], patterns});
    }
    // A picture is known by its content: the dialogs offer what the program can read, whatever the
    // caption names.
    for (FileKind& kind : kinds) {
        if (!kind.patterns.contains("*.bmp")) continue;
        for (const char* more : {"*.png", "*.gif", "*.tif", "*.jpeg"})
            if (!kind.patterns.contains(more)) kind.patterns.append(more);
    }
    return kinds;
}

QString extensionOf(const FileKind& kind) {
    return kind.patterns.first().mid(2);
}

QStringList extensionsOf(const std::string& filter) {
    QStringList extensions;
    for (const FileKind& kind : fileKinds(filter)) extensions.append(extensionOf(kind));
    return extensions;
}

// The dialog takes its patterns from the last brackets and shows what stands before them.
QString nameFilter(const FileKind& kind) {
    return QString("%1 (%2)").arg(kind.caption, kind.patterns.join(' '));
}

FilePurpose purposeOf(const FileKind& kind, bool saving) {
    if (kind.patterns.contains("*.vln")) return FilePurpose::Project;
    if (kind.patterns.contains("*.xy") || kind.patterns.contains("*.dat"))
        return FilePurpose::Airfoil;
    return saving ? FilePurpose::Export : FilePurpose::Texture;
}

QMessageBox::Icon sign(BoxIcon icon) {
    switch (icon) {
        case BoxIcon::Question:
            return QMessageBox::Question;
        case BoxIcon::Information:
            return QMessageBox::Information;
        case BoxIcon::Stop:
            return QMessageBox::Critical;
        default:
            return QMessageBox::Warning;
    }
}

// With one button the toolkit takes Escape for that button; here it means "enough of this".
class Message : public QMessageBox {
public:
    using QMessageBox::QMessageBox;

protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_Escape) {
            reject();
        } else {
            QMessageBox::keyPressEvent(event);
        }
    }
};

}  // namespace

QtDialogs::QtDialogs(QWidget& owner, Preferences& preferences, PrintCommand& print,
                     const Startup& startup)
    : owner_(owner),
      preferences_(preferences),
      print_(print),
      startup_(startup),
      folders_{preferences.settings} {}

QtDialogs::~QtDialogs() = default;

FileAnswer QtDialogs::openFile(const std::string& filter) {
    return openFile(filter, FilePurpose::Project);
}

FileAnswer QtDialogs::openFile(const std::string& filter, FilePurpose purpose) {
    QFileDialog dialog(&owner_, "Open");
    dialog.setFileMode(QFileDialog::ExistingFile);
    return ask(dialog, nullptr, filter, purpose);
}

FileAnswer QtDialogs::saveFile(const std::string& filter) {
    SaveDialog dialog(&owner_, extensionsOf(filter));
    return ask(dialog, &dialog, filter, FilePurpose::Project);
}

FileAnswer QtDialogs::ask(QFileDialog& dialog, SaveDialog* saving, const std::string& filter,
                          FilePurpose purpose) {
    const QList<FileKind> kinds = fileKinds(filter);
    QStringList names;
    for (const FileKind& kind : kinds) names.append(nameFilter(kind));
    // The toolkit's own dialog: others do not tell the filter of a cancelled one.
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setNameFilters(names);
    // With its details hidden a filter is told by what it shows, its caption.
    const auto chosen = [&] {
        const QString shown = dialog.selectedNameFilter();
        for (qsizetype i = 0; i < kinds.size(); ++i)
            if (shown == names[i] || shown == kinds[i].caption) return i;
        return qsizetype{0};
    };
    const auto purposeNow = [&] {
        return purpose == FilePurpose::Background ? purpose
                                                  : purposeOf(kinds[chosen()], saving != nullptr);
    };
    // Another kind of file has another folder, and a typed name gets its extension.
    const auto follow = [&] {
        const std::string folder = folders_.of(purposeNow());
        if (!folder.empty()) dialog.setDirectory(QString::fromStdString(folder));
        if (saving) saving->setExtension(extensionOf(kinds[chosen()]));
    };
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog,
                     [&](const QString&) { follow(); });
    if (dialog.directory().path().isEmpty()) dialog.setDirectory(QDir::homePath());
    follow();

    const bool accepted = dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty();
    FileAnswer answer{{}, static_cast<int>(chosen()) + 1};
    if (!accepted) return answer;
    const QString file = dialog.selectedFiles().first();
    answer.file = file.toStdString();
    folders_.remember(purposeNow(), QFileInfo(file).absolutePath().toStdString());
    return answer;
}

std::optional<SolidOptions> QtDialogs::askSolidOptions(const SolidOptions& preset) {
    SolidOptionsForm form(preset, &owner_);
    if (form.exec() != QDialog::Accepted) return std::nullopt;
    return form.options();
}

std::optional<std::uint32_t> QtDialogs::pickColour(std::uint32_t preset) {
    const QColor before(static_cast<int>(preset & 0xff), static_cast<int>(preset >> 8 & 0xff),
                        static_cast<int>(preset >> 16 & 0xff));
    const QColor colour =
        QColorDialog::getColor(before, &owner_, {}, QColorDialog::DontUseNativeDialog);
    if (!colour.isValid()) return std::nullopt;
    return static_cast<std::uint32_t>(colour.red() | colour.green() << 8 | colour.blue() << 16);
}

bool QtDialogs::askYesNo(const std::string& text, BoxIcon icon, bool defaultYes) {
    QMessageBox box(sign(icon), applicationTitle, QString::fromStdString(text),
                    QMessageBox::Yes | QMessageBox::No, &owner_);
    box.setDefaultButton(defaultYes ? QMessageBox::Yes : QMessageBox::No);
    box.setEscapeButton(QMessageBox::No);
    return box.exec() == QMessageBox::Yes;
}

LeftWorkAnswer QtDialogs::askLeftWork(const std::string& text) {
    QMessageBox box(QMessageBox::Question, applicationTitle, QString::fromStdString(text),
                    QMessageBox::NoButton, &owner_);
    box.setTextFormat(Qt::PlainText);
    const auto* restore = box.addButton("&Restore", QMessageBox::AcceptRole);
    const auto* discard = box.addButton("&Discard", QMessageBox::DestructiveRole);
    box.setEscapeButton(box.addButton("&Keep for later", QMessageBox::RejectRole));
    box.exec();
    if (box.clickedButton() == restore) return LeftWorkAnswer::Restore;
    return box.clickedButton() == discard ? LeftWorkAnswer::Discard : LeftWorkAnswer::Later;
}

bool QtDialogs::message(const std::string& title, const std::string& text, BoxIcon icon) {
    // The work that failed is over: its bar must not stand beside the box that says so.
    if (print_.ports.progress) print_.ports.progress->finish();
    Message box(sign(icon), QString::fromStdString(title), QString::fromStdString(text),
                QMessageBox::Ok, &owner_);
    bool pressed = false;
    QObject::connect(&box, &QMessageBox::buttonClicked, &box, [&] { pressed = true; });
    box.exec();
    return pressed;
}

std::optional<std::string> QtDialogs::askText(const std::string& prompt, const std::string& title,
                                              const std::string& preset) {
    bool accepted = false;
    const QString text = QInputDialog::getText(&owner_, QString::fromStdString(title),
                                               QString::fromStdString(prompt), QLineEdit::Normal,
                                               QString::fromStdString(preset), &accepted);
    if (!accepted) return std::nullopt;
    return text.toStdString();
}

std::optional<NacaAnswer> QtDialogs::askNaca(const NacaAnswer& preset) {
    NacaForm form(preset, &owner_);
    if (form.exec() != QDialog::Accepted) return std::nullopt;
    return form.answer();
}

PrinterSurface* QtDialogs::askPrinter(const std::vector<std::string>& jobs) {
    auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    printer->setFullPage(true);
    printer->setDocName("plan");  // proposes plan.pdf
    QPrintDialog dialog(printer.get(), &owner_);
    if (dialog.exec() != QDialog::Accepted) return nullptr;
    const QStringList replaced = QtPrinterSurface::existingFiles(*printer, jobs);
    if (!replaced.isEmpty() && !askYesNo(("These files will be replaced:\n" + replaced.join('\n') +
                                          "\nDo you want to proceed ?")
                                             .toStdString(),
                                         BoxIcon::Exclamation, false))
        return nullptr;
    printer_ = std::make_unique<QtPrinterSurface>(std::move(printer));
    printer_->setCorrection(print_.PrintSelect.correction);
    return printer_.get();
}

bool QtDialogs::askRibWishes(RibWishes& wishes, int units) {
    return RibForm(*this, wishes, units, &owner_).exec() == QDialog::Accepted;
}

void QtDialogs::showPreferences() {
    PrefsForm(preferences_, startup_.smallFontsVariable, &owner_).exec();
}

void QtDialogs::showManager() {
    ManagerForm form(print_.main, &owner_);
    manager_ = &form;
    form.exec();
}

void QtDialogs::showFuselageRows() {
    if (manager_) manager_->showRows();
}

void QtDialogs::showPrintSelect() {
    PrintSelectForm(print_, &owner_).exec();
}

}  // namespace velna
