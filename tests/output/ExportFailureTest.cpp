// Targets that cannot be written: the reason comes back, and what was there before stands.

#include <csignal>
#include <filesystem>

#include <sys/resource.h>

#include "output/OutputTest.h"
#include "support/SameBytes.h"

namespace velna::test {
namespace {

struct NamedExport {
    const char* name;
    Export write;  ///< none for the model
};

class ExportFailure : public OutputTest, public ::testing::WithParamInterface<NamedExport> {
protected:
    std::string write(const std::string& file) {
        const Export drawing = GetParam().write;
        return (drawing ? drawing(project, file, progress) : exportWhole(file)).reason();
    }
};

TEST_P(ExportFailure, DirectoryAsTarget) {
    std::filesystem::create_directory(folder / "target");
    EXPECT_NE(write(folder / "target"), "");
    EXPECT_TRUE(std::filesystem::is_directory(folder / "target"));
    EXPECT_EQ(folder.count(), 1);
}

TEST_P(ExportFailure, MissingFolder) {
    EXPECT_NE(write(folder / "missing/model.out"), "");
    EXPECT_EQ(folder.count(), 0);
}

TEST_P(ExportFailure, DeviceAsTarget) {
    std::filesystem::create_symlink("/dev/full", folder / "full");
    EXPECT_NE(write(folder / "full"), "");
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "full"));
    EXPECT_TRUE(std::filesystem::is_character_file(folder / "full"));
    EXPECT_EQ(folder.count(), 1);
}

TEST_P(ExportFailure, FolderThatTakesNoFiles) {
    EXPECT_NE(write("/proc/velna-model"), "");
}

/// A disk that is full in the middle of the file, as the system tells it of a file's largest size.
TEST_P(ExportFailure, FullDisk) {
    const std::string file = folder / "model";
    writeBytes(file, "old");
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit before{};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
    const rlimit small{1000, before.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    const std::string reason = write(file);
    ::setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(reason, "File too large");
    EXPECT_EQ(bytesOf(file), "old");
    EXPECT_EQ(folder.count(), 1);
}

TEST_P(ExportFailure, ReplacesWhatWasThere) {
    writeBytes(folder / "model", std::string(100000, 'x'));
    EXPECT_EQ(write(folder / "model"), "");
    EXPECT_NE(bytesOf(folder / "model").substr(0, 10), "xxxxxxxxxx");
    EXPECT_EQ(folder.count(), 1);
}

TEST_P(ExportFailure, NamesWithQuotesBlanksAndOtherLetters) {
    const std::string name = "Segler \"Möwe\" 'Ⅱ' 100 %.out";
    EXPECT_EQ(write(folder / name), "");
    EXPECT_FALSE(bytesOf(folder / name).empty());
}

INSTANTIATE_TEST_SUITE_P(Kinds, ExportFailure,
                         ::testing::Values(NamedExport{"Vrml", nullptr},
                                           NamedExport{"VTop", Plane::exportDXFVTop},
                                           NamedExport{"Front", Plane::exportDXFFront},
                                           NamedExport{"Side", Plane::exportDXFSide},
                                           NamedExport{"HTop", Plane::exportDXFHTop}),
                         [](const auto& kind) { return kind.param.name; });

}  // namespace
}  // namespace velna::test
