#pragma once

#include <QImage>
#include <QRect>

#include "editor/StandingLines.h"
#include "editor/Surface.h"
#include "shell/qt/LineRaster.h"

class QPaintEvent;
class QWidget;

namespace velna {

/// A drawing surface: an image that a widget shows. The paper is white and every pen explicit, so a
/// dark desktop changes nothing. On a dense screen the image has device pixels and a line keeps its
/// width to the eye.
class QtSurface : public Surface {
public:
    explicit QtSurface(QWidget& widget) : widget_(widget) {}

    /// Takes the widget's size and the screen's density; a new size makes the paper blank.
    void fitToWidget();
    /// Copies the part that the event asks for to the screen.
    void show(const QPaintEvent& event);

    double width() const override;
    double height() const override;
    void clear() override;
    void line(double x1, double y1, double x2, double y2, Rgb colour) override;
    void setDrawMode(DrawMode mode) override;
    std::optional<Point2D> pictureSize(const std::string& file) override;
    void paintPicture(const std::string& file, Point2D position, Point2D size) override;
    void refresh() override;
    void setFocus() override;

    const QImage& image() const { return image_; }

private:
    PixelBuffer buffer();

    QWidget& widget_;
    QImage image_;
    double density_ = 1;  // device pixels of a widget's pixel
    PixelRule rule_ = PixelRule::Copy;
    StandingLines standing_;
    PixelRegion changed_;  // since the last refresh
};

}  // namespace velna
