// Which files a save and an export write beside themselves, and which they must leave alone.

#include <filesystem>

#include "common/ReplacedFile.h"
#include "preview/PictureCopies.h"
#include "support/FakeImaging.h"
#include "support/FreshModel.h"
#include "support/TemporaryFolder.h"

namespace velna::test {
namespace {

namespace fs = std::filesystem;

/// A file names the pictures that stand in it between commas.
std::set<std::string> namesBetweenCommas(std::string_view bytes) {
    std::set<std::string> names;
    for (std::size_t at = 0; at < bytes.size();) {
        const auto end = std::min(bytes.find(',', at), bytes.size());
        names.emplace(bytes.substr(at, end - at));
        at = end + 1;
    }
    return names;
}

/// One save or export into the folder `/tmp/.../`, put in place by `done`.
struct Writing {
    Writing(const std::string& target, PictureStore& store)
        : file(target), copies(file, target, namesBetweenCommas, project, store) {}

    std::string done() {
        file.commit();
        if (file.inPlace()) copies.madeHere();
        return file.error();
    }

    ReplacedFile file;
    PictureCopies copies;
};

class PictureCopiesTest : public FreshModel {
protected:
    void SetUp() override {
        FreshModel::SetUp();
        int width = 4;
        for (const char* source : {"/a/sky.jpg", "/b/sky.jpg", "/a/sky.bmp"})
            pictures.pictures[source] = plainPicture(width *= 2, 4);
    }
    /// The copy of a picture 8 or 16 wide.
    static std::string start(const std::string& bytes) { return bytes.substr(0, 10); }

    std::string saved(const std::string& tex, const std::string& title) {
        Writing save(folder / "p.vln", store);
        const std::string name = save.copies.saveTarget(tex, title);
        EXPECT_EQ(save.done(), "");
        return name;
    }
    std::string exported(const std::string& tex, const std::string& title, bool rot = true) {
        Writing model(folder / "p.wrl", store);
        const std::string name = model.copies.convertJPG(tex, title, rot);
        EXPECT_EQ(model.done(), "");
        return name;
    }

