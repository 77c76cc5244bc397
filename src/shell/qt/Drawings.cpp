#include "shell/qt/Drawings.h"

#include <QApplication>
#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPixmapCache>
#include <QStyle>
#include <QStyleOption>
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

/// Drawn when a button shows it, in the size that the button's screen needs.
class DrawnIcon : public QIconEngine {
public:
    DrawnIcon(const char* name, const QColor& ink) : name_(name), ink_(ink) {}

    QIconEngine* clone() const override { return new DrawnIcon(*this); }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) override {
        const QString key = QString("velna %1 %2 %3x%4 %5")
                                .arg(name_, ink_.name())
                                .arg(size.width())
                                .arg(size.height())
                                .arg(mode);
        QPixmap drawn;
        if (!QPixmapCache::find(key, &drawn)) {
            drawn = inMode(picture(name_.constData(), size, 1, ink_), mode);
            QPixmapCache::insert(key, drawn);
        }
        return drawn;
    }

    void paint(QPainter* painter, const QRect& place, QIcon::Mode mode,
               QIcon::State state) override {
        const double density = painter->device()->devicePixelRatio();
        painter->drawPixmap(place, pixmap(place.size() * density, mode, state));
    }

private:
    static QPixmap inMode(const QPixmap& drawn, QIcon::Mode mode) {
        if (mode == QIcon::Normal || drawn.isNull()) return drawn;
        QStyleOption option;
        option.palette = QApplication::palette();
        return QApplication::style()->generatedIconPixmap(mode, drawn, &option);
    }

    QByteArray name_;
    QColor ink_;
};

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
    return QIcon(new DrawnIcon(name, ink));
}

}  // namespace velna::Drawings
