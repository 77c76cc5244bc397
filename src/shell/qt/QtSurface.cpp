#include "shell/qt/QtSurface.h"

#include <QPaintEvent>
#include <QPainter>
#include <QWidget>
#include <algorithm>
#include <cmath>

namespace velna {

void QtSurface::fitToWidget() {
    const double density = widget_.devicePixelRatioF();
    const auto inPixels = [density](int n) {
        return std::max(1, static_cast<int>(std::lround(n * density)));
    };
    const QSize size(inPixels(widget_.width()), inPixels(widget_.height()));
    if (size != image().size() || density != dotsPerPixel()) setPaper(size, density);
}

void QtSurface::show(const QPaintEvent& event) {
    QPainter painter(&widget_);
    painter.setClipRegion(event.region());
    painter.drawImage(QPointF(0, 0), image());
}

double QtSurface::width() const {
    return widget_.width();
}

double QtSurface::height() const {
    return widget_.height();
}

void QtSurface::refresh() {
    if (changed().empty()) return;
    const PixelRegion& pixels = changed();
    const double dots = dotsPerPixel();
    const QRectF part(pixels.left / dots, pixels.top / dots, (pixels.right - pixels.left) / dots,
                      (pixels.bottom - pixels.top) / dots);
    widget_.update(part.toAlignedRect());
    ImageSurface::refresh();
}

void QtSurface::setFocus() {
    widget_.setFocus();
}

}  // namespace velna
