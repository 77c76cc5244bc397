// What stands around the files: the kinds that the dialogs offer, and what an export leaves behind.

#include "model/Fuselage.h"
#include "model/ObjectList.h"
#include "model/Plane.h"
#include "shell/ToolbarCommands.h"
#include "support/Impatient.h"
#include "support/ShellFixture.h"

namespace velna::test {
namespace {

using Toolbar::Key;

class FileCommands : public ShellFixture {
protected:
    void SetUp() override {
        ShellFixture::SetUp();
        start();
    }
    void TearDown() override {
        progress = nullptr;
        ShellFixture::TearDown();
    }
    void save(const std::string& title, int filterIndex) {
        dialogs.files.push_back({(folder / title).string(), filterIndex});
        Toolbar::click(Key::Save);
    }
};

TEST_F(FileCommands, TheDialogsOfferTheKindsInTheirOrder) {
    dialogs.files = {{"", 1}, {"", 1}};
    Toolbar::click(Key::Open);
    EXPECT_EQ(dialogs.asked.back().text,
              "Velna Project (*.vln)|*.vln|Airfoil (*.xy)|*.xy|"
              "Texture Image (*.bmp;*.jpg)|*.bmp;*.jpg|");
    Toolbar::click(Key::Save);
    EXPECT_EQ(dialogs.asked.back().text,
              "Velna Project (*.vln)|*.vln|VRML2.0 Format (*.wrl)|*.wrl|DXF Format (*.dxf)|*.dxf");
}

TEST_F(FileCommands, AnExportThatShowsAHiddenFuselageIsNoChangeToBeSaved) {
    ObjectList.setShown(1, false);
    for (const bool saved : {true, false}) {
        ObjectList.setShown(1, false);
        Main.savedProject = saved;
        save("a.wrl", 2);
        EXPECT_TRUE(ObjectList.shown(1));
        EXPECT_EQ(Main.savedProject, saved);
        save("a.dxf", 3);
        EXPECT_EQ(Main.savedProject, saved);
    }
}

TEST_F(FileCommands, ACancelledExportSaysNothingAndLeavesTheOldFile) {
    Fuselages(1).nb_cross = 9000;
    Fuselages(1).initArrays();
    Toolbar::click(Key::Front);
    Impatient user;
    progress = &user;
    for (const int kind : {2, 3}) {
        dialogs.asked.clear();
        writeFile((folder / "a").string(), "old");
        save("a", kind);
        EXPECT_EQ(dialogs.story(), "save") << kind;
        EXPECT_EQ(contentOf((folder / "a").string()), "old") << kind;
    }
}

TEST_F(FileCommands, ARemovedPictureIsNotLoadedAnyMore) {
    pictures.pictures[(folder / "p.bmp").string()] = {2, 2, std::vector<unsigned char>(12, 7)};
    const std::pair<int, std::function<bool()>> elements[] = {
        {PanelTab::fuselage, [] { return Fuselages(1).texture_loaded; }},
        {PanelTab::wing,
         [] { return Wings(1).Left->texture_loaded || Wings(1).Right->texture_loaded; }},
        {PanelTab::stabilizer,
         [] { return Stabilizer.Left->texture_loaded || Stabilizer.Right->texture_loaded; }},
        {PanelTab::rudder, [] { return Rudder.texture_loaded; }},
    };
    for (const auto& [tab, loaded] : elements) {
        Main.selectTab(tab);
        dialogs.files = {{(folder / "p.bmp").string(), 3}, {"", 3}};
        Toolbar::click(Key::Open);
        EXPECT_TRUE(loaded()) << tab;
        Main.selectTab(tab);
        Toolbar::click(Key::Open);
        EXPECT_FALSE(loaded()) << tab;
    }
}

}  // namespace
}  // namespace velna::test
