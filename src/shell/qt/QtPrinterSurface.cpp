#include "shell/qt/QtPrinterSurface.h"

#include <QFile>
#include <QFileInfo>
#include <QPageLayout>

#include "output/Plans.h"

namespace velna {
namespace {

QString jobFile(const QString& target, const std::string& job) {
    const std::string file = Plans::jobFile(QFile::encodeName(target).toStdString(), job);
    return QFile::decodeName(QByteArray::fromStdString(file));
}

}  // namespace

QtPrinterSurface::QtPrinterSurface(std::unique_ptr<QPrinter> printer)
    : owned_(std::move(printer)), printer_(*owned_), target_(printer_.outputFileName()) {
    readPrinter();
}

QtPrinterSurface::QtPrinterSurface(QPrinter& preview) : printer_(preview) {
    readPrinter();
}

QtPrinterSurface::~QtPrinterSurface() {
    if (paints()) KillDoc();
}

void QtPrinterSurface::readPrinter() {
    printer_.setFullPage(true);
    readPaper(printer_.pageLayout(), printer_.resolution());
}

void QtPrinterSurface::StartDoc(const std::string& name, Progress* watcher) {
    startAnew(watcher);
    if (!target_.isEmpty()) {
        finished_ = jobFile(target_, name);
        file_ = std::make_unique<ReplacedFile>(QFile::encodeName(finished_).toStdString(),
                                               Links::replaced);
        if (!file_->error().empty()) {
            fail(finished_.toStdString() + ": " + file_->giveUp());
            file_.reset();
            return;
        }
        printer_.setOutputFormat(QPrinter::PdfFormat);
        printer_.setOutputFileName(
            QFile::decodeName(QByteArray::fromStdString(file_->temporary())));
        printer_.setFullPage(true);
    }
    printer_.setDocName(QString("Velna %1").arg(QString::fromStdString(name)));
    if (!paintOn(printer_)) fail("The printer cannot be used");
}

Outcome QtPrinterSurface::EndDoc() {
    finishPainting();
    if (printer_.printerState() == QPrinter::Error) fail("The printer has failed");
    const bool drop = file_ && isCancelled();
    if (file_ && error().empty() && !drop && !file_->commit())
        fail(finished_.toStdString() + ": " + file_->error());
    file_.reset();
    if (drop) return Outcome::cancelled();
    return error().empty() ? Outcome() : Outcome::failed(error());
}

void QtPrinterSurface::KillDoc() {
    printer_.abort();
    dropPainting();
    file_.reset();
}

QStringList QtPrinterSurface::existingFiles(const QPrinter& printer,
                                            const std::vector<std::string>& jobs) {
    QStringList files;
    if (printer.outputFileName().isEmpty()) return files;
    for (const std::string& job : jobs) {
        const QString file = jobFile(printer.outputFileName(), job);
        if (QFileInfo::exists(file)) files.append(file);
    }
    return files;
}

}  // namespace velna
