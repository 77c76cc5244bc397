#pragma once

#include "shell/qt/ImageSurface.h"

class QPaintEvent;
class QWidget;

namespace velna {

/// A drawing surface that a widget shows.
class QtSurface : public ImageSurface {
public:
    explicit QtSurface(QWidget& widget) : widget_(widget) {}

    /// Takes the widget's size and the screen's density; a new size makes the paper blank.
    void fitToWidget();
    /// Copies the part that the event asks for to the screen.
    void show(const QPaintEvent& event);

    double width() const override;
    double height() const override;
    void refresh() override;
    void setFocus() override;

private:
    QWidget& widget_;
};

}  // namespace velna
