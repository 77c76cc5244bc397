// An export on a system whose calls fail: the old model stands with its pictures, or the new one
// with its own, and never one without a picture that could be read.

#include "common/ReplacedFile.h"
#include "output/OutputTest.h"
#include "support/StruckCalls.h"

namespace velna::test {
namespace {

class StruckExport : public OutputTest {
protected:
    StruckExport() {
        Wings(1).set_texture_filename("/pictures/wing.bmp");
        Wings(1).qualified_texture_filename = "wing.bmp";
        Rudder.texture_filename = "/pictures/fin.bmp";
        Rudder.qualified_texture_filename = "fin.bmp";
    }
    void putOldFiles() {
        for (const auto& entry : std::filesystem::directory_iterator(folder.path()))
            std::filesystem::remove(entry);
        writeBytes(folder / "m.wrl", "            url \"wing.jpg\"\r\n");
        writeBytes(folder / "wing.jpg", "old wing");
        writeBytes(folder / "fin.jpg", "the user's");
    }
    std::map<std::string, std::string> files() const { return filesIn(folder.path()); }
};

TEST_F(StruckExport, LeavesAllOldOrAllNew) {
    putOldFiles();
    const auto oldFiles = files();
    ASSERT_EQ(exportWhole(folder / "m.wrl"), Outcome());
    const auto newFiles = files();
    ASSERT_EQ(newFiles.size(), 4u);
    EXPECT_EQ(newFiles.at("wing.jpg"), "wing.bmp 64 x 128 turned jpeg");
    EXPECT_EQ(newFiles.at("fin.jpg"), "the user's");
    EXPECT_EQ(newFiles.at("fin-2.jpg"), "fin.bmp 128 x 64 jpeg");
    EXPECT_NE(newFiles.at("m.wrl").find("            url \"fin-2.jpg\"\r\n"), std::string::npos);
    int failures = 0;
    putOldFiles();
    const int calls = callsOf([&] { (void)exportWhole(folder / "m.wrl"); });
    for (int number = 1; number <= calls; ++number) {
        putOldFiles();
        std::string reason;
        {
            const StruckCalls struck({number});
            reason = exportWhole(folder / "m.wrl").reason();
        }
        const bool isNew = files() == newFiles;
        EXPECT_TRUE(isNew || files() == oldFiles) << number << ' ' << reason;
        EXPECT_TRUE(isNew || !reason.empty()) << number;
        failures += !isNew;
    }
    EXPECT_GT(failures, 15);
}

TEST_F(StruckExport, APictureThatCannotBeWrittenFailsTheExport) {
    putOldFiles();
    const auto oldFiles = files();
    pictures.encodes = false;
    EXPECT_EQ(exportWhole(folder / "m.wrl").reason(), "wing.jpg: no form for it");
    EXPECT_EQ(files(), oldFiles);
    EXPECT_EQ(folder.count(), 3);
}

TEST_F(StruckExport, APictureThatCannotBeReadIsToldAndTheModelStands) {
    putOldFiles();
    Rudder.texture_filename = "/pictures/unreadable.bmp";
    EXPECT_EQ(exportWhole(folder / "m.wrl").reason(),
              "The picture fin.bmp could not be put beside the model (no picture). All else has "
              "been exported.");
    const std::string model = bytesOf(folder / "m.wrl");
    EXPECT_TRUE(model.starts_with("#VRML V2.0 utf8\r\n"));
    EXPECT_NE(model.find("url \"wing.jpg\""), std::string::npos);
    EXPECT_EQ(model.find("fin"), std::string::npos);
}

}  // namespace
}  // namespace velna::test
