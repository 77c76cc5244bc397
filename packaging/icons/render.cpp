#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <cstdio>

/// Draws an icon in one size: velna_icon IN.svg SIZE OUT.png. Needs no display.
int main(int argc, char** argv) {
    if (argc != 4) {
        std::fputs("usage: velna_icon IN.svg SIZE OUT.png\n", stderr);
        return 2;
    }
    const int size = QByteArray(argv[2]).toInt();
    QSvgRenderer drawing(QString::fromLocal8Bit(argv[1]));
    if (!drawing.isValid() || size < 1) {
        std::fprintf(stderr, "velna_icon: %s cannot be drawn in size %s\n", argv[1], argv[2]);
        return 1;
    }
    QImage image(size, size, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    drawing.render(&painter);
    painter.end();
    return image.save(QString::fromLocal8Bit(argv[3]), "PNG") ? 0 : 1;
}
