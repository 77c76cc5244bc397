#include <QImageWriter>
#include <QWidget>
#include <fstream>
#include <limits>
#include <string>

#include <gtest/gtest.h>

#include "shell/qt/QtSurface.h"
#include "support/MemoryLimit.h"
#include "support/TemporaryFolder.h"

namespace velna {
namespace {

class Surfaces : public testing::Test {
protected:
    void SetUp() override {
        widget.resize(120, 80);
        surface.fitToWidget();
    }

    QRgb at(int x, int y) const { return surface.image().pixel(x, y); }

    std::string picture(const char* name, const char* format, QSize size = {40, 20}) {
        QImage image(size, QImage::Format_RGB32);
        image.fill(Qt::red);
        const std::string file = folder.path() + name;
        EXPECT_TRUE(QImageWriter(QString::fromStdString(file), format).write(image)) << format;
        return file;
    }

    QWidget widget;
    QtSurface surface{widget};
    test::TemporaryFolder folder;
};

constexpr QRgb white = 0xffffffffU;

TEST_F(Surfaces, StartsWhiteInTheWidgetsSize) {
    EXPECT_EQ(surface.width(), 120);
    EXPECT_EQ(surface.height(), 80);
    EXPECT_EQ(at(60, 40), white);
}

TEST_F(Surfaces, ALineInWhiteTakesALineOff) {
    surface.line(10, 10, 100, 60, {0, 0, 0});
    EXPECT_EQ(at(10, 10), 0xff000000U);
    surface.line(100, 60, 10, 10, {255, 255, 255});
    EXPECT_EQ(at(10, 10), white);
}

TEST_F(Surfaces, WhileLinesInvertEachIsDrawnOnceAndTakenOffOnce) {
    surface.paintPicture(picture("red.bmp", "bmp"), {0, 0}, {120, 80});
    ASSERT_EQ(at(15, 10), 0xffff0000U);
    surface.setDrawMode(DrawMode::Invert);
    surface.line(10, 10, 20, 10, {255, 255, 255});
    EXPECT_EQ(at(15, 10), 0xffff0000U) << "nothing to take off";
    surface.line(10, 10, 20, 10, {0, 0, 0});
    EXPECT_EQ(at(15, 10), 0xff00ffffU);
    surface.line(20, 10, 10, 10, {192, 192, 192});
    EXPECT_EQ(at(15, 10), 0xff00ffffU) << "stands already";
    surface.line(10, 10, 20, 10, {255, 255, 255});
    EXPECT_EQ(at(15, 10), 0xffff0000U);

    surface.line(10, 10, 20, 10, {0, 0, 0});
    surface.clear();
    surface.line(10, 10, 20, 10, {0, 0, 0});
    EXPECT_EQ(at(15, 10), 0xff000000U) << "a cleared surface has no lines";
}

TEST_F(Surfaces, TheSameSizeKeepsWhatIsDrawn) {
    surface.line(10, 10, 20, 10, {0, 0, 0});
    surface.fitToWidget();
    EXPECT_EQ(at(15, 10), 0xff000000U);
    widget.resize(121, 80);
    surface.fitToWidget();
    EXPECT_EQ(at(15, 10), white);
}

TEST_F(Surfaces, PicturesOfAllKindsAreReadByTheirContent) {
    for (const char* format : {"bmp", "png", "jpg", "ico"}) {
        const std::string file = picture("plan.dat", format);
        const auto size = surface.pictureSize(file);
        ASSERT_TRUE(size.has_value()) << format;
        EXPECT_EQ(*size, (Point2D{40, 20})) << format;
        surface.clear();
        surface.paintPicture(file, {30, 30}, {20, 10});
        EXPECT_GT(qRed(at(40, 35)), 240) << format;
        EXPECT_LT(qGreen(at(40, 35)), 20) << format;
        EXPECT_EQ(at(60, 60), white) << format;
    }
}

TEST_F(Surfaces, RunLengthEncodedBitmapsAreRead) {
    // 8 bits a pixel, 4 x 2, two runs of colour 1, each with its end of line, and the end of the
    // picture.
    const unsigned char file[] = {
        'B', 'M', 76, 0, 0, 0,   0, 0, 0, 0, 62, 0, 0, 0,                    // file header
        40,  0,   0,  0, 4, 0,   0, 0, 2, 0, 0,  0, 1, 0, 8, 0, 1, 0, 0, 0,  // size, planes, RLE8
        10,  0,   0,  0, 0, 0,   0, 0, 0, 0, 0,  0, 2, 0, 0, 0, 0, 0, 0, 0,  // two colours
        0,   0,   0,  0, 0, 255, 0, 0,                                       // black and green
        4,   1,   0,  0, 4, 1,   0, 0, 0, 1, 0,  0, 0, 0};
    const std::string name = folder.path() + "scan.rle";
    std::ofstream(name, std::ios::binary).write(reinterpret_cast<const char*>(file), sizeof file);
    ASSERT_TRUE(surface.pictureSize(name).has_value());
    surface.paintPicture(name, {0, 0}, {40, 20});
    EXPECT_EQ(at(20, 10), qRgb(0, 255, 0));
}

TEST_F(Surfaces, WhatCannotBeReadIsSkipped) {
    std::ofstream(folder.path() + "text.jpg") << "no picture";
    std::ofstream(folder.path() + "empty.bmp");
    for (const char* name : {"text.jpg", "empty.bmp", "missing.png", ""}) {
        EXPECT_FALSE(surface.pictureSize(folder.path() + name).has_value()) << name;
        surface.paintPicture(folder.path() + name, {0, 0}, {40, 20});
        EXPECT_EQ(at(10, 10), white) << name;
    }
}

TEST_F(Surfaces, APictureThatMemoryHasNoRoomForIsSkipped) {
    const std::string file = picture("large.bmp", "bmp", {5000, 4000});
    {
        const test::MemoryLimit limit(40UL << 20);
        surface.paintPicture(file, {0, 0}, {120, 80});
        surface.pictureSize(file);
    }
    EXPECT_EQ(at(60, 40), white);
    surface.paintPicture(file, {0, 0}, {120, 80});
    EXPECT_EQ(at(60, 40), 0xffff0000U);
}

TEST_F(Surfaces, AHugePlaceOrSizeDrawsNothingAndHarmsNothing) {
    const std::string file = picture("plan.bmp", "bmp");
    const double inf = std::numeric_limits<double>::infinity();
    for (const double bad : {1e300, -1e300, inf, -inf, std::numeric_limits<double>::quiet_NaN()}) {
        surface.paintPicture(file, {bad, 0}, {40, 20});
        surface.paintPicture(file, {0, 0}, {bad, 20});
    }
    surface.paintPicture(file, {0, 0}, {0, 0});
    EXPECT_EQ(at(10, 10), white);
    surface.paintPicture(file, {-5000, -5000}, {100000, 100000});
    EXPECT_GT(qRed(at(60, 40)), 240);
}

}  // namespace
}  // namespace velna
