#include "shell/qt/OutlinePicture.h"

#include <QPainter>
#include <algorithm>
#include <cmath>
#include <utility>

namespace velna {
namespace {

constexpr double margin = 2;    // pixels round the outline
constexpr int lowestRoom = 8;   // pixels of height below which nothing can be seen
constexpr double finest = 0.2;  // pixels between points that are drawn

}  // namespace

OutlinePicture::OutlinePicture(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
}

void OutlinePicture::setOutline(AirfoilOutline::Points points, const QString& description) {
    if (description != accessibleDescription()) {
        setAccessibleDescription(description);
        setToolTip(description);
    }
    if (points == points_) return;
    points_ = std::move(points);
    update();
}

QSize OutlinePicture::sizeHint() const {
    return {120, 3 * fontMetrics().height()};
}

/// Points that fall together on the screen are left out: an outline may have thousands.
QPolygonF OutlinePicture::inPixels() const {
    const auto [nose, tail] = std::ranges::minmax_element(points_, {}, &Point2D::x);
    const auto [low, high] = std::ranges::minmax_element(points_, {}, &Point2D::y);
    const double wide = tail->x - nose->x;
    const double tall = high->y - low->y;
    const double zoom = std::min((width() - 2 * margin) / wide, (height() - 2 * margin) / tall);
    QPolygonF polygon;
    if (!std::isfinite(zoom) || !(zoom > 0)) return polygon;
    const QPointF from((width() - zoom * wide) / 2, (height() + zoom * tall) / 2);
    for (const Point2D& point : points_) {
        const QPointF at(from.x() + zoom * (point.x - nose->x),
                         from.y() - zoom * (point.y - low->y));
        if (polygon.isEmpty() || (at - polygon.back()).manhattanLength() >= finest) polygon << at;
    }
    return polygon;
}

void OutlinePicture::paintEvent(QPaintEvent*) {
    if (points_.size() < 2 || height() < lowestRoom) return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor ink = palette().color(QPalette::WindowText);
    QColor body = ink;
    body.setAlphaF(0.12F);
    painter.setPen(QPen(ink, 1));
    painter.setBrush(body);
    painter.drawPolygon(inPixels());
}

}  // namespace velna
