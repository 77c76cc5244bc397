#include "shell/qt/ListBar.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionFocusRect>

namespace velna {

ListBar::ListBar(QWidget* parent) : QScrollBar(Qt::Horizontal, parent) {
    setFocusPolicy(Qt::TabFocus);
}

// The toolkit's arrows are those of a page: right would step back.
void ListBar::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Right) {
        triggerAction(SliderSingleStepAdd);
    } else if (event->key() == Qt::Key_Left) {
        triggerAction(SliderSingleStepSub);
    } else {
        QScrollBar::keyPressEvent(event);
    }
}

// The style shows no focus on a scroll bar.
void ListBar::paintEvent(QPaintEvent* event) {
    QScrollBar::paintEvent(event);
    if (!hasFocus()) return;
    QPainter painter(this);
    QStyleOptionFocusRect focus;
    focus.initFrom(this);
    focus.state |= QStyle::State_KeyboardFocusChange;
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, this);
}

}  // namespace velna
