#pragma once

#include <QMarginsF>
#include <QPainter>
#include <QPointF>
#include <QPrinter>
#include <QStringList>
#include <memory>
#include <string>
#include <vector>

#include "common/ReplacedFile.h"
#include "output/PrinterSurface.h"

namespace velna {

/// The paper: a printer or a file of pages. Places are computed from the device's resolution alone,
/// so that 100 mm of the model are 100 mm on the paper whatever the printer.
class QtPrinterSurface : public PrinterSurface {
public:
    /// Paints on a printer that is set up; each job with a file as the target gets a file of its
    /// own.
    explicit QtPrinterSurface(std::unique_ptr<QPrinter> printer);
    /// Paints a preview on a printer that someone else owns.
    explicit QtPrinterSurface(QPrinter& preview);
    ~QtPrinterSurface() override;

    void setScaleMode(int mode) override;
    double ScaleWidth() const override;
    double ScaleHeight() const override;
    void Line(double x1, double y1, double x2, double y2, Rgb colour) override;
    void Text(double x, double y, const std::string& text) override;
    void StartDoc(const std::string& name, Progress* watcher) override;
    void NewPage() override;
    /// What a printer's queue has taken cannot be cancelled; a file can, to its last page.
    Outcome EndDoc() override;
    void KillDoc() override;
    std::string error() const override { return error_; }

    /// The files among the jobs' targets that there are already; none without a file as the target.
    static QStringList existingFiles(const QPrinter& printer, const std::vector<std::string>& jobs);

private:
    void readPaper();
    bool beginPage();
    template <class End>
    bool endPage(End end);
    QPointF onPaper(double x, double y) const;
    void paintLines();
    void endPath();

    std::unique_ptr<QPrinter> owned_;
    QPrinter& printer_;
    QPainter painter_;
    QString target_;  // the file that the user named; empty for a printer
    // the file of the present job, which takes its place when it is complete
    std::unique_ptr<ReplacedFile> file_;
    QString finished_;           // its place
    double unit_ = 1;            // millimetres
    QMarginsF margins_;          // millimetres
    QSizeF printable_;           // millimetres
    double dots_ = 1;            // device units of a millimetre
    std::vector<QPointF> path_;  // lines that go on from each other, not yet painted
    Rgb colour_;                 // theirs
    int pagesToTurn_ = 0;        // ended, their successors not yet begun
    std::size_t linesOnPage_ = 0;
    Progress* watcher_ = nullptr;  // of the job
    bool cancelled_ = false;       // by it
    std::string error_;
};

}  // namespace velna
