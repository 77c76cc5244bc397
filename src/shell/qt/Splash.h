#pragma once

#include <QWidget>

namespace velna {

/// The picture shown while the program starts. A key or a click closes it, with no other effect.
class Splash : public QWidget {
public:
    Splash(const QString& version, bool smallFonts);

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    QString version_;
};

}  // namespace velna
