#include "shell/qt/ImageSurface.h"

#include <QPainter>
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

void ImageSurface::setPaper(QSize size, double density) {
    density_ = density;
    image_ = QImage(size, QImage::Format_RGB32);
    image_.setDevicePixelRatio(density_);
    ImageSurface::clear();
}

void ImageSurface::clear() {
    standing_.clear();
    image_.fill(Qt::white);
    changed_.include(0, 0, image_.width(), image_.height());
}

PixelBuffer ImageSurface::buffer() {
    return {reinterpret_cast<std::uint32_t*>(image_.bits()), image_.width(), image_.height(),
            image_.bytesPerLine() / 4};
}

void ImageSurface::line(double x1, double y1, double x2, double y2, Rgb colour) {
    if (image_.isNull()) return;
    if (rule_ == PixelRule::Invert && !standing_.changes(x1, y1, x2, y2, colour == white)) return;
    const Ink ink{pixelOf(colour), static_cast<int>(std::lround(density_)), rule_};
    rasterLine(buffer(), {x1 * density_, y1 * density_}, {x2 * density_, y2 * density_}, ink,
               changed_);
}

void ImageSurface::setDrawMode(DrawMode mode) {
    rule_ = mode == DrawMode::Invert ? PixelRule::Invert : PixelRule::Copy;
    if (rule_ == PixelRule::Copy) standing_.clear();
}

std::optional<Point2D> ImageSurface::pictureSize(const std::string& file) {
    const QSize size = readPictureSize(file);
    if (size.isEmpty()) return std::nullopt;
    return Point2D{static_cast<double>(size.width()), static_cast<double>(size.height())};
}

void ImageSurface::paintPicture(const std::string& file, Point2D position, Point2D size) {
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

}  // namespace velna
