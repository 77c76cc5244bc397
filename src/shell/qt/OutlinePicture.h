#pragma once

#include <QWidget>

#include "model/AirfoilOutline.h"

namespace velna {

/// A small picture of an airfoil's outline, true to its proportions, as large as its room allows.
/// It takes what room is left, and shrinks to nothing before anything else is cut off.
class OutlinePicture : public QWidget {
public:
    explicit OutlinePicture(QWidget* parent = nullptr);

    /// Shows `points`, in chords with the height upward, described by `description` to the pointer
    /// and to a screen reader. What is shown already is not drawn again.
    void setOutline(AirfoilOutline::Points points, const QString& description);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return {0, 0}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QPolygonF inPixels() const;

    AirfoilOutline::Points points_;
};

}  // namespace velna
