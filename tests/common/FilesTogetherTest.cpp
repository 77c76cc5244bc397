// Files that take their places together: whatever call fails, all are new or all are old.

#include <filesystem>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "common/ReplacedFile.h"
#include "support/StruckCalls.h"

namespace velna::test {
namespace {

namespace fs = std::filesystem;

using Files = std::map<std::string, std::string>;

const Files oldFiles{{"main", "old"}, {"one", "old one"}, {"three", "old three"}};
const Files newFiles{{"main", "new"}, {"one", "new one"}, {"two", "new two"}, {"three", "new 3"}};

class FilesTogether : public ::testing::Test {
protected:
    void TearDown() override { fileCalls = {}; }

    void putOldFiles() const {
        for (const auto& entry : fs::directory_iterator(folder.path())) fs::remove(entry);
        for (const auto& [name, bytes] : oldFiles) writeBytes(folder / name, bytes);
    }
    /// Writes the new files; the reason of a failure.
    std::string replaceAll() const {
        ReplacedFile file(folder / "main");
        file.buffer() += "new";
        for (const char* name : {"one", "two", "three"})
            file.beside(folder / name, newFiles.at(name));
        const bool done = file.commit();
        EXPECT_EQ(done, file.error().empty());
        inPlace = file.inPlace();
        return file.error();
    }
    Files files() const { return filesIn(folder.path()); }
    long long temporaries() const {
        return folder.count() - static_cast<long long>(files().size());
    }

