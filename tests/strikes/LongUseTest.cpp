// A long day of work: round after round of open, edit, undo, save, export and new takes no more
// memory and no more open files than the first ones did. VELNA_ROUNDS=N works so many rounds.

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>

#include <fcntl.h>
#include <malloc.h>
#include <unistd.h>

#include "support/CountedMemory.h"
#include "support/GlTape.h"
#include "support/ShellFixture.h"

namespace velna::test {
namespace {

using Toolbar::Key;

#ifdef __SANITIZE_ADDRESS__
constexpr bool sanitized = true;
#else
constexpr bool sanitized = false;
#endif

/// Under sanitizers a round takes twenty times as long.
int roundsToWork() {
    const char* wished = std::getenv("VELNA_ROUNDS");
    return wished ? std::max(8, std::atoi(wished)) : sanitized ? 200 : 2000;
}

/// What the program has at one moment.
struct Held {
    double allocated = 0;  ///< bytes
    double resident = 0;   ///< bytes
    long files = 0;        ///< open ones

    static Held now() {
        Held held;
        held.allocated = static_cast<double>(CountedMemory::now);
        // The sanitizers keep freed memory back, and their own books.
        if (!sanitized) {
            held.allocated = static_cast<double>(::mallinfo2().uordblks);
            long whole = 0;
            long pages = 0;
            std::ifstream("/proc/self/statm") >> whole >> pages;
            held.resident = static_cast<double>(pages * ::sysconf(_SC_PAGESIZE));
        }
        held.files = std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
        return held;
    }
};

/// How what a program has grows with its work.
struct Growth {
    double bytesARound = 0;  ///< allocated, from round 100 on
    double resident = 0;     ///< bytes, from round 400 on
    long files = 0;          ///< from round 100 on
};

/// Fewer rounds begin to count at their half.
Growth growthOf(int rounds, const std::function<void(int)>& round) {
    const int settled = std::min(100, rounds / 2);
    const int warm = std::min(400, rounds / 2);
    Held early;
    Held later;
    for (int i = 0; i < rounds; ++i) {
        if (i == settled) early = Held::now();
        if (i == warm) later = Held::now();
        round(i);
    }
    const Held last = Held::now();
    return {(last.allocated - early.allocated) / (rounds - settled), last.resident - later.resident,
            last.files - early.files};
}

constexpr double mostBytesARound = 0.1 * 1024;
constexpr double mostResident = 6e6;

class LongUse : public ShellFixture {
protected:
    void SetUp() override {
        ShellFixture::SetUp();
        start();
        std::filesystem::create_directory(folder / "out");
    }
    void answer(const std::string& path, int kind) { dialogs.files.push_back({path, kind}); }
    void open(int i) {
        constexpr std::array names{"default", "wings3", "twin_fuselage", "boxes", "inches"};
        const auto name = names[static_cast<std::size_t>(i) % names.size()];
        answer(std::string(VELNA_TEST_DATA "/projects/current/") + name + ".vln", 1);
        if (!Main.savedProject) dialogs.yesNo.push_back(true);
        program.toolbar.click(Key::Open);
    }
    static void edit(int i) {
        for (const int step : {1, 2}) {
            const std::string span = std::to_string(1200 + step + i % 50);
            Main.textEdited(Control::SpanText, span);
            Main.textKeyDown(Control::SpanText, span);
            Main.endVisit();
        }
        Main.buttonPressed(Control::IndexFusPlusButton, 0);
        program.history.undo();
        program.history.redo();
        program.history.undo();
    }
    void save(const std::string& title, int kind) {
        answer((folder / "out" / title).string(), kind);
        program.toolbar.click(Key::Save);
    }
    void exportAs(int i) {
        constexpr std::array endings{".wrl", ".dxf", ".stl", ".3mf", ".obj", ".glb", ".wrl"};
        const auto kind = static_cast<std::size_t>(i) % endings.size();
        // The solids follow the model and the drawing.
        if (kind >= 2 && kind <= 5) dialogs.solidOptions.push_back(SolidOptions{});
        save(std::string("a") + endings[kind], static_cast<int>(kind) + 2);
    }
    void renew() {
        dialogs.yesNo.push_back(true);
        program.toolbar.click(Key::New);
    }
    void work(int i) {
        open(i);
        edit(i);
        save("a.vln", 1);
        exportAs(i);
        renew();
        failed_ += dialogs.story().find("message") != std::string::npos;
        forget();
    }
    /// What the ports have heard is no part of the program.
    void forget() {
        dialogs.asked.clear();
        pictures.saved.clear();
        pictures.loads.clear();
        desktop.calls.clear();
        window.changes.clear();
        window.viewTransforms.clear();
        window.cataloguesFilled.clear();
        drawArea.calls.clear();
        sectionArea.calls.clear();
        GlTape::clear();
    }

    int failed_ = 0;
};

TEST_F(LongUse, TakesNoMoreThanTheFirstRoundsDid) {
    const Growth growth = growthOf(roundsToWork(), [this](int i) { work(i); });
    EXPECT_EQ(failed_, 0);
    EXPECT_LT(growth.bytesARound, mostBytesARound);
    EXPECT_LT(growth.resident, mostResident);
    EXPECT_EQ(growth.files, 0);
    std::printf("%.1f bytes a round, %.2f MB more resident\n", growth.bytesARound,
                growth.resident / 1e6);
}

TEST(GrowthOfWork, FindsALeakOfAFewBytes) {
    std::vector<std::unique_ptr<char[]>> leaked;
    leaked.reserve(400);
    const Growth growth =
        growthOf(400, [&](int) { leaked.push_back(std::make_unique<char[]>(200)); });
    EXPECT_GT(growth.bytesARound, mostBytesARound);
    EXPECT_EQ(growth.files, 0);
}

TEST(GrowthOfWork, FindsPagesThatStay) {
    if (sanitized) GTEST_SKIP() << "the sanitizers keep pages of their own";
    std::vector<std::vector<char>> kept;
    const Growth growth = growthOf(80, [&](int) { kept.emplace_back(std::size_t{1} << 20, 'x'); });
    EXPECT_GT(growth.resident, mostResident);
}

TEST(GrowthOfWork, FindsAFileThatStaysOpen) {
    std::vector<int> opened;
    const Growth growth =
        growthOf(80, [&](int) { opened.push_back(::open("/dev/null", O_RDONLY | O_CLOEXEC)); });
    for (const int descriptor : opened) ::close(descriptor);
    EXPECT_GT(growth.files, 30);
}

}  // namespace
}  // namespace velna::test
