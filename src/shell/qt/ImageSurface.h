#pragma once

#include <QImage>
#include <QSize>

#include "editor/StandingLines.h"
#include "editor/Surface.h"
#include "shell/qt/LineRaster.h"

namespace velna {

/// A drawing surface that is an image. The paper is white and every pen explicit, so a dark desktop
/// changes nothing. On a dense screen the image has device pixels and a line keeps its width to the
/// eye.
class ImageSurface : public Surface {
public:
    /// No paper yet: every line is lost.
    ImageSurface() = default;
    /// White paper of `size` pixels; none where memory has no room for it.
    explicit ImageSurface(QSize size) { setPaper(size, 1); }

    double width() const override { return image_.width() / density_; }
    double height() const override { return image_.height() / density_; }
    void clear() override;
    void line(double x1, double y1, double x2, double y2, Rgb colour) override;
    void setDrawMode(DrawMode mode) override;
    std::optional<Point2D> pictureSize(const std::string& file) override;
    void paintPicture(const std::string& file, Point2D position, Point2D size) override;
    void refresh() override { changed_ = {}; }
    void setFocus() override {}

    const QImage& image() const { return image_; }

protected:
    /// Blank paper of `size` device pixels, `density` of them on each of the surface's.
    void setPaper(QSize size, double density);
    double dotsPerPixel() const { return density_; }
    /// The device pixels that have changed since the last refresh.
    const PixelRegion& changed() const { return changed_; }

private:
    PixelBuffer buffer();

    QImage image_;
    double density_ = 1;  // device pixels of a pixel
    PixelRule rule_ = PixelRule::Copy;
    StandingLines standing_;
    PixelRegion changed_;
};

}  // namespace velna
