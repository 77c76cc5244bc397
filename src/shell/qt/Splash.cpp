#include "shell/qt/Splash.h"

#include <QPainter>
#include <QScreen>

#include "shell/Startup.h"
#include "shell/qt/Drawings.h"

namespace velna {
namespace {

constexpr QSize designSize(420, 220);

}  // namespace

Splash::Splash(const QString& version, bool smallFonts)
    : QWidget(nullptr, Qt::SplashScreen | Qt::WindowStaysOnTopHint), version_(version) {
    setObjectName("frmSplash");
    resize(designSize * (smallFonts ? Startup::smallFontsScale : 1));
    move(screen()->availableGeometry().center() - rect().center());
}

void Splash::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    QLinearGradient sky(0, 0, 0, height());
    sky.setColorAt(0, QColor("#dcebfa"));
    sky.setColorAt(1, Qt::white);
    painter.fillRect(rect(), sky);
    const QColor ink("#20344c");
    painter.setPen(ink);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));

    // With small fonts the form and its words grow; an image keeps its place and size.
    constexpr QPoint corner(36, 40);
    constexpr QSize logo(264, 88);
    painter.drawPixmap(corner, Drawings::picture("Logo", logo, devicePixelRatioF(), ink));
    const QRect lower(width() / 13, height() * 2 / 3, width(), height() / 3);
    painter.drawText(lower, Qt::AlignLeft | Qt::AlignTop,
                     "Model aircraft, from the first line to the plan\n\n" + version_);
}

void Splash::keyPressEvent(QKeyEvent*) {
    close();
}

void Splash::mousePressEvent(QMouseEvent*) {
    close();
}

}  // namespace velna
