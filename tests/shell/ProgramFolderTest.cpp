#include <gtest/gtest.h>

#include "shell/ProgramFolder.h"
#include "support/ShellFixture.h"

namespace velna::test {
namespace {

TEST(ProgramFolder, AnInstallationLiesInAFolderOfLibexec) {
    EXPECT_TRUE(isInstalled("/usr/libexec/velna/"));
    EXPECT_TRUE(isInstalled("/home/a/.local/libexec/velna/"));
    EXPECT_TRUE(isInstalled("/usr/libexec/v\xe9lna/"));
}

TEST(ProgramFolder, AFolderThatOnlyHasTheNameSomewhereIsNone) {
    EXPECT_FALSE(isInstalled("/libexec/"));
    EXPECT_FALSE(isInstalled("/home/libexec/a/velna/"));
    EXPECT_FALSE(isInstalled("/home/a/velna/libexec/"));
    EXPECT_FALSE(isInstalled("/home/a/mylibexec/velna/"));
    EXPECT_FALSE(isInstalled("velna/"));
    EXPECT_FALSE(isInstalled("/"));
    EXPECT_FALSE(isInstalled(""));
}

class ProgramFolderKeeps : public ShellFixture {};

TEST_F(ProgramFolderKeeps, FilesWhereItCanBeWrittenAndNothingIsInstalled) {
    EXPECT_TRUE(keepsFiles(desktop.program));
    EXPECT_FALSE(keepsFiles("/proc/velna-cannot-write-here/"));
    const std::string installed = folder.string() + "/libexec/velna/";
    std::filesystem::create_directories(installed);
    EXPECT_FALSE(keepsFiles(installed));
}

}  // namespace
}  // namespace velna::test
