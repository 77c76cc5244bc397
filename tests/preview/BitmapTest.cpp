#include <climits>

#include "PreviewFixture.h"
#include "preview/Bitmap.h"
#include "support/TemporaryFolder.h"

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

TEST_F(BitmapTest, ConvertedPictureTakesTheExtensionJpg) {
    pictures.pictures["/a/body.bmp"] = plainPicture(1000, 700);
    EXPECT_EQ(Bitmap::convertJPG("/a/body.bmp", "body.bmp", "/out/", true), "body.jpg");
    ASSERT_EQ(pictures.saved.size(), 1u);
    EXPECT_EQ(pictures.saved[0].file, "/out/body.jpg");
    EXPECT_EQ(pictures.saved[0].format, PictureFormat::Jpeg);
    EXPECT_EQ(pictures.saved[0].picture.width, 512);
    EXPECT_EQ(pictures.saved[0].picture.height, 512);
}

// Three characters go whatever they are: a point belongs to a three-letter extension only.
TEST_F(BitmapTest, ConvertedNameExchangesTheLastThreeCharacters) {
    pictures.pictures["/a/p"] = plainPicture(4, 4);
    EXPECT_EQ(Bitmap::convertJPG("/a/p", "wood.jpeg", "/out/", true), "wood.jjpg");
    EXPECT_EQ(Bitmap::convertJPG("/a/p", "photo", "/out/", true), "phjpg");
    EXPECT_EQ(Bitmap::convertJPG("/a/p", "ab", "/out/", true), "jpg");
    EXPECT_EQ(Bitmap::convertJPG("/a/p", "", "/out/", true), "jpg");
}

TEST_F(BitmapTest, PictureIsTurnedClockwiseWhenRotIsFalse) {
    PictureBytes wide = plainPicture(2, 1);
    wide.bytes = {1, 2, 3, 4, 5, 6};
    pictures.pictures["/a/wide.bmp"] = wide;
    Bitmap::convertJPG("/a/wide.bmp", "wide.bmp", "/out/", false);
    Bitmap::convertJPG("/a/wide.bmp", "other.bmp", "/out/", true);
    ASSERT_EQ(pictures.saved.size(), 2u);
    EXPECT_EQ(pictures.saved[0].picture.width, 1);
    EXPECT_EQ(pictures.saved[0].picture.height, 2);
    EXPECT_EQ(pictures.saved[0].picture.bytes, wide.bytes);
    EXPECT_EQ(pictures.saved[1].picture.width, 2);
}

TEST_F(BitmapTest, NoPictureGivesNoName) {
    EXPECT_EQ(Bitmap::convertJPG("", "x.bmp", "/out/", true), "");
    EXPECT_TRUE(pictures.loads.empty());
}

TEST_F(BitmapTest, UnreadablePictureGivesNoName) {
    EXPECT_EQ(Bitmap::convertJPG("/nowhere/x.bmp", "x.bmp", "/out/", true), "");
    EXPECT_TRUE(pictures.saved.empty());
    EXPECT_TRUE(pictures.errors.empty());
}

TEST_F(BitmapTest, UnwrittenPictureGivesNoNameAndIsTriedAgain) {
    pictures.pictures["/a/x.bmp"] = plainPicture(4, 4);
    pictures.saveFailure = "No space left on device";
    EXPECT_EQ(Bitmap::convertJPG("/a/x.bmp", "x.bmp", "/out/", true), "");
    pictures.saveFailure.clear();
    EXPECT_EQ(Bitmap::convertJPG("/a/x.bmp", "x.bmp", "/out/", true), "x.jpg");
}

TEST_F(BitmapTest, WithoutAnImagingNothingIsConverted) {
    imaging = nullptr;
    EXPECT_EQ(Bitmap::convertJPG("/a/x.bmp", "x.bmp", "/out/", true), "");
    EXPECT_FALSE(Bitmap::saveTarget("/a/x.bmp", "x.bmp", "/out/").empty());
}

TEST_F(BitmapTest, SamePictureIsConvertedOnceAnExport) {
    pictures.pictures["/a/x.bmp"] = plainPicture(4, 4);
    EXPECT_EQ(Bitmap::convertJPG("/a/x.bmp", "x.bmp", "/out/", false), "x.jpg");
    EXPECT_EQ(Bitmap::convertJPG("/a/x.bmp", "x.bmp", "/out/", false), "x.jpg");
    EXPECT_EQ(pictures.saved.size(), 1u);
    Bitmap::beginExport();
    Bitmap::convertJPG("/a/x.bmp", "x.bmp", "/out/", false);
    EXPECT_EQ(pictures.saved.size(), 2u);
}

