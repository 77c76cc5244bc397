#pragma once

#include <QScrollBar>

namespace velna {

/// A bar that chooses one of a list, such as the wing's panels: a control of its own, reached by
/// Tab and worked by the arrows, where the toolkit's scroll bars only go with what they scroll.
class ListBar : public QScrollBar {
public:
    explicit ListBar(QWidget* parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace velna
