// What it costs to open a tiny file that promises as many wings or fuselages as a count can:
// counted in bytes, in a program of its own whose memory no other test has used.

#include <cstddef>
#include <string>

#include <gtest/gtest.h>

#include "editor/PanelTable.h"
#include "support/CountedMemory.h"
#include "support/ShellFixture.h"

namespace velna::test {
namespace {

using Toolbar::Key;
constexpr int most = 32767;
constexpr double megabytes = 1e6;

class PromisedEntries : public ShellFixture {
protected:
    void SetUp() override {
        ShellFixture::SetUp();
        start();
    }
    /// The default project up to the count that stands before the first `record`, which becomes the
    /// largest there is, and `after` it.
    std::string promising(const std::string& record, const std::string& after = {}) {
        const std::string whole = contentOf(VELNA_TEST_DATA "/projects/current/default.vln");
        std::string begin = whole.substr(0, whole.find(record + "\r\n"));
        begin.erase(begin.rfind('\n', begin.size() - 2) + 1);
        return begin + std::to_string(most) + "\r\n" + after;
    }
    /// Opens `bytes` as a project, looks at every view and moves the pointer over it; gives how
    /// many megabytes that took at most.
    double opened(const std::string& bytes) {
        const std::string file = (folder / "tiny.vln").string();
        writeFile(file, bytes);
        const std::size_t before = CountedMemory::begin();
        dialogs.files.push_back({file, 1});
        program.toolbar.click(Key::Open);
        EXPECT_EQ(dialogs.story(), "open");
        for (const Key view : {Key::Front, Key::Side, Key::HTop, Key::VTop}) {
            program.toolbar.click(view);
            Main.DrawArea_MouseMove(0, 0, 450, 250);
        }
        return static_cast<double>(CountedMemory::most - before) / megabytes;
    }
};

// Two numbers of the second wing stand in the file; the others are as new ones are.
TEST_F(PromisedEntries, WingsCostNothingUntilTheyAreTakenUp) {
    const std::string wing =
        "Wing Type\r\n16\r\n700\r\n230\r\n150\r\n0.13\r\n0.13\r\n180\r\n10\r\n"
        "50\r\n0\r\n0\r\n200\r\n200\r\n200\r\n";
    EXPECT_LT(opened(promising("Wing Type", wing + "Wing Type\r\n16\r\n77\r\n")), 20);
    EXPECT_EQ(nbWings, most);
    EXPECT_EQ(Wings.size(), most);
    EXPECT_EQ(Wings(1).span, 700);
    EXPECT_EQ(Wings(2).span, 77);
    EXPECT_EQ(Wings(most).span, 0);
    EXPECT_EQ(Wings(most).airfoilSize(), 16);
    // One that is taken up is an object of its own.
    Wings(3).span = 5;
    EXPECT_EQ(Wings(4).span, 0);
    EXPECT_EQ(Wings.alike(5).span, 0);
}

TEST_F(PromisedEntries, FuselagesCostTheirRowsOnly) {
    EXPECT_LT(opened(promising("Fuselage")), 20);
    EXPECT_EQ(nbFuselages, most);
    EXPECT_EQ(ObjectList.rows.size(), static_cast<std::size_t>(most));
    EXPECT_EQ(ObjectList.rows.back().sections, "003");
    EXPECT_EQ(Fuselages(most).nb_cross, 8);
}

TEST_F(PromisedEntries, SoDoFuselagesOfAnOlderFile) {
    const std::string legacy =
        contentOf(VELNA_TEST_DATA "/projects/legacy/1.0.0_two_wings_two_fuselages.vln");
    std::string begin = legacy.substr(0, legacy.find("Fuselage\r\n"));
    begin.erase(begin.rfind('\n', begin.size() - 2) + 1);
    EXPECT_LT(opened(begin + std::to_string(most) + "\r\n"), 20);
    EXPECT_EQ(nbFuselages, most);
}

// A press that meets a promised wing takes hold of every wing that lies there, as it would of wings
// from the file.
TEST_F(PromisedEntries, APressMovesPromisedWingsLikeOthers) {
    const std::string wing =
        "Wing Type\r\n16\r\n700\r\n230\r\n150\r\n0.13\r\n0.13\r\n180\r\n10\r\n"
        "50\r\n0\r\n0\r\n200\r\n200\r\n200\r\n";
    std::string few = promising("Wing Type", wing);
    few.replace(few.find(std::to_string(most)), 5, "4");
    opened(few);
    const Point2D corner = Main.views.wings(2).vtopPoints[1];
    Main.views.testWingsVTop(
        Main.pointer.at(static_cast<float>(corner.x), static_cast<float>(corner.y)));
    const int part = Main.views.wings(2).grip.paint;
    EXPECT_NE(part, WingPart::none);
    for (int i = 3; i <= 4; ++i) EXPECT_EQ(Main.views.wings(i).grip.paint, part) << i;
    EXPECT_TRUE(Main.views.wingHit());
}

}  // namespace
}  // namespace velna::test
