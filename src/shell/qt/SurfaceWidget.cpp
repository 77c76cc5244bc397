#include "shell/qt/SurfaceWidget.h"

namespace velna {

SurfaceWidget::SurfaceWidget(QWidget* parent) : QWidget(parent), surface_(*this) {
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void SurfaceWidget::paintEvent(QPaintEvent* event) {
    surface_.show(*event);
}

void SurfaceWidget::resizeEvent(QResizeEvent*) {
    surface_.fitToWidget();
}

}  // namespace velna
