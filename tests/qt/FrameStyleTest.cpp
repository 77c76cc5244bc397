// What is drawn of a box to tick, on light and on black.

#include <QImage>
#include <QPainter>
#include <QPalette>
#include <QStyleOption>
#include <algorithm>
#include <cmath>

#include <gtest/gtest.h>

#include "shell/qt/FrameStyle.h"

namespace velna {
namespace {

/// The ratio of lightness of two colours that a reader's eyes need 3 of, from 1 to 21.
double contrast(const QColor& a, const QColor& b) {
    const auto light = [](const QColor& colour) {
        const auto part = [](double value) {
            return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * part(colour.redF()) + 0.7152 * part(colour.greenF()) +
               0.0722 * part(colour.blueF());
    };
    const double one = light(a);
    const double other = light(b);
    return (std::max(one, other) + 0.05) / (std::min(one, other) + 0.05);
}

QPalette black() {
    QPalette palette(Qt::black, Qt::black);
    palette.setColor(QPalette::WindowText, Qt::white);
    palette.setColor(QPalette::Base, Qt::black);
    return palette;
}

QImage drawn(const QStyle& style, QStyle::PrimitiveElement element, const QPalette& palette) {
    QImage image(24, 24, QImage::Format_RGB32);
    image.fill(palette.color(QPalette::Window));
    QPainter painter(&image);
    const auto draw = [&](auto option) {
        option.rect = QRect(4, 4, 16, 16);
        option.palette = palette;
        option.state = QStyle::State_Enabled | QStyle::State_Off;
        style.drawPrimitive(element, &option, &painter, nullptr);
    };
    element == QStyle::PE_IndicatorItemViewItemCheck ? draw(QStyleOptionViewItem())
                                                     : draw(QStyleOptionButton());
    return image;
}

/// The strongest contrast of the image with the window behind it.
double strongest(const QImage& image, const QPalette& palette) {
    double most = 1;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            most =
                std::max(most, contrast(image.pixelColor(x, y), palette.color(QPalette::Window)));
    return most;
}

constexpr QStyle::PrimitiveElement boxes[] = {QStyle::PE_IndicatorCheckBox,
                                              QStyle::PE_IndicatorRadioButton,
                                              QStyle::PE_IndicatorItemViewItemCheck};

TEST(FrameStyle, AnUntickedBoxIsSeenOnBlack) {
    const FrameStyle style;
    for (const auto box : boxes)
        EXPECT_GE(strongest(drawn(style, box, black()), black()), 3) << box;
}

TEST(FrameStyle, OnALightWindowBoxesLookAsEver) {
    const FrameStyle style;
    const QPalette light(QColor(239, 239, 239));
    const QProxyStyle fusion("Fusion");
    for (const auto box : boxes)
        EXPECT_EQ(drawn(style, box, light), drawn(fusion, box, light)) << box;
}

}  // namespace
}  // namespace velna
