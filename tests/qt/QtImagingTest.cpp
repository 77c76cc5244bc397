#include <QImage>
#include <QImageWriter>
#include <QProgressBar>
#include <QScreen>
#include <QWidget>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "shell/qt/PictureReading.h"
#include "shell/qt/QtImaging.h"
#include "support/TemporaryFolder.h"

namespace velna {
namespace {

class Pictures : public testing::Test {
protected:
    std::string write(const QImage& image, const char* name, const char* format) {
        const std::string file = folder.path() + name;
        EXPECT_TRUE(QImageWriter(QString::fromStdString(file), format).write(image)) << format;
        return file;
    }

    // Red on the left, blue on the right, the upper left pixel green.
    static QImage twoHalves(QSize size, QImage::Format format = QImage::Format_RGB32) {
        QImage image(size, QImage::Format_RGB32);
        for (int y = 0; y < size.height(); ++y)
            for (int x = 0; x < size.width(); ++x)
                image.setPixelColor(x, y, x < size.width() / 2 ? Qt::red : Qt::blue);
        image.setPixelColor(0, 0, QColor(0, 255, 0));
        return image.convertToFormat(format);
    }

    bool load(const std::string& file) {
        reason.clear();
        return imaging.load(file, reason);
    }

    QWidget owner;
    QtImaging imaging{owner};
    test::TemporaryFolder folder;
    std::string reason;
};

TEST_F(Pictures, PixelsAreRedGreenBlueRowByRowWithoutPadding) {
    ASSERT_TRUE(load(write(twoHalves({5, 3}), "a.png", "png")));
    const PictureBytes bytes = imaging.pixels();
    ASSERT_EQ(bytes.bytes.size(), 45U);
    EXPECT_EQ(bytes.bytes[1], 255);          // (0, 0) green
    EXPECT_EQ(bytes.bytes[3], 255);          // (1, 0) red
    EXPECT_EQ(bytes.bytes[4 * 3 + 2], 255);  // (4, 0) blue
    EXPECT_EQ(bytes.bytes[15], 255);         // (0, 1) red
}

TEST_F(Pictures, AQuarterTurnIsClockwise) {
    ASSERT_TRUE(load(write(twoHalves({4, 2}), "a.png", "png")));
    imaging.rotateQuarter();
    EXPECT_EQ(imaging.width(), 2);
    EXPECT_EQ(imaging.height(), 4);
    const PictureBytes bytes = imaging.pixels();
    EXPECT_EQ(bytes.bytes[3 + 1], 255);  // the upper left pixel is now at the upper right
    EXPECT_EQ(bytes.bytes[9 * 2 + 2], 255);
}

TEST_F(Pictures, AResizeGivesTheSizeAskedFor) {
    ASSERT_TRUE(load(write(twoHalves({300, 100}), "a.png", "png")));
    imaging.resize(256, 64);
    EXPECT_EQ(imaging.width(), 256);
    EXPECT_EQ(imaging.height(), 64);
    EXPECT_EQ(imaging.pixels().bytes.size(), 256U * 64U * 3U);
}

TEST_F(Pictures, SixteenBitGreyAndTransparentPicturesAreRead) {
    ASSERT_TRUE(load(write(twoHalves({8, 8}, QImage::Format_RGBA64), "a.png", "png")));
    EXPECT_EQ(imaging.pixels().bytes[3], 255);
    ASSERT_TRUE(load(write(twoHalves({8, 8}, QImage::Format_Grayscale16), "b.png", "png")));
    QImage clear(8, 8, QImage::Format_ARGB32);
    clear.fill(Qt::transparent);
    ASSERT_TRUE(load(write(clear, "c.png", "png")));
    EXPECT_EQ(imaging.pixels().bytes[0], 255);
}

TEST_F(Pictures, AFourColourJpegIsReadInItsColours) {
    ASSERT_TRUE(load(VELNA_TEST_DATA "/pictures/cmyk.jpg"));
    const PictureBytes bytes = imaging.pixels();
    EXPECT_GT(bytes.bytes[0], 220);
    EXPECT_LT(bytes.bytes[1], 60);
    EXPECT_LT(bytes.bytes[2], 60);
}

TEST_F(Pictures, OfAnAnimatedGifTheFirstPictureCounts) {
    ASSERT_TRUE(load(VELNA_TEST_DATA "/pictures/two-frames.gif"));
    EXPECT_EQ(imaging.width(), 40);
    EXPECT_EQ(imaging.pixels().bytes[0], 255);  // red, the second is blue
}

TEST_F(Pictures, TheKindIsFoundByContentAndSavedUnderAnyName) {
    ASSERT_TRUE(load(write(twoHalves({64, 32}), "wing.jpg", "bmp")));
    const std::string target = folder.path() + "again.jpg";
    ASSERT_TRUE(imaging.save(target, PictureFormat::Bmp, reason)) << reason;
    std::ifstream file(target, std::ios::binary);
    char magic[2] = {};
    file.read(magic, 2);
    EXPECT_EQ(std::string(magic, 2), "BM");
    EXPECT_EQ(std::filesystem::file_size(target), 54U + 64U * 32U * 3U);  // 24 bits a pixel
    ASSERT_TRUE(imaging.save(target, PictureFormat::Jpeg, reason)) << reason;
    ASSERT_TRUE(load(target));
    EXPECT_EQ(imaging.width(), 64);
}

TEST_F(Pictures, WhatCannotBeReadGivesAReason) {
    std::ofstream(folder.path() + "text.jpg") << "no picture at all";
    std::ofstream(folder.path() + "empty.png");
    for (const char* name : {"text.jpg", "empty.png", "missing.bmp"}) {
        EXPECT_FALSE(load(folder.path() + name)) << name;
        EXPECT_FALSE(reason.empty()) << name;
    }
    EXPECT_FALSE(load(folder.path()));
}

TEST_F(Pictures, AHeaderThatPromisesMoreThanMemoryShouldHoldIsRefused) {
    std::string header = {'B', 'M'};
    const auto number = [&](std::uint32_t value) {
        for (int i = 0; i < 4; ++i) header += static_cast<char>(value >> (8 * i) & 255);
    };
    for (const std::uint32_t value :
         {54U, 0U, 54U, 40U, 30000U, 30000U, 1U | 24U << 16, 0U, 0U, 0U, 0U, 0U, 0U})
        number(value);
    const std::string file = folder.path() + "huge.bmp";
    std::ofstream(file, std::ios::binary) << header;
    EXPECT_FALSE(load(file));
    EXPECT_FALSE(reason.empty());
}

TEST_F(Pictures, APictureBeyondMemoryIsHalvedUntilItFits) {
    EXPECT_EQ(affordablePicture({12000, 9000}), QSize(12000, 9000));
    EXPECT_EQ(affordablePicture({24000, 10000}), QSize(12000, 5000));
    EXPECT_EQ(affordablePicture({65000, 65000}), QSize(8125, 8125));
    EXPECT_EQ(affordablePicture({1, 2000000000}).width(), 1);
    EXPECT_EQ(affordablePicture(QSize()), QSize()) << "a size that no header told";
}

TEST_F(Pictures, TheFormStandsRoundThePictureWithItsBarBelow) {
    ASSERT_TRUE(load(write(twoHalves({64, 32}), "a.png", "png")));
    imaging.showProgress(0);
    const auto& form = *owner.findChild<QWidget*>("Bitmap");
    const auto& bar = *form.findChild<QProgressBar*>("ProgressBar1");
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(form.size(), QSize(64 + 20, 32 + 80));
    EXPECT_EQ(bar.pos(), QPoint(10, 10 + 32 + 10));
    EXPECT_EQ(bar.width(), 64);

    std::vector<int> values;
    QObject::connect(&bar, &QProgressBar::valueChanged, &bar,
                     [&](int value) { values.push_back(value); });
    imaging.pixels();
    EXPECT_EQ(values, (std::vector{10, 20, 30, 40, 50, 60, 70, 80, 90}));
    imaging.hideProgress();
    EXPECT_EQ(owner.findChild<QWidget*>("Bitmap"), nullptr);

    // Larger than any screen.
    ASSERT_TRUE(load(write(twoHalves({40, 20000}), "b.png", "png")));
    imaging.showProgress(0);
    const auto& tall = *owner.findChild<QWidget*>("Bitmap");
    EXPECT_LE(tall.height(), tall.screen()->availableSize().height());
    imaging.hideProgress();
}

TEST_F(Pictures, ACutPictureIsNoCrash) {
    const std::string whole = write(twoHalves({200, 100}), "a.jpg", "jpg");
    std::ifstream in(whole, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(in), {}};
    for (std::size_t length = 0; length < bytes.size(); length += 97) {
        const std::string cut = folder.path() + "cut.jpg";
        std::ofstream(cut, std::ios::binary) << bytes.substr(0, length);
        if (load(cut))
            EXPECT_EQ(imaging.width(), 200);
        else
            EXPECT_FALSE(reason.empty());
    }
}

TEST_F(Pictures, AFailedSaveLeavesTheOldFileAndTellsTheReason) {
    ASSERT_TRUE(load(write(twoHalves({8, 8}), "a.png", "png")));
    EXPECT_FALSE(imaging.save(folder.path() + "none/a.bmp", PictureFormat::Bmp, reason));
    EXPECT_FALSE(reason.empty());
}

TEST_F(Pictures, NarrowPicturesKeepTheirSingleColumn) {
    ASSERT_TRUE(load(write(twoHalves({1, 1}), "a.png", "png")));
    EXPECT_EQ(imaging.pixels().bytes.size(), 3U);
    ASSERT_TRUE(load(write(twoHalves({1, 8192}), "b.png", "png")));
    EXPECT_EQ(imaging.height(), 8192);
}

}  // namespace
}  // namespace velna
