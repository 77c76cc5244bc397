#pragma once

#include <optional>
#include <string>

#include "editor/Surface.h"
#include "model/Fits.h"

namespace velna {

/// A drawing surface that keeps its lines as an SVG picture: the lines that a screen shows, one
/// pixel wide through the middles of the same pixels. Pictures behind a view and inverting lines,
/// which only a window has, leave nothing in it.
class SvgSurface : public Surface {
public:
    explicit SvgSurface(SurfaceSize size) : size_(size) {}

    double width() const override { return size_.width; }
    double height() const override { return size_.height; }
    void clear() override;
    void line(double x1, double y1, double x2, double y2, Rgb colour) override;
    void setDrawMode(DrawMode /*mode*/) override {}
    std::optional<Point2D> pictureSize(const std::string& /*file*/) override { return {}; }
    void paintPicture(const std::string& /*file*/, Point2D /*position*/,
                      Point2D /*size*/) override {}
    void refresh() override {}
    void setFocus() override {}

    /// The whole file.
    std::string text();

private:
    void endPath();

    SurfaceSize size_;
    std::string paths_;  ///< those that are complete
    std::string path_;   ///< the points of the one under way
    Point2D at_{};       ///< its end
    Rgb colour_{};
};

}  // namespace velna
