// Files that are named on the command line, dropped, or chosen among the recent ones; and the save
// that asks for no name.

#include <algorithm>
#include <map>

#include <sys/stat.h>

#include "FileCommandsFixture.h"
#include "persistence/ProjectFile.h"
#include "support/FileSizeLimit.h"

namespace velna::test {
namespace {

using Toolbar::Key;

const std::string examples = std::string(VELNA_SOURCE_DIR) + "/examples/";

class OpenFromOutside : public FileCommandsFixture {
protected:
    void SetUp() override {
        FileCommandsFixture::SetUp();
        program.settings.load(desktop.configuration);
    }
    /// Opens what cannot be opened: one message, and nothing changes.
    void expectRefused(const std::string& path, const std::string& reason) {
        dialogs.asked.clear();
        const Project before = project;
        Main.savedProject = false;
        program.files.projectName = "/named.vln";
        program.toolbar.openFile(path);
        ASSERT_EQ(dialogs.story(), "message") << path;
        EXPECT_NE(
            dialogs.asked[0].text.find(" could not be opened. The aircraft stays as it is.\n"),
            std::string::npos);
        EXPECT_NE(dialogs.asked[0].text.find(reason), std::string::npos) << dialogs.asked[0].text;
        EXPECT_TRUE(project == before) << path;
        EXPECT_EQ(program.files.projectName, "/named.vln");
    }
    void drop(const std::string& list) { program.toolbar.openDropped(list); }
};

TEST_F(OpenFromOutside, AProjectIsOpenedWithTheSameQuestionAsByOpen) {
    program.toolbar.openFile(examples + "glider.vln");
    EXPECT_TRUE(dialogs.asked.empty());
    EXPECT_EQ(program.files.projectName, examples + "glider.vln");
    EXPECT_EQ(project.projectDirectory, examples);
    EXPECT_EQ(Main.view.mode, ViewMode::VTop);
    Main.savedProject = false;
    const double span = Wings(1).span;
    Wings(1).span = 1;
    dialogs.yesNo = {false, true};
    program.toolbar.openFile(examples + "glider.vln");
    EXPECT_EQ(dialogs.asked.back().text,
              "The current project has not been saved and will be lost\nDo you want to proceed ?");
    EXPECT_EQ(Wings(1).span, 1);
    program.toolbar.openFile(examples + "glider.vln");
    EXPECT_EQ(Wings(1).span, span);
}

TEST_F(OpenFromOutside, ANoKeepsTheBackgroundPictureToo) {
    Main.pictureHere().shown = true;
    Main.savedProject = false;
    dialogs.yesNo = {false};
    program.toolbar.openFile(examples + "glider.vln");
    EXPECT_TRUE(Main.pictureHere().shown);
}

TEST_F(OpenFromOutside, AProjectIsOneWhateverItsNameAndAnAirfoilByItsOwn) {
    std::filesystem::copy(examples + "trainer.vln", folder / "trainer.txt");
    program.toolbar.openFile(file("trainer.txt"));
    EXPECT_EQ(program.files.projectName, file("trainer.txt"));
    const double before = Wings(1).thickness1;
    program.toolbar.openFile(examples + "airfoils/naca0009.xy");
    EXPECT_NE(Wings(1).thickness1, before);
    EXPECT_FALSE(Main.savedProject);
    EXPECT_EQ(program.files.projectName, file("trainer.txt")) << "the project stays the same";
    EXPECT_TRUE(dialogs.asked.empty());
}

TEST_F(OpenFromOutside, APictureGoesOntoThePartOfTheOpenTab) {
    writeFile(file("Wood.PNG"), "\x89PNG and so on");
    Main.selectTab(PanelTab::rudder);
    program.toolbar.openFile(file("Wood.PNG"));
    EXPECT_EQ(Rudder.texture_filename, file("Wood.PNG"));
    EXPECT_EQ(Rudder.qualified_texture_filename, "Wood.PNG");
    EXPECT_FALSE(Main.savedProject);
}

TEST_F(OpenFromOutside, WhatCannotBeOpenedIsToldInOneMessage) {
    ::mkfifo(file("pipe.vln").c_str(), 0600);
    writeFile(file("photo.vln"), "\xff\xd8\xff\xe0 a photo");
    writeFile(file("noise.xy"), std::string(300, '\x93'));
    writeFile(file("half.xy"), "half\r\n1 0\r\n0.5 x\r\n0 0\r\n");
    writeFile(file("empty.xy"), "");
    writeFile(file("text.jpg"), "no picture");
    writeFile(file("empty"), "");
    for (const std::string device : {"/dev/null", "/dev/zero", "/dev/tty"})
        expectRefused(device, device + ": ");
    expectRefused(file("pipe.vln"), "not a regular file");
    expectRefused(folder.string(), "not a regular file");
    expectRefused(folder.string() + "/", "not a regular file");
    expectRefused(file("missing.vln"), "No such file or directory");
    expectRefused(file("gl\xfc\x01\n\"k.png"), "No such file or directory");
    expectRefused(file("photo.vln"), "no Velna project");
    expectRefused(file("empty"), "no Velna project");
    expectRefused(file("noise.xy"), "no airfoil (");
    expectRefused(file("half.xy"), "no airfoil (");
    expectRefused(file("empty.xy"), "no airfoil (an empty file)");
    expectRefused(file("text.jpg"), "no picture that can be read");
}

TEST_F(OpenFromOutside, AStartWithAFileOpensItAndTheDemonstrationWaits) {
    for (const std::string name : {"glider.vln", "missing.vln"}) {
        renewConnected();
        writeFile(programFile("prefs.txt"), "\"DoIt\"\r\n#TRUE#\r\n#FALSE#\r\n");
        dialogs.asked.clear();
        program.run(examples + name);
        EXPECT_EQ(dialogs.story(), name == "glider.vln" ? "" : "message");
        EXPECT_EQ(project.units, name == "glider.vln" ? millimetres : inches);
        EXPECT_TRUE(Main.savedProject);
        EXPECT_FALSE(desktop.timer1);
        program.quit.unload();
        EXPECT_TRUE(contentOf(programFile("prefs.txt")).starts_with("\"DoIt\"\r\n")) << name;
    }
}

TEST_F(OpenFromOutside, ADropOfOneFileOpensIt) {
    drop("file://" + examples + "glider.vln\r\n");
    EXPECT_EQ(program.files.projectName, examples + "glider.vln");
    EXPECT_TRUE(dialogs.asked.empty());
}

TEST_F(OpenFromOutside, ADropOfAnythingElseIsToldInOneMessage) {
    const Project before = project;
    std::string thousand;
    for (int i = 0; i < 1000; ++i) thousand += "file://" + examples + "glider.vln\r\n";
    const std::map<std::string, std::string> drops{
        {thousand,
         "1000 files could not be opened. The aircraft stays as it is.\n"
         "Please drop one file at a time."},
        {"https://models.example/a.vln",
         "https://models.example/a.vln could not be opened. The "
         "aircraft stays as it is.\nIt is no file of this computer."},
        {"file://" + folder.string() + "/", "not a regular file"}};
    for (const auto& [list, text] : drops) {
        dialogs.asked.clear();
        drop(list);
        ASSERT_EQ(dialogs.story(), "message");
        EXPECT_NE(dialogs.asked[0].text.find(text), std::string::npos) << dialogs.asked[0].text;
    }
    dialogs.asked.clear();
    drop("");
    EXPECT_TRUE(dialogs.asked.empty());
    EXPECT_TRUE(project == before);
}

TEST_F(OpenFromOutside, AFlightAndTheDemonstrationTakeNoFile) {
    context.events = [this] {
        EXPECT_FALSE(program.toolbar.takesFiles());
        drop("file://" + examples + "glider.vln");
        program.flying.flying = false;
    };
    program.toolbar.click(Key::FlyingPreview);
    program.helper.running = true;
    program.toolbar.openFile(examples + "glider.vln");
    program.helper.running = false;
    EXPECT_EQ(program.files.projectName, "");
    EXPECT_TRUE(program.toolbar.takesFiles());
}

TEST_F(OpenFromOutside, SaveAgainWritesToTheNameOfTheLastSaveOrOpenUnasked) {
    saveAs("a.vln", 1);
    Wings(1).span = 650;
    Main.savedProject = false;
    dialogs.asked.clear();
    program.toolbar.click(Key::SaveAgain);
    EXPECT_TRUE(dialogs.asked.empty());
    EXPECT_TRUE(Main.savedProject);
    Project read;
    Plane::setDefaultPlane(read);
    ASSERT_TRUE(Plane::readProject(read, file("a.vln")).isDone());
    EXPECT_EQ(read.Wings(1).span, 650);
    saveAs("b.vln", 1);
    answerFile(file("a.vln"), 1);
    program.toolbar.click(Key::Open);
    EXPECT_EQ(program.files.projectName, file("a.vln"));
}

TEST_F(OpenFromOutside, SaveAgainAsksWhereThereIsNoNameYet) {
    answerFile(file("first.vln"), 1);
    program.toolbar.click(Key::SaveAgain);
    EXPECT_EQ(dialogs.story(), "save");
    EXPECT_EQ(program.files.projectName, file("first.vln"));
    dialogs.yesNo = {true};
    program.toolbar.click(Key::New);
    EXPECT_EQ(program.files.projectName, "");
}

TEST_F(OpenFromOutside, AnExportIsNoNameForTheProject) {
    saveAs("a.wrl", 2);
    saveAs("a.dxf", 3);
    EXPECT_EQ(program.files.projectName, "");
    EXPECT_TRUE(program.recent.list().empty());
}

TEST_F(OpenFromOutside, AProjectThatCouldNotBeReadToItsEndIsNotWrittenOverUnasked) {
    saveAs("a.vln", 1);
    const std::string whole = contentOf(file("a.vln"));
    writeFile(file("a.vln"), whole.substr(0, whole.size() / 2));
    program.toolbar.openFile(file("a.vln"));
    EXPECT_EQ(program.files.projectName, "");
    answerFile("", 1);
    dialogs.asked.clear();
    program.toolbar.click(Key::SaveAgain);
    EXPECT_EQ(dialogs.story(), "save");
    EXPECT_EQ(contentOf(file("a.vln")), whole.substr(0, whole.size() / 2));
}

TEST_F(OpenFromOutside, AFailedSaveAgainSaysSoAndLeavesTheOldFile) {
    saveAs("a.vln", 1);
    const std::string before = contentOf(file("a.vln"));
    Wings(1).span = 1;
    Main.savedProject = false;
    dialogs.asked.clear();
    const FileSizeLimit full(100);
    program.toolbar.click(Key::SaveAgain);
    ASSERT_EQ(dialogs.story(), "message");
    EXPECT_EQ(dialogs.asked[0].text, "a.vln could not be saved completely.\nFile too large");
    EXPECT_FALSE(Main.savedProject);
    EXPECT_EQ(contentOf(file("a.vln")), before);
    EXPECT_EQ(program.files.projectName, file("a.vln")) << "the next one tries there again";
}

TEST_F(OpenFromOutside, ASaveElsewhereThatFailedMakesTheNextOneAsk) {
    saveAs("a.vln", 1);
    saveAs("missing/b.vln", 1);
    EXPECT_EQ(program.files.projectName, "");
}

TEST_F(OpenFromOutside, TheTenLastProjectsAreRememberedTheNewestFirst) {
    for (int i = 1; i <= 12; ++i) saveAs("p" + std::to_string(i) + ".vln", 1);
    program.toolbar.openFile(file("p5.vln"));
    const auto files = program.recent.list();
    ASSERT_EQ(files.size(), 10u);
    EXPECT_EQ(files[0], file("p5.vln"));
    EXPECT_EQ(files[1], file("p12.vln"));
    EXPECT_EQ(std::ranges::count(files, file("p5.vln")), 1);
    EXPECT_EQ(std::ranges::count(files, file("p2.vln")), 0);
    renewConnected();
    program.settings.load(desktop.configuration);
    EXPECT_EQ(program.recent.list(), files);
    program.recent.clear();
    EXPECT_TRUE(program.recent.list().empty());
}

TEST_F(OpenFromOutside, WhatAnotherProgramHasOpenedStaysInTheList) {
    saveAs("a.vln", 1);
    Settings others;
    others.load(desktop.configuration);
    RecentFiles{others}.add("/others.vln");
    saveAs("b.vln", 1);
    EXPECT_EQ(program.recent.list(),
              (std::vector<std::string>{file("b.vln"), "/others.vln", file("a.vln")}));
}

TEST_F(OpenFromOutside, AFileThatIsNoProjectIsNotRemembered) {
    program.toolbar.openFile(examples + "airfoils/naca0009.xy");
    writeFile(file("photo.vln"), "\xff\xd8 a photo");
    program.toolbar.openFile(file("photo.vln"));
    EXPECT_TRUE(program.recent.list().empty());
}

}  // namespace
}  // namespace velna::test
