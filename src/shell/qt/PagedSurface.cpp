#include "shell/qt/PagedSurface.h"

#include <QPageLayout>
#include <algorithm>
#include <cmath>

#include "common/ClipLine.h"
#include "common/TwoThreads.h"
#include "model/Units.h"
#include "shell/qt/WatchedWork.h"

namespace velna {
namespace {

// Lines are painted in whole micrometres: the toolkit writes every other number with five digits
// behind the point.
constexpr double perMillimetre = 1000;
// Millimetres: the toolkit's own width makes files five times larger.
constexpr double penWidth = 0.25;
// Points of a path: older printers refuse longer ones.
constexpr std::size_t longestPath = 1000;
constexpr double textHeight = 3.5;  // millimetres
constexpr int inchMode = 5;

// Printers tell their paper in hundredths of a millimetre at best, `length` is in millimetres.
double hundredths(double length) {
    return std::round(length * 100) / 100;
}

}  // namespace

void PagedSurface::readPaper(const QPageLayout& paper, int resolution) {
    const QSizeF page = paper.fullRect(QPageLayout::Millimeter).size();
    const QMarginsF wanted = paper.margins(QPageLayout::Millimeter);
    margins_ = {hundredths(wanted.left()), hundredths(wanted.top()), hundredths(wanted.right()),
                hundredths(wanted.bottom())};
    printable_ = {std::max(0.0, hundredths(page.width()) - margins_.left() - margins_.right()),
                  std::max(0.0, hundredths(page.height()) - margins_.top() - margins_.bottom())};
    dots_ = resolution / Plane::millimetresPerInch;
}

void PagedSurface::setScaleMode(int mode) {
    unit_ = mode == inchMode ? Plane::millimetresPerInch : 1;
}

// How much of a plan a sheet holds, in millimetres.
QSizeF PagedSurface::holds() const {
    return {printable_.width() / correction_.x, printable_.height() / correction_.y};
}

double PagedSurface::ScaleWidth() const {
    return holds().width() / unit_;
}

double PagedSurface::ScaleHeight() const {
    return holds().height() / unit_;
}

QPointF PagedSurface::onPaper(double x, double y) const {
    return {std::round((x * correction_.x + margins_.left()) * perMillimetre),
            std::round((y * correction_.y + margins_.top()) * perMillimetre)};
}

// Lines are painted in micrometres.
void PagedSurface::paintLines() {
    const double scale = dots_ / perMillimetre;
    painter_.setTransform(QTransform::fromScale(scale, scale));
}

void PagedSurface::startAnew(Progress* watcher) {
    error_.clear();
    path_.clear();
    pagesToTurn_ = 0;
    linesOnPage_ = 0;
    watcher_ = watcher;
    cancelled_ = false;
}

bool PagedSurface::paintOn(QPaintDevice& device) {
    if (!painter_.begin(&device)) return false;
    paintLines();
    return true;
}

// The toolkit compresses a page as it ends: seconds where it holds millions of lines.
template <class End>
bool PagedSurface::endPage(End end) {
    const bool isLong = watcher_ && linesOnPage_ > workForTwoThreads;
    linesOnPage_ = 0;
    return isLong ? watchedWork(*watcher_, cancelled_, end) : end();
}

void PagedSurface::finishPainting() {
    endPath();
    if (painter_.isActive() && !endPage([this] { return painter_.end(); }))
        fail("The job could not be ended");
}

void PagedSurface::dropPainting() {
    path_.clear();
    if (painter_.isActive()) painter_.end();
}

void PagedSurface::fail(const std::string& reason) {
    if (error_.empty()) error_ = reason;
}

bool PagedSurface::beginPage() {
    if (!painter_.isActive() || cancelled_) return false;
    for (; pagesToTurn_ > 0; --pagesToTurn_) {
        if (!endPage([this] { return turnPage(); })) {
            fail("The printer takes no further page");
            return false;
        }
    }
    ++linesOnPage_;
    return !cancelled_;
}

void PagedSurface::Line(double x1, double y1, double x2, double y2, Rgb colour) {
    if (!error_.empty() || !beginPage()) return;
    if (!std::isfinite(x1) || !std::isfinite(y1) || !std::isfinite(x2) || !std::isfinite(y2))
        return;
    Point2D from{x1 * unit_, y1 * unit_}, to{x2 * unit_, y2 * unit_};
    if (!std::isfinite(from.x) || !std::isfinite(from.y) || !std::isfinite(to.x) ||
        !std::isfinite(to.y))
        return;
    // What does not lie on this sheet never reaches the device.
    if (!clipLine(from, to, {0, holds().width()}, {0, holds().height()})) return;
    const QPointF a = onPaper(from.x, from.y), b = onPaper(to.x, to.y);
    if (path_.empty() || path_.back() != a || colour_ != colour || path_.size() == longestPath) {
        endPath();
        path_.push_back(a);
        colour_ = colour;
    }
    if (b != a) path_.push_back(b);
}

// A path of one point is a dot as large as the pen.
void PagedSurface::endPath() {
    if (path_.empty() || !painter_.isActive()) return;
    // Round joins are what the round caps of single lines made of them.
    painter_.setPen(QPen(QColor(colour_.red, colour_.green, colour_.blue), penWidth * perMillimetre,
                         Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    if (path_.size() == 1) {
        painter_.drawPoint(path_.front());
    } else {
        painter_.drawPolyline(path_.data(), static_cast<int>(path_.size()));
    }
    path_.clear();
}

void PagedSurface::Text(double x, double y, const std::string& text) {
    if (!error_.empty() || !beginPage()) return;
    endPath();
    QFont font("DejaVu Sans");
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(textHeight * dots_))));
    painter_.resetTransform();
    painter_.setFont(font);
    painter_.setPen(Qt::black);
    const QPointF place(x * unit_ * correction_.x + margins_.left(),
                        y * unit_ * correction_.y + margins_.top());
    painter_.drawText(place * dots_, QString::fromStdString(text));
    paintLines();
}

void PagedSurface::NewPage() {
    endPath();
    ++pagesToTurn_;
}

}  // namespace velna
