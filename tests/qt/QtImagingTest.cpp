#include <QApplication>
#include <QEventLoop>
#include <QImage>
#include <QImageWriter>
#include <QProgressBar>
#include <QScreen>
#include <QTimer>
#include <QWidget>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "shell/qt/QtImaging.h"
#include "support/MemoryLimit.h"
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

TEST_F(Pictures, TheKindIsFoundByContentAndEncodedWhateverTheName) {
    ASSERT_TRUE(load(write(twoHalves({64, 32}), "wing.jpg", "bmp")));
    std::string bytes;
    ASSERT_TRUE(imaging.encode(PictureFormat::Bmp, bytes, reason)) << reason;
    EXPECT_EQ(bytes.substr(0, 2), "BM");
    EXPECT_EQ(bytes.size(), 54U + 64U * 32U * 3U);  // 24 bits a pixel
    ASSERT_TRUE(imaging.encode(PictureFormat::Jpeg, bytes, reason)) << reason;
    const std::string target = folder.path() + "again.bmp";
    test::writeBytes(target, bytes);
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

// Each step in turn finds the memory used up. The room is enough for everything but a picture.
TEST_F(Pictures, NoStepThrowsWhereMemoryHasNoRoom) {
    const std::string file = write(twoHalves({5000, 4000}), "large.png", "png");
    std::string bytes;
    constexpr unsigned long room = 40UL << 20;
    {
        const test::MemoryLimit limit(room);
        EXPECT_FALSE(load(file));
        EXPECT_FALSE(reason.empty());
    }
    const std::function<void()> steps[] = {
        [this] { imaging.rotateQuarter(); },
        [this] { imaging.resize(4096, 4096); },
        [this] { EXPECT_TRUE(imaging.pixels().bytes.empty()); },
        [&] { EXPECT_FALSE(imaging.encode(PictureFormat::Bmp, bytes, reason)); },
        [this] { imaging.showProgress(0); },
    };
    for (const auto& step : steps) {
        ASSERT_TRUE(load(file)) << reason;
        {
            const test::MemoryLimit limit(room);
            step();
        }
        // What comes after a step that failed fails too, and no more.
        imaging.rotateQuarter();
        imaging.resize(64, 64);
        imaging.showProgress(0);
        imaging.pixels();
        imaging.showProgress(100);
        imaging.hideProgress();
        EXPECT_FALSE(imaging.encode(PictureFormat::Bmp, bytes, reason));
    }
    EXPECT_TRUE(bytes.empty());
}

/// Runs `commands` one after the other in an event loop, closing each box; how many there were. Of
/// several within each other the innermost closes them.
std::vector<int> boxesOf(const std::vector<std::function<void()>>& commands) {
    static int depth = 0;
    const int own = ++depth;
    QEventLoop loop;
    int boxes = 0;
    QTimer closer;
    QObject::connect(&closer, &QTimer::timeout, [&] {
        if (own != depth) return;
        if (QWidget* box = QApplication::activeModalWidget()) {
            ++boxes;
            box->close();
        }
    });
    closer.start(1);
    std::vector<int> counts;
    std::size_t next = 0;
    QTimer starter;
    starter.setSingleShot(true);
    QObject::connect(&starter, &QTimer::timeout, [&] {
        boxes = 0;
        commands[next++]();
        counts.push_back(boxes);
        if (next < commands.size())
            starter.start(1);
        else
            loop.quit();
    });
    starter.start(1);
    loop.exec();
    --depth;
    return counts;
}

TEST_F(Pictures, ABoxIsShownOnceACommand) {
    const auto complain = [this](const char* text) { imaging.showError(text); };
    const auto twoHalvesTwice = [&] {
        for (int i = 0; i < 4; ++i) complain("wing");
    };
    const auto thenAnother = [&] {
        complain("wing");
        complain("tail");
        complain("wing");
    };
    EXPECT_EQ(boxesOf({twoHalvesTwice, twoHalvesTwice, [] {}, thenAnother, twoHalvesTwice}),
              (std::vector{1, 1, 0, 2, 1}));
}

// A command may come from a dialog, and open others between two of its pictures.
TEST_F(Pictures, ABoxOfACommandInADialogIsShownOnceToo) {
    const auto command = [this] {
        imaging.showError("wing");
        QCoreApplication::processEvents();
        QEventLoop dialog;
        QTimer::singleShot(20, &dialog, &QEventLoop::quit);
        dialog.exec();
        imaging.showError("wing");
    };
    std::vector<int> inside;
    const auto dialog = [&] { inside = boxesOf({command, command}); };
    EXPECT_EQ(boxesOf({command, dialog, command}), (std::vector{1, 0, 1}));
    EXPECT_EQ(inside, (std::vector{1, 1}));
}

TEST_F(Pictures, WhereNoPictureIsThereIsNothingToEncode) {
    std::string bytes;
    EXPECT_FALSE(imaging.encode(PictureFormat::Bmp, bytes, reason));
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
