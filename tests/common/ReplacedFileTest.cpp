#include <filesystem>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "common/ReplacedFile.h"
#include "support/FileSizeLimit.h"
#include "support/StruckCalls.h"
#include "support/TemporaryFolder.h"

namespace velna::test {

namespace fs = std::filesystem;

namespace {

mode_t modeOf(const std::string& path) {
    struct stat status {};
    ::stat(path.c_str(), &status);
    return status.st_mode & 07777;
}

}  // namespace

TEST(ReplacedFile, TheTargetChangesOnlyWhenAllIsWritten) {
    const TemporaryFolder folder;
    writeBytes(folder / "file", "old");
    ReplacedFile file(folder / "file");
    file.line("new");
    file.buffer() += "end";
    EXPECT_EQ(bytesOf(folder / "file"), "old");
    EXPECT_TRUE(file.commit());
    EXPECT_EQ(bytesOf(folder / "file"), "new\r\nend");
    EXPECT_EQ(folder.count(), 1);
}

TEST(ReplacedFile, WithoutCommitNothingIsLeft) {
    const TemporaryFolder folder;
    writeBytes(folder / "file", "old");
    {
        ReplacedFile file(folder / "file");
        file.line(std::string(200'000, 'x'));
        file.flushIfFull();
        EXPECT_TRUE(file.buffer().empty());
        EXPECT_EQ(folder.count(), 2);
    }
    EXPECT_EQ(bytesOf(folder / "file"), "old");
    EXPECT_EQ(folder.count(), 1);
}

TEST(ReplacedFile, ASmallBufferWaits) {
    const TemporaryFolder folder;
    ReplacedFile file(folder / "file");
    file.line("short");
    file.flushIfFull();
    EXPECT_EQ(file.buffer(), "short\r\n");
}

TEST(ReplacedFile, WhatIsAppendedStandsInItsOrderHoweverLarge) {
    const TemporaryFolder folder;
    ReplacedFile file(folder / "file");
    const std::string large(100'000, 'x');
    file.line("head");
    file.append("small");
    EXPECT_EQ(file.buffer(), "head\r\nsmall");
    file.append(large);
    EXPECT_TRUE(file.buffer().empty());
    file.append("tail");
    EXPECT_TRUE(file.commit());
    EXPECT_TRUE(bytesOf(folder / "file") == "head\r\nsmall" + large + "tail");
}

TEST(ReplacedFile, TwoWritersOfOneTargetDoNotMix) {
    const TemporaryFolder folder;
    ReplacedFile first(folder / "file");
    ReplacedFile second(folder / "file");
    first.line("first");
    second.line("second");
    EXPECT_TRUE(first.commit());
    EXPECT_TRUE(second.commit());
    EXPECT_EQ(bytesOf(folder / "file"), "second\r\n");
}

TEST(ReplacedFile, KeepsWhoMayReadTheOldFile) {
    const TemporaryFolder folder;
    writeBytes(folder / "file", "old");
    ::chmod((folder / "file").c_str(), 0640);
    ReplacedFile file(folder / "file");
    EXPECT_TRUE(file.commit());
    EXPECT_EQ(modeOf(folder / "file"), 0640u);
}

TEST(ReplacedFile, ANewFileHasTheModeThatTheUserWants) {
    const TemporaryFolder folder;
    const mode_t former = ::umask(027);
    ReplacedFile file(folder / "file");
    EXPECT_TRUE(file.commit());
    ::umask(former);
    EXPECT_EQ(modeOf(folder / "file"), 0640u);
}

TEST(ReplacedFile, ALinkStaysALink) {
    const TemporaryFolder folder;
    fs::create_directory(folder / "deep");
    writeBytes(folder / "deep/real", "old");
    fs::create_symlink("deep/real", folder / "one");
    fs::create_symlink(folder / "one", folder / "two");
    ReplacedFile file(folder / "two");
    file.line("new");
    EXPECT_TRUE(file.commit());
    EXPECT_TRUE(fs::is_symlink(folder / "one"));
    EXPECT_TRUE(fs::is_symlink(folder / "two"));
    EXPECT_EQ(bytesOf(folder / "deep/real"), "new\r\n");
}

TEST(ReplacedFile, ALinkToAFileYetToComeMakesIt) {
    const TemporaryFolder folder;
    fs::create_symlink("later", folder / "link");
    ReplacedFile file(folder / "link");
    EXPECT_TRUE(file.commit());
    EXPECT_TRUE(fs::is_symlink(folder / "link"));
    EXPECT_TRUE(fs::is_regular_file(folder / "later"));
}

TEST(ReplacedFile, ADirectoryIsRefused) {
    const TemporaryFolder folder;
    fs::create_directory(folder / "dir");
    for (const std::string name : {"dir", "dir/"}) {
        ReplacedFile file(folder / name);
        EXPECT_EQ(file.error(), "Is a directory");
        file.line("lost");
        EXPECT_FALSE(file.commit());
    }
    EXPECT_TRUE(fs::is_directory(folder / "dir"));
    EXPECT_TRUE(fs::is_empty(folder / "dir"));
}

TEST(ReplacedFile, AMissingFolderIsTold) {
    const TemporaryFolder folder;
    ReplacedFile file(folder / "missing/file");
    EXPECT_EQ(file.error(), "No such file or directory");
    EXPECT_FALSE(file.commit());
}

TEST(ReplacedFile, AnEmptyNameIsTold) {
    ReplacedFile file("");
    EXPECT_FALSE(file.commit());
    EXPECT_NE(file.error(), "");
}

TEST(ReplacedFile, ADeviceIsNotReplaced) {
    const TemporaryFolder folder;
    fs::create_symlink("/dev/full", folder / "file");
    ReplacedFile file(folder / "file");
    EXPECT_NE(file.error(), "");
    EXPECT_FALSE(file.commit());
    EXPECT_TRUE(fs::is_character_file("/dev/full"));
}

TEST(ReplacedFile, NoFileIsMadeBesideWhatCannotBeReplaced) {
    const TemporaryFolder folder;
    fs::create_directory(folder / "file");
    EXPECT_EQ(callsOf([&] { const ReplacedFile file(folder / "file"); }), 0);
    EXPECT_GT(callsOf([&] { const ReplacedFile file(folder / "other"); }), 0);
}

TEST(ReplacedFile, IsWrittenWhereStandardInputIsClosed) {
    const TemporaryFolder folder;
    const int kept = ::dup(STDIN_FILENO);
    ::close(STDIN_FILENO);  // the next file that is opened is number 0
    ReplacedFile file(folder / "file");
    file.line("new");
    EXPECT_TRUE(file.commit()) << file.error();
    EXPECT_EQ(bytesOf(folder / "file"), "new\r\n");
    if (kept >= 0) ::dup2(kept, STDIN_FILENO);
    ::close(kept);
}

TEST(ReplacedFile, AFullDiskLeavesTheOldFileAndTheFirstReason) {
    const TemporaryFolder folder;
    writeBytes(folder / "file", "old");
    const FileSizeLimit limit(100'000);
    ReplacedFile file(folder / "file");
    for (int i = 0; i < 10; ++i) {
        file.line(std::string(70'000, 'x'));
        file.flushIfFull();
    }
    EXPECT_EQ(file.error(), "File too large");
    EXPECT_TRUE(file.buffer().empty());
    EXPECT_FALSE(file.commit());
    EXPECT_EQ(bytesOf(folder / "file"), "old");
}

TEST(ReplacedFile, AFullDiskAtTheEndLeavesTheOldFile) {
    const TemporaryFolder folder;
    writeBytes(folder / "file", "old");
    {
        const FileSizeLimit limit(100);
        ReplacedFile file(folder / "file");
        file.line(std::string(200, 'x'));
        EXPECT_EQ(file.error(), "");
        EXPECT_FALSE(file.commit());
        EXPECT_EQ(file.error(), "File too large");
    }
    EXPECT_EQ(bytesOf(folder / "file"), "old");
    EXPECT_EQ(folder.count(), 1);
}

TEST(PathParts, FolderAndTitle) {
    EXPECT_EQ(folderOf("/a/b/c.vln"), "/a/b/");
    EXPECT_EQ(titleOf("/a/b/c.vln"), "c.vln");
    EXPECT_EQ(folderOf("c.vln"), "");
    EXPECT_EQ(titleOf("c.vln"), "c.vln");
    EXPECT_EQ(titleOf("/a/"), "");
}

}  // namespace velna::test
