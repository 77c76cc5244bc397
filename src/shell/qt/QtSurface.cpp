#include "shell/qt/QtSurface.h"

#include <QPaintEvent>
#include <QPainter>
#include <QWidget>
#include <algorithm>
#include <cmath>
#include <exception>

#include "shell/qt/PictureReading.h"

namespace velna {
namespace {

std::uint32_t pixelOf(Rgb colour) {
    return 0xff000000U | std::uint32_t{colour.red} << 16 | std::uint32_t{colour.green} << 8 |
           colour.blue;
}

// A painter's coordinates are 26 bits wide; a picture larger than this is cut there anyway.
bool paintable(Point2D position, Point2D size) {
    constexpr double limit = 1e6;
    return std::abs(position.x) < limit && std::abs(position.y) < limit && size.x > 0 &&
           size.x < limit && size.y > 0 && size.y < limit;
}

}  // namespace

void QtSurface::fitToWidget() {
    const double density = widget_.devicePixelRatioF();
    const auto inPixels = [density](int n) {
        return std::max(1, static_cast<int>(std::lround(n * density)));
    };
    const QSize size(inPixels(widget_.width()), inPixels(widget_.height()));
    if (size == image_.size() && density == density_) return;
    density_ = density;
    image_ = QImage(size, QImage::Format_RGB32);
    image_.setDevicePixelRatio(density_);
    clear();
}

void QtSurface::show(const QPaintEvent& event) {
    QPainter painter(&widget_);
    painter.setClipRegion(event.region());
    painter.drawImage(QPointF(0, 0), image_);
}

double QtSurface::width() const {
    return widget_.width();
}

double QtSurface::height() const {
    return widget_.height();
}

void QtSurface::clear() {
    standing_.clear();
    image_.fill(Qt::white);
    changed_.include(0, 0, image_.width(), image_.height());
}

PixelBuffer QtSurface::buffer() {
    return {reinterpret_cast<std::uint32_t*>(image_.bits()), image_.width(), image_.height(),
            image_.bytesPerLine() / 4};
}

void QtSurface::line(double x1, double y1, double x2, double y2, Rgb colour) {
    if (image_.isNull()) return;
    if (rule_ == PixelRule::Invert && !standing_.changes(x1, y1, x2, y2, colour == white)) return;
    const Ink ink{pixelOf(colour), static_cast<int>(std::lround(density_)), rule_};
    rasterLine(buffer(), {x1 * density_, y1 * density_}, {x2 * density_, y2 * density_}, ink,
               changed_);
}

void QtSurface::setDrawMode(DrawMode mode) {
    rule_ = mode == DrawMode::Invert ? PixelRule::Invert : PixelRule::Copy;
    if (rule_ == PixelRule::Copy) standing_.clear();
}

std::optional<Point2D> QtSurface::pictureSize(const std::string& file) {
    const QSize size = readPictureSize(file);
    if (size.isEmpty()) return std::nullopt;
    return Point2D{static_cast<double>(size.width()), static_cast<double>(size.height())};
}

void QtSurface::paintPicture(const std::string& file, Point2D position, Point2D size) {
    if (image_.isNull() || !paintable(position, size)) return;
    const QSize shown(static_cast<int>(std::ceil(size.x * density_)),
                      static_cast<int>(std::ceil(size.y * density_)));
    std::string reason;
    const QImage picture = readPicture(file, shown, reason);
    if (picture.isNull()) return;
    try {
        QPainter painter(&image_);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(QRectF(position.x, position.y, size.x, size.y), picture);
    } catch (const std::exception&) {
        // Memory had no room to scale it: what is painted of it is only an aid.
    }
    changed_.include(0, 0, image_.width(), image_.height());
}

void QtSurface::refresh() {
    if (changed_.empty()) return;
    const QRectF part(changed_.left / density_, changed_.top / density_,
                      (changed_.right - changed_.left) / density_,
                      (changed_.bottom - changed_.top) / density_);
    widget_.update(part.toAlignedRect());
    changed_ = {};
}

void QtSurface::setFocus() {
    widget_.setFocus();
}

}  // namespace velna