// A wing and a fuselage with one picture share a file name but not its sense: the last one's
// stands.
TEST_F(BitmapTest, OtherSenseOfTheSameFileIsWrittenAgain) {
    pictures.pictures["/a/x.bmp"] = plainPicture(8, 4);
    Bitmap::convertJPG("/a/x.bmp", "x.bmp", "/out/", false);
    Bitmap::convertJPG("/a/x.bmp", "x.bmp", "/out/", true);
    Bitmap::convertJPG("/a/x.bmp", "x.bmp", "/out/", false);
    ASSERT_EQ(pictures.saved.size(), 3u);
    EXPECT_EQ(pictures.saved[2].picture.width, 4);
}

TEST_F(BitmapTest, ExportNeverOverwritesItsSource) {
    pictures.pictures["/a/wood.jpg"] = plainPicture(4, 4);
    EXPECT_EQ(Bitmap::convertJPG("/a/wood.jpg", "wood.jpg", "/a/", true), "wood-model.jpg");
    EXPECT_EQ(pictures.saved[0].file, "/a/wood-model.jpg");
}

TEST_F(BitmapTest, ExportKnowsItsSourceUnderAnotherPath) {
    const TemporaryFolder folder;
    writeBytes(folder / "wood.jpg", "picture");
    const std::string detour = folder / "./wood.jpg";
    pictures.pictures[detour] = plainPicture(4, 4);
    EXPECT_EQ(Bitmap::convertJPG(detour, "wood.jpg", folder.path(), true), "wood-model.jpg");
}

TEST_F(BitmapTest, ExportOverwritesNoOtherObjectsPictureEither) {
    pictures.pictures["/a/wood.bmp"] = plainPicture(4, 4);
    Stabilizer.set_texture_filename("/a/wood.jpg");
    Rudder.texture_filename = "/a/wood-model.jpg";
    EXPECT_EQ(Bitmap::convertJPG("/a/wood.bmp", "wood.bmp", "/a/", true), "wood-model-model.jpg");
}

TEST_F(BitmapTest, SideFileKeepsTheNameAndHoldsABitmap) {
    pictures.pictures["/a/wood.jpg"] = plainPicture(300, 512);
    EXPECT_EQ(Bitmap::saveTarget("/a/wood.jpg", "wood.jpg", "/project/"), "");
    ASSERT_EQ(pictures.saved.size(), 1u);
    EXPECT_EQ(pictures.saved[0].file, "/project/wood.jpg");
    EXPECT_EQ(pictures.saved[0].format, PictureFormat::Bmp);
    EXPECT_EQ(pictures.saved[0].picture.width, 256);
    EXPECT_EQ(pictures.saved[0].picture.height, 512);
}

TEST_F(BitmapTest, SideFileOfNoPictureIsNone) {
    EXPECT_EQ(Bitmap::saveTarget("", "x.bmp", "/project/"), "");
    EXPECT_TRUE(pictures.loads.empty());
}

TEST_F(BitmapTest, SideFileThatIsTheSourceStaysAsItIs) {
    const TemporaryFolder folder;
    writeBytes(folder / "wood.bmp", "picture");
    EXPECT_EQ(Bitmap::saveTarget(folder / "wood.bmp", "wood.bmp", folder.path()), "");
    EXPECT_EQ(Bitmap::saveTarget(folder / "./wood.bmp", "wood.bmp", folder.path()), "");
    EXPECT_TRUE(pictures.loads.empty());
    EXPECT_EQ(bytesOf(folder / "wood.bmp"), "picture");
}

TEST_F(BitmapTest, SideFileOverwritesNoOtherObjectsPicture) {
    const TemporaryFolder folder;
    writeBytes(folder / "wood.bmp", "picture");
    pictures.pictures["/a/wood.bmp"] = plainPicture(4, 4);
    Rudder.texture_filename = folder / "wood.bmp";
    EXPECT_EQ(Bitmap::saveTarget("/a/wood.bmp", "wood.bmp", folder.path()),
              "another object's picture stands there");
    EXPECT_TRUE(pictures.saved.empty());
    // A picture that has vanished from there is no loss.
    std::filesystem::remove(folder / "wood.bmp");
    EXPECT_EQ(Bitmap::saveTarget("/a/wood.bmp", "wood.bmp", folder.path()), "");
}

TEST_F(BitmapTest, FailedSideFileTellsItsReason) {
    EXPECT_EQ(Bitmap::saveTarget("/nowhere/x.bmp", "x.bmp", "/project/"), "cannot be read");
    pictures.pictures["/a/x.bmp"] = plainPicture(4, 4);
    pictures.saveFailure = "No space left on device";
    EXPECT_EQ(Bitmap::saveTarget("/a/x.bmp", "x.bmp", "/project/"), "No space left on device");
}

}  // namespace
}  // namespace velna::test
