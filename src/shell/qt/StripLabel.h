#pragma once

#include <QLabel>
#include <QTimer>

namespace velna {

class MainForm;

/// The strip beside the logo: where the pointer is in the aircraft, and beside it what is being
/// dragged or typed.
class StripLabel : public QWidget {
public:
    /// `drawing` is the widget whose accessible value the strip's text is.
    StripLabel(const MainForm& main, QWidget& drawing, QWidget* parent);

    /// Shows what there is to say once the events that wait have been worked off: many a move is
    /// one change of the strip.
    void later();

    /// The whole strip as one text.
    static QString text(const MainForm& main);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void refresh();

    const MainForm& main_;
    QWidget& drawing_;
    QLabel place_;
    QLabel value_;
    QTimer timer_;
};

}  // namespace velna
