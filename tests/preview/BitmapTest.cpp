#include <climits>

#include "PreviewFixture.h"
#include "preview/Bitmap.h"

namespace velna::test {
namespace {

using BitmapTest = PreviewTest;

TEST_F(BitmapTest, SizesGoDownToAPowerOfTwo) {
    for (const auto& row : sceneCases("picture_size")["table"])
        EXPECT_EQ(Bitmap::roundedSize(row[0].get<int>()), row[1].get<int>()) << row;
    EXPECT_EQ(Bitmap::roundedSize(0), 1);
    EXPECT_EQ(Bitmap::roundedSize(-7), 1);
    EXPECT_EQ(Bitmap::roundedSize(INT_MAX), 1 << 30);
}

TEST_F(BitmapTest, ConvertedPictureHasRoundedSizes) {
    pictures.pictures["/a/body.bmp"] = plainPicture(1000, 300);
    const auto result = Bitmap::converted(&pictures, "/a/body.bmp", false, PictureFormat::Jpeg);
    EXPECT_TRUE(result.bytes.starts_with("jpeg 512 x 256 "));
    EXPECT_EQ(result.unreadable + result.unwritable, "");
}

TEST_F(BitmapTest, PictureIsTurnedClockwise) {
    PictureBytes wide = plainPicture(2, 1);
    wide.bytes = {1, 2, 3, 4, 5, 6};
    pictures.pictures["/a/wide.bmp"] = wide;
    Bitmap::converted(&pictures, "/a/wide.bmp", true, PictureFormat::Jpeg);
    ASSERT_EQ(pictures.saved.size(), 1u);
    EXPECT_EQ(pictures.saved[0].picture.width, 1);
    EXPECT_EQ(pictures.saved[0].picture.height, 2);
    EXPECT_EQ(pictures.saved[0].picture.bytes, wide.bytes);
}

TEST_F(BitmapTest, WhatCannotBeReadAndWhatCannotBeWrittenAreToldApart) {
    auto result = Bitmap::converted(&pictures, "/a/x.bmp", false, PictureFormat::Bmp);
    EXPECT_EQ(result.unreadable, "cannot be read");
    EXPECT_EQ(result.unwritable, "");
    pictures.pictures["/a/x.bmp"] = plainPicture(4, 4);
    pictures.encodeFailure = "no memory";
    result = Bitmap::converted(&pictures, "/a/x.bmp", false, PictureFormat::Bmp);
    EXPECT_EQ(result.unreadable, "");
    EXPECT_EQ(result.unwritable, "no memory");
    EXPECT_NE(Bitmap::converted(nullptr, "/a/x.bmp", false, PictureFormat::Bmp).unreadable, "");
}

}  // namespace
}  // namespace velna::test
