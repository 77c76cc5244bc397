#pragma once

#include <QWidget>

#include "shell/qt/QtSurface.h"

namespace velna {

/// A widget that shows a drawing surface and nothing else: `DrawSectionArea` is one.
class SurfaceWidget : public QWidget {
public:
    explicit SurfaceWidget(QWidget* parent);

    QtSurface& surface() { return surface_; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QtSurface surface_;
};

}  // namespace velna
