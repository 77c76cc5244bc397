// What is read as a picture, and what is not.

#include <QByteArray>
#include <QImage>
#include <QImageReader>
#include <QImageWriter>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "shell/qt/PictureReading.h"
#include "support/TemporaryFolder.h"

namespace velna {
namespace {

class PictureReading : public testing::Test {
protected:
    QImage read(const std::string& name) {
        reason.clear();
        return readPicture(folder.path() + name, {}, reason);
    }
    void write(const std::string& name, const QImage& image, const char* format) {
        EXPECT_TRUE(QImageWriter(QString::fromStdString(folder.path() + name), format).write(image))
            << format;
    }
    void writeBytes(const std::string& name, const std::string& bytes) {
        std::ofstream(folder.path() + name, std::ios::binary) << bytes;
    }
    static std::string bytesOf(const std::string& file) {
        std::ifstream in(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }
    static QImage red(int width, int height) {
        QImage image(width, height, QImage::Format_RGB32);
        image.fill(Qt::red);
        return image;
    }
    /// A bitmap of 24 bits as its header promises it, with nothing behind.
    static std::string bitmapHeader(std::uint32_t width, std::uint32_t height) {
        std::string header = "BM";
        for (const std::uint32_t value :
             {54U, 0U, 54U, 40U, width, height, 1U | 24U << 16, 0U, 0U, 0U, 0U, 0U, 0U})
            for (int i = 0; i < 4; ++i) header += static_cast<char>(value >> (8 * i) & 255);
        return header;
    }

    test::TemporaryFolder folder;
    std::string reason;
};

TEST_F(PictureReading, SixKindsAreReadWhateverTheirNamesSay) {
    for (const char* format : {"bmp", "ico", "jpeg", "png", "tiff"}) {
        write("picture.txt", red(40, 20), format);
        EXPECT_EQ(read("picture.txt").size(), QSize(40, 20)) << format << ": " << reason;
        EXPECT_EQ(readPictureSize(folder.path() + "picture.txt"), QSize(40, 20)) << format;
    }
    writeBytes("picture.bmp", bytesOf(VELNA_TEST_DATA "/pictures/two-frames.gif"));
    EXPECT_EQ(read("picture.bmp").width(), 40) << reason;
}

// The toolkit would read these, and its own drawings are such: as a picture each is refused.
TEST_F(PictureReading, OtherKindsAreNoPictures) {
    const std::string drawing = R"(<svg xmlns="http://www.w3.org/2000/svg" width="10" height="10">)"
                                R"(<rect width="10" height="10" fill="red"/></svg>)";
    ASSERT_TRUE(QImageReader::supportedImageFormats().contains("svg"));
    const std::string zipped = "\x1f\x8b\x08";
    for (const auto& [name, bytes] : {std::pair<std::string, std::string>{"a.svg", drawing},
                                      {"a.png", drawing},
                                      {"a.svgz", zipped + drawing},
                                      {"a.ppm", "P3 1 1 255 255 0 0\n"},
                                      {"a.jpg", "no picture at all"},
                                      {"empty.bmp", ""},
                                      {"cursor.ico", std::string("\0\0\2\0\1\0", 6)}}) {
        writeBytes(name, bytes);
        EXPECT_TRUE(read(name).isNull()) << name;
        EXPECT_FALSE(reason.empty()) << name;
        EXPECT_FALSE(readPictureSize(folder.path() + name).isValid()) << name;
    }
    for (const char* format : {"ppm", "xpm", "webp"}) {
        if (!QImageWriter::supportedImageFormats().contains(format)) continue;
        write("other.bmp", red(8, 8), format);
        EXPECT_TRUE(read("other.bmp").isNull()) << format;
    }
}

// A pipe that nobody writes to would hold the program for good.
TEST_F(PictureReading, OnlyRegularFilesAreOpened) {
    ASSERT_EQ(mkfifo((folder.path() + "pipe.bmp").c_str(), 0600), 0);
    // One that holds a picture is none either.
    write("whole.bmp", red(4, 4), "bmp");
    ASSERT_EQ(mkfifo((folder.path() + "full.bmp").c_str(), 0600), 0);
    const int writer = ::open((folder.path() + "full.bmp").c_str(), O_RDWR);
    const std::string bytes = bytesOf(folder.path() + "whole.bmp");
    ASSERT_EQ(::write(writer, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
    std::filesystem::create_directory(folder.path() + "folder.bmp");
    for (const std::string& name :
         {folder.path() + "pipe.bmp", folder.path() + "folder.bmp", folder.path() + "missing.bmp",
          std::string("/dev/zero"), std::string()}) {
        reason.clear();
        EXPECT_TRUE(readPicture(name, {}, reason).isNull()) << name;
        EXPECT_FALSE(reason.empty()) << name;
        EXPECT_FALSE(readPictureSize(name).isValid()) << name;
    }
    ::close(writer);
}

TEST_F(PictureReading, ANameThatIsNoTextIsFound) {
    const std::string name =
        "fl\xfc"
        "gel.bmp";
    write("wing.bmp", red(8, 4), "bmp");
    std::filesystem::rename(folder.path() + "wing.bmp", folder.path() + name);
    EXPECT_EQ(read(name).size(), QSize(8, 4)) << reason;
    EXPECT_EQ(readPictureSize(folder.path() + name), QSize(8, 4));
    std::filesystem::create_directory(folder.path() + "b\xe4ume");
    std::filesystem::rename(folder.path() + name, folder.path() + "b\xe4ume/" + name);
    EXPECT_EQ(read("b\xe4ume/" + name).size(), QSize(8, 4)) << reason;
}

TEST_F(PictureReading, MoreThanAHundredMegapixelsAreRefusedUnread) {
    writeBytes("huge.bmp", bitmapHeader(10001, 10000));
    EXPECT_TRUE(read("huge.bmp").isNull());
    EXPECT_EQ(reason, "The picture has more than 100 megapixels");
    EXPECT_FALSE(readPictureSize(folder.path() + "huge.bmp").isValid());
    writeBytes("overflow.bmp", bitmapHeader(0x7fffffff, 0x7fffffff));
    EXPECT_TRUE(read("overflow.bmp").isNull());
    EXPECT_FALSE(reason.empty());
}

// The drawing area paints it smaller, but would not keep it to a hundred either.
TEST_F(PictureReading, ASmallerSizeAskedForLetsNoLargerPictureThrough) {
    writeBytes("huge.bmp", bitmapHeader(10001, 10000));
    EXPECT_TRUE(readPicture(folder.path() + "huge.bmp", {100, 100}, reason).isNull());
    EXPECT_EQ(reason, "The picture has more than 100 megapixels");
}

TEST_F(PictureReading, AHundredMegapixelsAreReadHoweverDeepTheirPixels) {
    EXPECT_EQ(mostPixels, 100'000'000);
    QImage deep(5000, 2000, QImage::Format_RGBA64);
    deep.fill(Qt::blue);
    write("deep.png", deep, "png");
    EXPECT_EQ(read("deep.png").format(), QImage::Format_RGBA64) << reason;
    EXPECT_GE(QImageReader::allocationLimit(), 8 * 10'000'000 >> 20);
    writeBytes("whole.bmp", bitmapHeader(10000, 10000));
    EXPECT_EQ(readPictureSize(folder.path() + "whole.bmp"), QSize(10000, 10000));
    read("whole.bmp");
    EXPECT_GE(QImageReader::allocationLimit(), 16 * 100'000'000LL >> 20);
}

// A header of a few pixels may hide another picture behind it.
TEST_F(PictureReading, APictureThatIsLargerThanItsHeaderTellsHasNoMoreRoom) {
    write("small.ico", red(32, 32), "ico");
    ASSERT_FALSE(read("small.ico").isNull());
    EXPECT_LE(QImageReader::allocationLimit(), (4 * 100'000'000LL >> 20) + 1);
}

TEST_F(PictureReading, AFileBeyondAllPicturesIsNotRead) {
    writeBytes("long.jpg", "\xff\xd8\xff");
    std::filesystem::resize_file(folder.path() + "long.jpg", std::uintmax_t{3} << 30);
    EXPECT_TRUE(read("long.jpg").isNull());
    EXPECT_EQ(reason, "Not a picture file");
}

}  // namespace
}  // namespace velna
