#pragma once

#include <QLineEdit>
#include <QWidget>

#include "shell/qt/PanelPlaces.h"

class QLabel;

namespace velna {

class Mirrors;

/// A text box of the panel. Every key that goes down in it commits the text as it stands before the
/// key takes effect; losing the focus commits nothing.
class ParameterBox : public QLineEdit {
public:
    ParameterBox(Control control, QWidget* parent);

    /// Shows a text from the program, but not between the digits that are being typed.
    void showText(const QString& shown);

protected:
    bool event(QEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;

private:
    Control control_;
    bool typing_ = false;  // a key that changes the text is committing what stood before it
};

/// A text box with its caption and its drawing.
class ParameterCell : public QWidget {
public:
    ParameterCell(const PanelPlace& place, QSize pictureSize, Mirrors& mirrors, QWidget* parent);

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void drawPicture();

    const PanelPlace& place_;
    QSize pictureSize_;
    QLabel* picture_;
};

}  // namespace velna