    TemporaryFolder folder;
    mutable bool inPlace = false;
};

TEST_F(FilesTogether, NothingChangesBeforeAllIsWritten) {
    putOldFiles();
    ReplacedFile file(folder / "main");
    file.beside(folder / "one", "new one");
    file.beside(folder / "two", "new two");
    EXPECT_EQ(files(), oldFiles);
}

TEST_F(FilesTogether, TheyTakeTheirPlacesAndLeaveNothingElse) {
    putOldFiles();
    EXPECT_EQ(replaceAll(), "");
    EXPECT_EQ(files(), newFiles);
    EXPECT_EQ(temporaries(), 0);
}

TEST_F(FilesTogether, TheLaterBytesOfATargetCount) {
    ReplacedFile file(folder / "main");
    file.beside(folder / "one", "first");
    file.beside(folder / "one", "second");
    EXPECT_TRUE(file.commit());
    EXPECT_EQ(files(), (Files{{"main", ""}, {"one", "second"}}));
    EXPECT_EQ(temporaries(), 0);
}

TEST_F(FilesTogether, EveryFailingCallLeavesAllOldOrAllNew) {
    int failures = 0;
    putOldFiles();
    const int calls = callsOf([&] { replaceAll(); });
    for (int number = 1; number <= calls; ++number) {
        putOldFiles();
        std::string reason;
        {
            const StruckCalls struck({number});
            reason = replaceAll();
        }
        EXPECT_EQ(files(), inPlace ? newFiles : oldFiles) << number << reason;
        EXPECT_EQ(reason.empty(), reason.find("Input/output error") == reason.npos) << reason;
        EXPECT_TRUE(inPlace || !reason.empty()) << number;
        // Only a removal that failed, or a descriptor's mode on the way, leaves something behind.
        EXPECT_LE(temporaries(), 1) << number;
        failures += !reason.empty();
    }
    // Four files of five calls each, two kept, four placed, a folder synced.
    EXPECT_GE(failures, 4 * 5 + 4 + 1);
}

TEST_F(FilesTogether, OnlyAPlaceThatCannotBePutBackKeepsANewFileAndSaysSo) {
    putOldFiles();
    const int calls = callsOf([&] { replaceAll(); });
    int told = 0;
    for (int first = 1; first <= calls; ++first)
        for (int second = first + 1; second <= calls + 4; ++second) {
            putOldFiles();
            std::string reason;
            {
                const StruckCalls struck({first, second});
                reason = replaceAll();
            }
            const bool whole = files() == (inPlace ? newFiles : oldFiles);
            const bool says = reason.find("Beside the old file new ones stand") != reason.npos;
            EXPECT_EQ(whole, !says) << first << ' ' << second << ' ' << reason;
            EXPECT_EQ(files().at("main"), inPlace ? "new" : "old");
            told += says;
        }
    EXPECT_GT(told, 0);
}

TEST_F(FilesTogether, WithoutSecondNamesACopyIsPutBack) {
    putOldFiles();
    ::chmod((folder / "one").c_str(), 0640);
    fs::remove(folder / "three");
    fs::create_symlink("elsewhere", folder / "three");
    fileCalls.link = [](const char*, const char*) {
        errno = EPERM;
        return -1;
    };
    fileCalls.rename = [](const char* from, const char* to) {
        errno = EIO;
        return titleOf(to) == "main" ? -1 : FileCalls{}.rename(from, to);
    };
    EXPECT_EQ(replaceAll(), "Input/output error");
    EXPECT_EQ(bytesOf(folder / "one"), "old one");
    EXPECT_EQ(fs::status(folder / "one").permissions(), fs::perms{0640});
    EXPECT_FALSE(fs::exists(folder / "two"));
    EXPECT_EQ(fs::read_symlink(folder / "three"), "elsewhere");
    fileCalls.rename = FileCalls{}.rename;
    EXPECT_EQ(replaceAll(), "");
    fileCalls = {};
    EXPECT_EQ(files(), newFiles);
    EXPECT_EQ(temporaries(), 0);
}

TEST_F(FilesTogether, AWriteThatTakesNothingIsAFailureAndNoEndlessLoop) {
    putOldFiles();
    fileCalls.write = [](int, const void*, std::size_t) -> ssize_t { return 0; };
    EXPECT_NE(replaceAll(), "");
    EXPECT_EQ(files(), oldFiles);
}

TEST_F(FilesTogether, ALinkInASideFilesPlaceIsReplaced) {
    fs::create_directory(folder / "elsewhere");
    writeBytes(folder / "elsewhere/precious", "precious");
    fs::create_symlink("elsewhere/precious", folder / "side");
    ReplacedFile file(folder / "main");
    file.beside(folder / "side", "new");
    EXPECT_TRUE(file.commit());
    EXPECT_FALSE(fs::is_symlink(folder / "side"));
    EXPECT_EQ(bytesOf(folder / "side"), "new");
    EXPECT_EQ(bytesOf(folder / "elsewhere/precious"), "precious");
}

TEST_F(FilesTogether, AFailureBesideIsTheWholesAndNamesTheFile) {
    fs::create_directory(folder / "side");
    writeBytes(folder / "main", "old");
    ReplacedFile file(folder / "main");
    file.beside(folder / "side", "new");
    EXPECT_EQ(file.error(), "side: Is a directory");
    EXPECT_FALSE(file.commit());
    EXPECT_EQ(bytesOf(folder / "main"), "old");
    EXPECT_TRUE(fs::is_directory(folder / "side"));
}

TEST_F(FilesTogether, WhatAKilledRunHasLeftGoesOnceItIsADayOld) {
    const auto now = fs::file_time_type::clock::now();
    const auto put = [&](const char* name, std::chrono::hours age) {
        writeBytes(folder / name, name);
        fs::last_write_time(folder / name, now - age);
    };
    using std::chrono::hours;
    for (const char* name : {".velna-aZ09bc", ".velna-aZ09bd~"}) put(name, hours(25));
    const Files kept{{".velna-young1", ""}, {".velna-notes", ""}, {".velna-abcde.", ""},
                     {"velna-abcdef", ""},  {"old.vln", ""},      {".velna-abcdefg", ""}};
    for (const auto& [name, _] : kept) put(name.c_str(), hours(name == ".velna-young1" ? 23 : 999));
    fs::create_directory(folder / ".velna-folder");
    fs::last_write_time(folder / ".velna-folder", now - hours(999));
    { const ReplacedFile file(folder / "x"); }
    EXPECT_EQ(folder.count(), static_cast<long long>(kept.size()) + 1);
    for (const auto& [name, _] : kept) EXPECT_EQ(bytesOf(folder / name), name);
}

TEST_F(FilesTogether, AFolderThatOnlyASideFileGoesToIsTidiedToo) {
    fs::create_directory(folder / "there");
    writeBytes(folder / "there/.velna-aaaaaa", "left");
    fs::last_write_time(folder / "there/.velna-aaaaaa",
                        fs::file_time_type::clock::now() - std::chrono::hours(25));
    ReplacedFile file(folder / "main");
    file.beside(folder / "there/side", "new");
    EXPECT_FALSE(fs::exists(folder / "there/.velna-aaaaaa"));
}

}  // namespace
}  // namespace velna::test
