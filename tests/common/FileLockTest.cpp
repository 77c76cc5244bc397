#include <csignal>
#include <filesystem>
#include <utility>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "common/FileLock.h"
#include "support/TemporaryFolder.h"

namespace velna::test {
namespace {

using Former = FileLock::Former;
namespace fs = std::filesystem;

TEST(FileLock, OneHoldsItAtATime) {
    const TemporaryFolder folder;
    {
        const FileLock first(folder / "lock", Former::none);
        EXPECT_TRUE(first.isHeld());
        const FileLock second(folder / "lock", Former::any);
        EXPECT_FALSE(second.isHeld());
        EXPECT_TRUE(second.isOthers());
        EXPECT_EQ(second.reason(), "Resource temporarily unavailable");
    }
    EXPECT_TRUE(FileLock(folder / "lock", Former::any).isHeld());
}

TEST(FileLock, AProgramThatIsKilledFreesIt) {
    const TemporaryFolder folder;
    int ready[2];
    ASSERT_EQ(::pipe(ready), 0);
    const pid_t other = ::fork();
    if (other == 0) {
        const FileLock lock(folder / "lock", Former::none);
        const char told = lock.isHeld() ? '1' : '0';
        (void)!::write(ready[1], &told, 1);
        ::pause();
        ::_exit(0);
    }
    char told = 0;
    ASSERT_EQ(::read(ready[0], &told, 1), 1);
    EXPECT_EQ(told, '1');
    EXPECT_FALSE(FileLock(folder / "lock", Former::any).isHeld());
    ::kill(other, SIGKILL);
    ::waitpid(other, nullptr, 0);
    EXPECT_TRUE(FileLock(folder / "lock", Former::any).isHeld());
    ::close(ready[0]);
    ::close(ready[1]);
}

TEST(FileLock, ANewOneLeavesAFormerFileAlone) {
    const TemporaryFolder folder;
    writeBytes(folder / "lock", "former");
    const FileLock lock(folder / "lock", Former::none);
    EXPECT_FALSE(lock.isHeld());
    EXPECT_TRUE(lock.isOthers());
    EXPECT_EQ(bytesOf(folder / "lock"), "former");
}

TEST(FileLock, RemovedItIsFreeAndItsFileGone) {
    const TemporaryFolder folder;
    FileLock lock(folder / "lock", Former::none);
    FileLock moved = std::move(lock);
    EXPECT_FALSE(lock.isHeld());
    moved.remove();
    EXPECT_EQ(folder.count(), 0);
    EXPECT_TRUE(FileLock(folder / "lock", Former::none).isHeld());
    moved.remove();
    EXPECT_EQ(folder.count(), 1) << "a second time it is another's file";
}

TEST(FileLock, WhereNoFileCanBeThereIsNoLock) {
    const TemporaryFolder folder;
    fs::create_symlink("elsewhere", folder / "link");
    for (const std::string& path : {folder / "missing/lock", folder / "link", folder.path()}) {
        const FileLock lock(path, Former::any);
        EXPECT_FALSE(lock.isHeld()) << path;
        EXPECT_FALSE(lock.isOthers()) << path;
        EXPECT_NE(lock.reason(), "") << path;
    }
    EXPECT_FALSE(fs::exists(folder / "elsewhere"));
}

}  // namespace
}  // namespace velna::test
