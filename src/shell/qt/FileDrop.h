#pragma once

#include <QObject>

class QDropEvent;
class QWidget;

namespace velna {

struct ToolbarCommands;

/// Opens the file that is dropped on a window, wherever in it: a text box would take the address
/// for something typed.
class FileDrop : public QObject {
public:
    FileDrop(QWidget& window, ToolbarCommands& toolbar);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool takes(const QDropEvent& event) const;

    QWidget& window_;
    ToolbarCommands& toolbar_;
};

}  // namespace velna
