#include "shell/qt/Drawings.h"

#include <QFile>
#include <QPainter>
#include <QSvgRenderer>

namespace velna::Drawings {
namespace {

QByteArray source(const char* name, const QColor& ink, const char* measure) {
    QFile file(QString(":/%1.svg").arg(name));
    if (!file.open(QIODevice::ReadOnly)) return {};
    QByteArray svg = file.readAll();
    svg.replace("currentColor", ink.name().toLatin1());
    // The measures lie hidden in the drawing, each in a group of its name.
    if (measure) svg.replace(QByteArray("id=\"") + measure + "\" display=\"none\"", "");
    return svg;
}

}  // namespace

QPixmap picture(const char* name, QSize size, double density, const QColor& ink,
                const char* measure) {
    QSvgRenderer renderer(source(name, ink, measure));
    if (!renderer.isValid()) return {};
    renderer.setAspectRatioMode(Qt::KeepAspectRatio);
    QPixmap pixmap(size * density);
    pixmap.setDevicePixelRatio(density);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    renderer.render(&painter, QRectF(QPointF(0, 0), size));
    return pixmap;
}

QIcon icon(const char* name, const QColor& ink) {
    constexpr int size = 24;
    QIcon result;
    for (const double density : {1.0, 1.5, 2.0, 3.0})
        result.addPixmap(picture(name, {size, size}, density, ink));
    return result;
}

}  // namespace velna::Drawings
