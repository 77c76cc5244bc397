#pragma once

#include <QLineEdit>
#include <QWidget>

#include "shell/qt/PanelPlaces.h"

class QLabel;

namespace velna {

class MainForm;
class Mirrors;

/// A text box of the panel. Every key that goes down in it commits the text as it stands before the
/// key takes effect; losing the focus commits nothing.
class ParameterBox : public QLineEdit {
public:
    ParameterBox(MainForm& main, Control control, QWidget* parent);

    Control control() const { return control_; }

    /// Shows what the logic holds for the box: its text, but not between the digits that are being
    /// typed; a tint and a tip where the model does not hold all of that text.
    void showState(const ControlState& state);

    /// Commits what has been typed, as each key does here.
    void commitTyped();

protected:
    bool event(QEvent* event) override;
    void initStyleOption(QStyleOptionFrame* option) const override;
    void keyReleaseEvent(QKeyEvent* event) override;

private:
    void showText(const QString& shown);

    MainForm& main_;
    Control control_;
    bool typing_ = false;  // the text is being changed, or a key that will is committing it
};

/// A text box with its caption and its drawing.
class ParameterCell : public QWidget {
public:
    ParameterCell(MainForm& main, const PanelPlace& place, QSize pictureSize, Mirrors& mirrors,
                  QWidget* parent);

    /// Draws its picture anew, in the ink and the density of now; where the page is not shown, the
    /// next showing does.
    void renewPicture();

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void drawPicture();

    const MainForm& main_;
    const PanelPlace& place_;
    QSize pictureSize_;
    QLabel* picture_;
};

}  // namespace velna
