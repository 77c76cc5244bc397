// A save on a system whose calls fail: whatever fails, the old project stands with its pictures, or
// the new one with its own.

#include "Projects.h"
#include "support/StruckCalls.h"

namespace velna::test {
namespace {

class StruckSave : public ProjectTest {
protected:
    void SetUp() override {
        ProjectTest::SetUp();
        Wings(1).set_texture_filename("/new/wing.bmp");
        Stabilizer.set_texture_filename("/new/stab.bmp");
        Rudder.texture_filename = "/new/fin.bmp";
    }
    /// An old project that names the wing's picture, and a picture of the user's own.
    void putOldFiles() {
        for (const auto& entry : std::filesystem::directory_iterator(folder.path()))
            std::filesystem::remove(entry);
        writeBytes(folder / "p.vln", "# VELNA File Format V 2.2.1\r\n\"wing.bmp\"\r\n");
        writeBytes(folder / "wing.bmp", "old wing");
        writeBytes(folder / "fin.bmp", "the user's");
        giveTitles();
    }
    static void giveTitles() {
        Wings(1).qualified_texture_filename = "sub/wing.bmp";
        Stabilizer.qualified_texture_filename = "stab.bmp";
        Rudder.qualified_texture_filename = "fin.bmp";
    }
    static std::vector<std::string> titles() {
        return {Wings(1).qualified_texture_filename, Stabilizer.qualified_texture_filename,
                Rudder.qualified_texture_filename};
    }
    std::map<std::string, std::string> files() const { return filesIn(folder.path()); }
};

TEST_F(StruckSave, LeavesAllOldOrAllNewTogetherWithTheNamesInTheModel) {
    putOldFiles();
    const auto oldFiles = files();
    const auto oldTitles = titles();
    ASSERT_EQ(save(folder / "p.vln"), "");
    const auto newFiles = files();
    const auto newTitles = titles();
    ASSERT_EQ(newTitles, (std::vector<std::string>{"wing.bmp", "stab.bmp", "fin-2.bmp"}));
    ASSERT_EQ(newFiles.size(), 5u);
    int failures = 0;
    putOldFiles();
    const int calls = callsOf([&] { save(folder / "p.vln"); });
    for (int number = 1; number <= calls; ++number) {
        putOldFiles();
        std::string reason;
        {
            const StruckCalls struck({number});
            reason = save(folder / "p.vln");
        }
        const bool isNew = files() == newFiles;
        EXPECT_TRUE(isNew || files() == oldFiles) << number << ' ' << reason;
        EXPECT_EQ(titles(), isNew ? newTitles : oldTitles) << number << ' ' << reason;
        EXPECT_TRUE(isNew || !reason.empty()) << number;
        failures += !isNew;
    }
    EXPECT_GT(failures, 20);
}

TEST_F(StruckSave, APictureThatCannotBeWrittenLeavesAllAsItWas) {
    putOldFiles();
    const auto oldFiles = files();
    pictures.encodes = false;
    EXPECT_EQ(save(folder / "p.vln"), "wing.bmp: no form for it");
    EXPECT_EQ(files(), oldFiles);
    EXPECT_EQ(Wings(1).qualified_texture_filename, "sub/wing.bmp");
    EXPECT_EQ(folder.count(), 3);
}

TEST_F(StruckSave, PicturesAreDecodedNoFurtherAfterAFailure) {
    pictures.encodes = false;
    putOldFiles();
    save(folder / "p.vln");
    EXPECT_EQ(pictures.saved.size(), 1u);
}

}  // namespace
}  // namespace velna::test
