#pragma once

#include <QMarginsF>
#include <QPainter>
#include <QPointF>
#include <string>
#include <vector>

#include "output/PrinterCorrection.h"
#include "output/PrinterSurface.h"

class QPageLayout;
class QPaintDevice;

namespace velna {

/// Sheets of a device that has pages. Places are computed from the device's resolution alone, so
/// that 100 mm of the model are 100 mm on the paper whatever the device.
class PagedSurface : public PrinterSurface {
public:
    void setScaleMode(int mode) override;
    double ScaleWidth() const override;
    double ScaleHeight() const override;
    void Line(double x1, double y1, double x2, double y2, Rgb colour) override;
    void Text(double x, double y, const std::string& text) override;
    void NewPage() override;
    std::string error() const override { return error_; }

    /// Whatever is painted from now on is longer by these factors, and less of the plan has room on
    /// a sheet, so that a printer that is off its scale keeps to it.
    void setCorrection(const PrinterCorrection& correction) { correction_ = correction; }

protected:
    /// Takes the paper and its margins from `paper`, to be painted in `resolution` dots an inch.
    void readPaper(const QPageLayout& paper, int resolution);
    /// Forgets the job before. `watcher`, which may be null, may cancel the one that begins.
    void startAnew(Progress* watcher);
    /// Begins to paint on `device`; false where it cannot be painted on.
    bool paintOn(QPaintDevice& device);
    /// Paints what is left of the job; what did not go well is in `error`.
    void finishPainting();
    /// Ends the painting of a job that is dropped.
    void dropPainting();
    bool paints() const { return painter_.isActive(); }
    bool isCancelled() const { return cancelled_; }
    /// The first reason stands.
    void fail(const std::string& reason);

private:
    /// The device's next page; false where it takes none.
    virtual bool turnPage() = 0;

    bool beginPage();
    template <class End>
    bool endPage(End end);
    QPointF onPaper(double x, double y) const;
    QSizeF holds() const;
    void paintLines();
    void endPath();

    QPainter painter_;
    double unit_ = 1;    // millimetres
    QMarginsF margins_;  // millimetres
    QSizeF printable_;   // millimetres
    PrinterCorrection correction_;
    double dots_ = 1;            // device units of a millimetre
    std::vector<QPointF> path_;  // lines that go on from each other, not yet painted
    Rgb colour_{};               // theirs
    int pagesToTurn_ = 0;        // ended, their successors not yet begun
    std::size_t linesOnPage_ = 0;
    Progress* watcher_ = nullptr;  // of the job
    bool cancelled_ = false;       // by it
    std::string error_;
};

}  // namespace velna
