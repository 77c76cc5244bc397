#pragma once

#include <QObject>

class QKeyEvent;
class QWidget;

namespace velna {

struct Application;

/// The keys that give commands everywhere in the main window, beside the letters over the drawing.
/// What has been typed into a text box is committed first, as by each key there. In a drag they do
/// nothing.
class CommandKeys : public QObject {
public:
    CommandKeys(QWidget& window, Application& program);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget& window_;
    Application& program_;
};

}  // namespace velna