    TemporaryFolder folder;
    FakeImaging pictures;
    PictureStore store{&pictures, {}};
};

TEST_F(PictureCopiesTest, ASideFileKeepsTheTitleAndHoldsABitmap) {
    EXPECT_EQ(saved("/a/sky.jpg", "sky.jpg"), "sky.jpg");
    EXPECT_EQ(start(bytesOf(folder / "sky.jpg")), "bmp 8 x 4 ");
}

TEST_F(PictureCopiesTest, AModelsPictureTakesTheExtensionJpg) {
    EXPECT_EQ(exported("/a/sky.bmp", "sky.bmp"), "sky.jpg");
    EXPECT_EQ(start(bytesOf(folder / "sky.jpg")), "jpeg 32 x ");
}

// Three characters go whatever they are: a point belongs to a three-letter extension only.
TEST_F(PictureCopiesTest, AModelsPictureExchangesTheLastThreeCharacters) {
    EXPECT_EQ(exported("/a/sky.jpg", "wood.jpeg"), "wood.jjpg");
    EXPECT_EQ(exported("/a/sky.jpg", "photo"), "phjpg");
    EXPECT_EQ(exported("/a/sky.jpg", "ab"), "jpg");
}

TEST_F(PictureCopiesTest, AModelsPictureIsTurnedWhenRotIsFalse) {
    exported("/a/sky.jpg", "sky.jpg", false);
    EXPECT_EQ(start(bytesOf(folder / "sky.jpg")), "jpeg 4 x 8");
}

TEST_F(PictureCopiesTest, NoPictureGivesNoFile) {
    EXPECT_EQ(saved("", "x.bmp"), "x.bmp");
    EXPECT_EQ(exported("", "x.bmp"), "");
    EXPECT_TRUE(pictures.loads.empty());
    EXPECT_EQ(folder.count(), 2);
}

TEST_F(PictureCopiesTest, TheLastPartOfATitleNamesTheFile) {
    fs::create_directory(folder / "deep");
    writeBytes(folder / ".bashrc", "mine");
    Writing save(folder / "deep/p.vln", store);
    EXPECT_EQ(save.copies.saveTarget("/a/sky.jpg", "../.bashrc"), ".bashrc");
    EXPECT_EQ(save.copies.saveTarget("/b/sky.jpg", folder / "sub/b.bmp"), "b.bmp");
    EXPECT_EQ(save.done(), "");
    Writing model(folder / "deep/p.wrl", store);
    EXPECT_EQ(model.copies.convertJPG("/a/sky.jpg", "../../etc.bmp", true), "etc.jpg");
    EXPECT_EQ(model.done(), "");
    EXPECT_EQ(bytesOf(folder / ".bashrc"), "mine");
    EXPECT_EQ(folder.count(), 2);
    EXPECT_EQ(std::distance(fs::directory_iterator(folder / "deep"), {}), 5);
}

TEST_F(PictureCopiesTest, ATitleWithoutALastPartIsAMissingPicture) {
    for (const char* title : {"..", ".", " ", "", "a/", "b/..", "\t "}) {
        Writing save(folder / "p.vln", store);
        EXPECT_EQ(save.copies.saveTarget("/a/sky.jpg", title), title);
        EXPECT_EQ(save.copies.missing(" is not here"),
                  std::string("The picture ") + title + " is not here (it has no name).");
        EXPECT_EQ(save.done(), "");
        Writing model(folder / "p.wrl", store);
        EXPECT_EQ(model.copies.convertJPG("/a/sky.jpg", title, true), "");
        EXPECT_NE(model.copies.missing(""), "");
        EXPECT_EQ(model.done(), "");
    }
    EXPECT_EQ(folder.count(), 2);
}

TEST_F(PictureCopiesTest, WhatALineOfTheProjectCannotHoldIsStoredAsALowLine) {
    EXPECT_EQ(saved("/a/sky.jpg", "3\" sky.jpg"), "3_ sky.jpg");
    EXPECT_TRUE(fs::exists(folder / "3_ sky.jpg"));
    EXPECT_EQ(storedTitle(std::string("a\"b\rc\nd\0e", 9)), "a_b_c_d_e");
}

TEST_F(PictureCopiesTest, AFileOfTheUsersIsLeftAndTheNextFreeNameTaken) {
    for (const char* name : {"sky.jpg", "sky-2.jpg", ".sky", "sky"}) writeBytes(folder / name, "");
    fs::create_directory(folder / "sky-3.jpg");
    EXPECT_EQ(saved("/a/sky.jpg", "sky.jpg"), "sky-4.jpg");
    EXPECT_EQ(saved("/a/sky.jpg", ".sky"), ".sky-2");
    EXPECT_EQ(saved("/a/sky.jpg", "sky"), "sky-2");
    EXPECT_EQ(exported("/a/sky.bmp", "sky.bmp"), "sky-5.jpg");
    EXPECT_EQ(bytesOf(folder / "sky.jpg"), "");
    EXPECT_EQ(bytesOf(folder / "sky-2.jpg"), "");
}

TEST_F(PictureCopiesTest, ANameOfFullLengthIsCutForItsNumber) {
    const std::string longest = "ä" + std::string(245, 'x') + "öü.jpg";
    ASSERT_EQ(longest.size(), 255u);
    writeBytes(folder / longest, "mine");
    EXPECT_EQ(saved("/a/sky.jpg", longest), "ä" + std::string(245, 'x') + "ö-2.jpg");
    EXPECT_EQ(bytesOf(folder / longest), "mine");
}

TEST_F(PictureCopiesTest, ATitleNeverNamesTheProjectItself) {
    EXPECT_EQ(saved("/a/sky.jpg", "p.vln"), "p-2.vln");
    EXPECT_EQ(bytesOf(folder / "p.vln"), "");
    writeBytes(folder / "precious.vln", "a project");
    EXPECT_EQ(saved("/a/sky.jpg", "precious.vln"), "precious-2.vln");
    EXPECT_EQ(bytesOf(folder / "precious.vln"), "a project");
}

TEST_F(PictureCopiesTest, WhatThisRunHasPutThereFromTheSameSourceIsReplaced) {
    EXPECT_EQ(saved("/a/sky.jpg", "sky.jpg"), "sky.jpg");
    pictures.pictures["/a/sky.jpg"] = plainPicture(64, 4);
    EXPECT_EQ(saved("/a/sky.jpg", "sky.jpg"), "sky.jpg");
    EXPECT_EQ(start(bytesOf(folder / "sky.jpg")), "bmp 64 x 4");
    EXPECT_EQ(saved("/b/sky.jpg", "sky.jpg"), "sky-2.jpg");
    EXPECT_EQ(start(bytesOf(folder / "sky.jpg")), "bmp 64 x 4");
}

TEST_F(PictureCopiesTest, WhatAFailedSaveMeantToPutThereIsNotTheProjects) {
    {
        Writing save(folder / "p.vln", store);
        EXPECT_EQ(save.copies.saveTarget("/a/sky.jpg", "sky.jpg"), "sky.jpg");
        save.file.fail("broken");
        EXPECT_EQ(save.done(), "broken");
    }
    writeBytes(folder / "sky.jpg", "mine");
    EXPECT_EQ(saved("/a/sky.jpg", "sky.jpg"), "sky-2.jpg");
}

TEST_F(PictureCopiesTest, WhatTheReplacedProjectNamesIsReplaced) {
    writeBytes(folder / "p.vln", "other.bmp,sky.jpg");
    writeBytes(folder / "sky.jpg", "its picture");
    EXPECT_EQ(saved("/a/sky.jpg", "sky.jpg"), "sky.jpg");
    EXPECT_EQ(start(bytesOf(folder / "sky.jpg")), "bmp 8 x 4 ");
}

TEST_F(PictureCopiesTest, AFileOfTheVeryBytesIsTakenAsItIs) {
    saved("/a/sky.jpg", "sky.jpg");
    fs::rename(folder / "sky.jpg", folder / "same.jpg");
    const auto time = fs::last_write_time(folder / "same.jpg");
    EXPECT_EQ(saved("/a/sky.jpg", "same.jpg"), "same.jpg");
    EXPECT_EQ(fs::last_write_time(folder / "same.jpg"), time);
}

TEST_F(PictureCopiesTest, ObjectsWithOneSourceShareOneCopy) {
    Writing save(folder / "p.vln", store);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(save.copies.saveTarget("/a/sky.jpg", "sky.jpg"), "sky.jpg");
    EXPECT_EQ(save.done(), "");
    EXPECT_EQ(pictures.loads.size(), 1u);
    EXPECT_EQ(folder.count(), 2);
}

TEST_F(PictureCopiesTest, TwoPicturesWithOneTitleStayTwo) {
    Writing save(folder / "p.vln", store);
    EXPECT_EQ(save.copies.saveTarget("/a/sky.jpg", "sky.jpg"), "sky.jpg");
    EXPECT_EQ(save.copies.saveTarget("/b/sky.jpg", "sky.jpg"), "sky-2.jpg");
    EXPECT_EQ(save.done(), "");
    EXPECT_EQ(start(bytesOf(folder / "sky.jpg")), "bmp 8 x 4 ");
    EXPECT_EQ(start(bytesOf(folder / "sky-2.jpg")), "bmp 16 x 4");
}

TEST_F(PictureCopiesTest, ALinkInItsPlaceIsReplacedNotFollowed) {
    writeBytes(folder / "precious", "mine");
    fs::create_symlink("precious", folder / "sky.jpg");
    EXPECT_EQ(saved("/a/sky.jpg", "sky.jpg"), "sky.jpg");
    EXPECT_FALSE(fs::is_symlink(folder / "sky.jpg"));
    EXPECT_EQ(bytesOf(folder / "precious"), "mine");
}

TEST_F(PictureCopiesTest, ASideFileThatIsTheSourceStaysAsItIs) {
    writeBytes(folder / "wood.bmp", "picture");
    EXPECT_EQ(saved(folder / "wood.bmp", "wood.bmp"), "wood.bmp");
    EXPECT_EQ(saved(folder / "./wood.bmp", "wood.bmp"), "wood.bmp");
    EXPECT_TRUE(pictures.loads.empty());
    EXPECT_EQ(bytesOf(folder / "wood.bmp"), "picture");
}

TEST_F(PictureCopiesTest, ASideFileOverwritesNoOtherObjectsPicture) {
    writeBytes(folder / "sky.jpg", "the fin's");
    writeBytes(folder / "p.vln", "sky.jpg");
    Rudder.texture_filename = folder / "sky.jpg";
    EXPECT_EQ(saved("/a/sky.jpg", "sky.jpg"), "sky-2.jpg");
    EXPECT_EQ(bytesOf(folder / "sky.jpg"), "the fin's");
}

TEST_F(PictureCopiesTest, AModelsPictureThatWouldBeASourceIsNamedAfterTheModel) {
    const std::string source = folder / "./wood.jpg";
    writeBytes(source, "picture");
    pictures.pictures[source] = plainPicture(4, 4);
    EXPECT_EQ(exported(source, "wood.jpg"), "wood-model.jpg");
    Stabilizer.set_texture_filename(folder / "wood-model.jpg");
    EXPECT_EQ(exported(source, "wood.jpg"), "wood-2.jpg");
    EXPECT_EQ(bytesOf(source), "picture");
}

TEST_F(PictureCopiesTest, AModelsPictureThatWouldBeASideFileIsNamedAfterTheModel) {
    saved("/a/sky.jpg", "sky.jpg");
    const std::string side = bytesOf(folder / "sky.jpg");
    EXPECT_EQ(exported("/a/sky.jpg", "sky.jpg"), "sky-model.jpg");
    EXPECT_EQ(exported("/a/sky.jpg", "sky.jpg"), "sky-model.jpg");
    EXPECT_EQ(bytesOf(folder / "sky.jpg"), side);
}

TEST_F(PictureCopiesTest, ASideFileLeavesAModelsPictureAlone) {
    exported("/a/sky.jpg", "sky.jpg");
    const std::string picture = bytesOf(folder / "sky.jpg");
    EXPECT_EQ(saved("/a/sky.jpg", "sky.jpg"), "sky-2.jpg");
    EXPECT_EQ(bytesOf(folder / "sky.jpg"), picture);
}

// A wing and a fuselage with one picture share its copy, but not its sense: the last one's stands.
TEST_F(PictureCopiesTest, TheOtherSenseOfAPictureIsWrittenAgain) {
    Writing model(folder / "p.wrl", store);
    for (const bool rot : {false, false, true, false})
        EXPECT_EQ(model.copies.convertJPG("/a/sky.bmp", "sky.bmp", rot), "sky.jpg");
    EXPECT_EQ(model.done(), "");
    EXPECT_EQ(pictures.saved.size(), 3u);
    EXPECT_EQ(start(bytesOf(folder / "sky.jpg")), "jpeg 4 x 3");
    EXPECT_EQ(folder.count(), 2);
}

TEST_F(PictureCopiesTest, PicturesThatCannotBeReadAreCountedOnce) {
    Writing save(folder / "p.vln", store);
    EXPECT_EQ(save.copies.missing(""), "");
    for (int i = 0; i < 2; ++i)
        EXPECT_EQ(save.copies.saveTarget("/gone/x.bmp", "sub/x.bmp"), "x.bmp");
    EXPECT_EQ(save.copies.missing(" is gone"), "The picture sub/x.bmp is gone (cannot be read).");
    save.copies.saveTarget("/gone/y.bmp", "y.bmp");
    EXPECT_EQ(save.copies.missing(" are gone"),
              "The picture sub/x.bmp and 1 other one are gone (cannot be read).");
    EXPECT_EQ(pictures.loads.size(), 2u);
    EXPECT_EQ(save.done(), "");
}

TEST_F(PictureCopiesTest, AModelsMissingPictureIsToldByItsTitleAndCountedByItsFile) {
    Writing model(folder / "p.wrl", store);
    EXPECT_EQ(model.copies.convertJPG("/gone/x.bmp", "sub/x.bmp", true), "");
    EXPECT_EQ(model.copies.convertJPG("/gone/x.bmp", "again.bmp", false), "");
    EXPECT_EQ(model.copies.missing(" is gone"), "The picture sub/x.bmp is gone (cannot be read).");
    EXPECT_EQ(model.copies.convertJPG("/gone/y.bmp", "sub/x.bmp", true), "");
    EXPECT_EQ(model.copies.missing(" are gone"),
              "The picture sub/x.bmp and 1 other one are gone (cannot be read).");
    EXPECT_EQ(model.done(), "");
}

TEST_F(PictureCopiesTest, APictureThatCannotBeWrittenFailsTheWhole) {
    pictures.encodeFailure = "no memory";
    {
        Writing save(folder / "p.vln", store);
        save.copies.saveTarget("/a/sky.jpg", "sky.jpg");
        EXPECT_EQ(save.done(), "sky.jpg: no memory");
        Writing model(folder / "p.wrl", store);
        EXPECT_EQ(model.copies.convertJPG("/a/sky.bmp", "sky.bmp", true), "");
        EXPECT_EQ(model.done(), "sky.jpg: no memory");
    }
    EXPECT_EQ(folder.count(), 0);
}

}  // namespace
}  // namespace velna::test
