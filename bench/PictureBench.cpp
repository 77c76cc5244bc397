// The conversion of a large picture into a wing's texture beside what the toolkit alone needs to
// load, turn and scale it and to pass once over its pixels.

#include <QApplication>
#include <QImage>
#include <QTemporaryDir>
#include <QTransform>
#include <QWidget>
#include <cstring>
#include <vector>

#include <benchmark/benchmark.h>

#include "model/Plane.h"
#include "preview/Imaging.h"
#include "shell/qt/QtImaging.h"
#include "support/OffscreenContext.h"

namespace velna {
namespace {

constexpr int side = 4096;

/// A file with a picture that no coder finds easy, nor impossible.
const QString& pictureFile() {
    static const QTemporaryDir folder;
    static const QString file = [] {
        QImage picture(side, side, QImage::Format_RGB32);
        for (int y = 0; y < side; ++y)
            for (int x = 0; x < side; ++x)
                picture.setPixel(x, y, qRgb(x * y / side & 255, (x ^ y) & 255, (x + y) / 32 & 255));
        const QString name = folder.filePath("wood.jpg");
        picture.save(name, "JPEG", 90);
        return name;
    }();
    return file;
}

void convertWingPicture(benchmark::State& state) {
    test::OffscreenContext context(64, 64);
    if (!context.create()) {
        state.SkipWithError("no OpenGL that draws off screen");
        return;
    }
    QWidget owner;
    QtImaging pictures(owner);
    imaging = &pictures;
    Plane::setDefaultPlane();
    Plane::createAllSolids();
    WingSection& wing = *Wings(1).Left;
    wing.texture_filename = pictureFile().toStdString();
    for (auto _ : state) {
        wing.texture_loaded = false;
        wing.convertPicture();
    }
    if (wing.xtex != side) state.SkipWithError("not converted");
    imaging = nullptr;
}
BENCHMARK(convertWingPicture)->Unit(benchmark::kMillisecond);

void toolkitAlone(benchmark::State& state) {
    std::vector<unsigned char> texels(3UL * side * side);
    const QString& file = pictureFile();
    for (auto _ : state) {
        const QImage turned =
            QImage(file)
                .transformed(QTransform().rotate(90))
                .scaled(side, side, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        unsigned char* texel = texels.data();
        for (int y = 0; y < side; ++y) {
            const auto* row = reinterpret_cast<const QRgb*>(turned.constScanLine(y));
            for (int x = 0; x < side; ++x) {
                *texel++ = static_cast<unsigned char>(qRed(row[x]));
                *texel++ = static_cast<unsigned char>(qGreen(row[x]));
                *texel++ = static_cast<unsigned char>(qBlue(row[x]));
            }
        }
        benchmark::ClobberMemory();
    }
}
BENCHMARK(toolkitAlone)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace velna

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
