#include "shell/qt/FrameStyle.h"

#include <QStyleOption>

namespace velna {
namespace {

// Those of lists and menus come by way of these two.
bool isBox(QStyle::PrimitiveElement element) {
    return element == QStyle::PE_IndicatorCheckBox || element == QStyle::PE_IndicatorRadioButton;
}

bool isDark(const QPalette& palette) {
    return palette.color(QPalette::WindowText).lightness() >
           palette.color(QPalette::Window).lightness();
}

// Between the window and its letters, nearer to these: what the style darkens from there still
// stands out.
QColor frameBase(const QPalette& palette) {
    const QColor window = palette.color(QPalette::Window);
    const QColor ink = palette.color(QPalette::WindowText);
    const auto mixed = [](int a, int b) { return (a + 2 * b) / 3; };
    return {mixed(window.red(), ink.red()), mixed(window.green(), ink.green()),
            mixed(window.blue(), ink.blue())};
}

}  // namespace

void FrameStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                               QPainter* painter, const QWidget* widget) const {
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
    if (!button || !isBox(element) || !isDark(option->palette)) {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        return;
    }
    QStyleOptionButton framed(*button);
    framed.palette.setColor(QPalette::Window, frameBase(option->palette));
    QProxyStyle::drawPrimitive(element, &framed, painter, widget);
}

}  // namespace velna
