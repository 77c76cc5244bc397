#pragma once

#include <QProxyStyle>

namespace velna {

/// The program's style: Fusion, whose boxes to tick can be seen in a dark palette too. Fusion draws
/// their frames darker than the window, which leaves nothing of them on black.
class FrameStyle : public QProxyStyle {
public:
    FrameStyle() : QProxyStyle("Fusion") {}

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
};

}  // namespace velna
