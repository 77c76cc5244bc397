#pragma once

#include <QPrinter>
#include <QStringList>
#include <memory>
#include <string>
#include <vector>

#include "common/ReplacedFile.h"
#include "shell/qt/PagedSurface.h"

namespace velna {

/// The paper: a printer or a file of pages.
class QtPrinterSurface : public PagedSurface {
public:
    /// Paints on a printer that is set up; each job with a file as the target gets a file of its
    /// own.
    explicit QtPrinterSurface(std::unique_ptr<QPrinter> printer);
    /// Paints a preview on a printer that someone else owns.
    explicit QtPrinterSurface(QPrinter& preview);
    ~QtPrinterSurface() override;

    void StartDoc(const std::string& name, Progress* watcher) override;
    /// What a printer's queue has taken cannot be cancelled; a file can, to its last page.
    Outcome EndDoc() override;
    void KillDoc() override;

    /// The files among the jobs' targets that there are already; none without a file as the target.
    static QStringList existingFiles(const QPrinter& printer, const std::vector<std::string>& jobs);

private:
    bool turnPage() override { return printer_.newPage(); }
    void readPrinter();

    std::unique_ptr<QPrinter> owned_;
    QPrinter& printer_;
    QString target_;  // the file that the user named; empty for a printer
    // the file of the present job, which takes its place when it is complete
    std::unique_ptr<ReplacedFile> file_;
    QString finished_;  // its place
};

}  // namespace velna
