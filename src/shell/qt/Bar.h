#pragma once

#include <QWidget>
#include <vector>

class QToolButton;

namespace velna {

class Mirrors;
struct ToolbarCommands;

/// The toolbar `Bar`: one button for each row of the toolbar's table. A plain row of buttons: a
/// `QToolBar` looks for the picture of a button that it would need if it were too narrow, and every
/// library of picture formats is loaded for that before the window can be shown.
class Bar : public QWidget {
public:
    Bar(ToolbarCommands& commands, Mirrors& mirrors, QWidget* parent);

protected:
    void changeEvent(QEvent* event) override;

private:
    void drawIcons();

    std::vector<QToolButton*> buttons_;  // in the order of the table
};

}  // namespace velna
