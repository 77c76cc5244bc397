// The pointer that tells that the program is at work.

#include <QCursor>
#include <QGuiApplication>
#include <QImage>
#include <optional>
#include <vector>

#include <gtest/gtest.h>

#include "shell/qt/BusyPointer.h"
#include "shell/qt/PictureReading.h"
#include "shell/qt/QtPictures.h"
#include "support/TemporaryFolder.h"

namespace velna::test {
namespace {

std::optional<Qt::CursorShape> pointer() {
    const QCursor* cursor = QGuiApplication::overrideCursor();
    return cursor ? std::optional(cursor->shape()) : std::nullopt;
}

TEST(BusyPointer, IsThereForAsLongAsTheWorkLasts) {
    {
        const BusyPointer outer;
        EXPECT_EQ(pointer(), Qt::WaitCursor);
        {
            const BusyPointer inner;
            EXPECT_EQ(pointer(), Qt::WaitCursor);
        }
        EXPECT_EQ(pointer(), Qt::WaitCursor);
    }
    EXPECT_EQ(pointer(), std::nullopt);
}

TEST(BusyPointer, IsLeftAwayWhereTheWorkIsShort) {
    const BusyPointer pointerOfShortWork(false);
    EXPECT_EQ(pointer(), std::nullopt);
}

/// Looks at the pointer while pixels are copied.
class WatchedPictures : public QtPictures {
public:
    std::vector<std::optional<Qt::CursorShape>> seen;

private:
    void copied(int) override { seen.push_back(pointer()); }
};

std::optional<Qt::CursorShape> pointerAtWorkOn(QSize size) {
    const TemporaryFolder folder;
    const std::string file = folder / "picture.png";
    QImage image(size, QImage::Format_Grayscale8);
    image.fill(100);
    EXPECT_TRUE(image.save(QString::fromStdString(file)));
    WatchedPictures pictures;
    std::string reason;
    EXPECT_TRUE(pictures.load(file, reason)) << reason;
    pictures.pixels();
    EXPECT_FALSE(pictures.seen.empty());
    EXPECT_EQ(pointer(), std::nullopt) << "afterwards";
    return pictures.seen.empty() ? std::nullopt : pictures.seen.front();
}

TEST(BusyPointer, TellsOfALargePictureThatItIsAtWork) {
    EXPECT_EQ(pointerAtWorkOn({2501, 2000}), Qt::WaitCursor);
    EXPECT_EQ(pointerAtWorkOn({2500, 2000}), std::nullopt);
}

}  // namespace
}  // namespace velna::test
