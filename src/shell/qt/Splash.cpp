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

    const QSize logo(width() * 3 / 4, height() * 2 / 5);
    painter.drawPixmap((width() - logo.width()) / 2, height() / 5,
                       Drawings::picture("Logo", logo, devicePixelRatioF(), ink));
    const QRect lower(0, height() * 2 / 3, width(), height() / 3);
    painter.drawText(lower, Qt::AlignHCenter | Qt::AlignTop,
                     "Model aircraft, from the first line to the plan\n\n" + version_);
}

void Splash::keyPressEvent(QKeyEvent*) {
    close();
}

void Splash::mousePressEvent(QMouseEvent*) {
    close();
}

}  // namespace velna
