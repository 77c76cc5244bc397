#pragma once

#include <QToolBar>
#include <vector>

class QToolButton;

namespace velna {

class Mirrors;

/// The toolbar `Bar`: one button for each row of the toolbar's table.
class Bar : public QToolBar {
public:
    Bar(Mirrors& mirrors, QWidget* parent);

protected:
    void changeEvent(QEvent* event) override;

private:
    void drawIcons();

    std::vector<QToolButton*> buttons_;  // in the order of the table
};

}  // namespace velna
