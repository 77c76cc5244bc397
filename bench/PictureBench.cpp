// The conversion of a large picture into a wing's texture beside what the toolkit alone needs to
// load, turn and scale it and to pass once over its pixels; and a hundred wings with that picture
// beside one such wing.

#include <QApplication>
#include <QImage>
#include <QTemporaryDir>
#include <QTransform>
#include <QWidget>
#include <algorithm>
#include <chrono>
#include <cstring>
#include <memory>
#include <vector>

#include <benchmark/benchmark.h>

#include "preview/Imaging.h"
#include "preview/Rendering.h"
#include "preview/Textures.h"
#include "shell/qt/QtImaging.h"
#include "support/InHand.h"
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

/// A real OpenGL and a real reader for `wings` wings with that one picture.
class WingsWithPictures {
public:
    explicit WingsWithPictures(int wings) {
        rendering_.context = &context_;
        rendering_.createRenderContext();
        rendering_.imaging = &pictures_;
        resetModel();
        while (nbWings < wings) {
            ++nbWings;
            MainWing::addWing(project);
        }
        for (int i = 1; i <= nbWings; ++i)
            Wings(i).set_texture_filename(pictureFile().toStdString());
    }
    WingsWithPictures(const WingsWithPictures&) = delete;
    WingsWithPictures& operator=(const WingsWithPictures&) = delete;

    bool ready() const { return rendering_.contextCreated; }
    void render() { rendering_.renderScene(true); }
    void convertPictures() { Textures::convertPictures(project, solids, &pictures_); }
    static void forgetPictures() {
        for (int i = 1; i <= nbWings; ++i) {
            solids.wings(i).Left.picture.texture_loaded = false;
            solids.wings(i).Right.picture.texture_loaded = false;
        }
    }

private:
    test::OffscreenContext context_{64, 64};
    QWidget owner_;
    QtImaging pictures_{owner_};
    Rendering rendering_{project, solids};
};

void convertWingPicture(benchmark::State& state) {
    WingsWithPictures wings(1);
    if (!wings.ready()) return state.SkipWithError("no OpenGL that draws off screen");
    solids.createAll(project);
    for (auto _ : state) {
        WingsWithPictures::forgetPictures();
        wings.convertPictures();
    }
    if (solids.wings(1).Left.picture.xtex != side) state.SkipWithError("not converted");
}
BENCHMARK(convertWingPicture)->Unit(benchmark::kMillisecond);

/// What opening a project shows first: the pictures converted, the list built and called.
void firstPictureOfWings(benchmark::State& state) {
    WingsWithPictures wings(static_cast<int>(state.range(0)));
    if (!wings.ready()) return state.SkipWithError("no OpenGL that draws off screen");
    for (auto _ : state) {
        WingsWithPictures::forgetPictures();
        wings.render();
    }
    if (solids.wings(nbWings).Right.picture.xtex != side) state.SkipWithError("not converted");
}
BENCHMARK(firstPictureOfWings)->ArgName("wings")->Arg(1)->Arg(100)->Unit(benchmark::kMillisecond);

/// How much more a hundred wings with one picture take than one such wing, in one run.
void hundredWingsToOne(benchmark::State& state) {
    const auto timeOf = [&state](int count) {
        WingsWithPictures wings(count);
        if (!wings.ready()) state.SkipWithError("no OpenGL that draws off screen");
        double best = 1e9;
        for (int i = 0; i < 5; ++i) {
            WingsWithPictures::forgetPictures();
            const auto start = std::chrono::steady_clock::now();
            wings.render();
            const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
            best = std::min(best, time.count());
        }
        return best;
    };
    for (auto _ : state) state.counters["ratio"] = timeOf(100) / timeOf(1);
}
BENCHMARK(hundredWingsToOne)->Iterations(1)->Unit(benchmark::kMillisecond);

void toolkitAlone(benchmark::State& state) {
    const QString& file = pictureFile();
    for (auto _ : state) {
        // A picture's bytes are new memory each time, as the program's are.
        const auto texels = std::make_unique_for_overwrite<unsigned char[]>(3UL * side * side);
        const QImage turned =
            QImage(file)
                .transformed(QTransform().rotate(90))
                .scaled(side, side, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        unsigned char* texel = texels.get();
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
