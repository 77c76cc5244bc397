// The further kinds of Save: solids to print, and the model for strict readers.

#include "FileCommandsFixture.h"

namespace velna::test {
namespace {

class SolidCommands : public FileCommandsFixture {
protected:
    /// The kinds behind the told ones, counted from 1 as the dialog does.
    static constexpr int stl = 4;
    static constexpr int threeMf = 5;
    static constexpr int obj = 6;
    static constexpr int glb = 7;
    static constexpr int strictModel = 8;

    void saveSolids(const std::string& name, int kind, const SolidOptions& options = {}) {
        dialogs.solidOptions = {options};
        saveAs(name, kind);
    }
};

TEST_F(SolidCommands, EachKindWritesItsFormat) {
    saveSolids("a.stl", stl);
    saveSolids("a.3mf", threeMf);
    saveSolids("a.obj", obj);
    saveSolids("a.glb", glb);
    EXPECT_TRUE(contentOf(file("a.stl")).starts_with("Velna "));
    EXPECT_TRUE(contentOf(file("a.3mf")).starts_with("PK\3\4"));
    EXPECT_TRUE(contentOf(file("a.obj")).starts_with("# Velna "));
    EXPECT_TRUE(contentOf(file("a.glb")).starts_with("glTF"));
    EXPECT_EQ(dialogs.story(), "save solids save solids save solids save solids");
}

TEST_F(SolidCommands, TheKindsStandInTheDialogBehindTheOthers) {
    answerFile("", 1);
    program.toolbar.click(Toolbar::Key::Save);
    const std::string& filter = dialogs.asked.back().text;
    EXPECT_NE(filter.find("|STL for printing (*.stl)|*.stl|3MF for printing (*.3mf)|*.3mf"
                          "|OBJ Model (*.obj)|*.obj|glTF Model (*.glb)|*.glb"
                          "|VRML2.0 for strict readers (*.wrl)|*.wrl"),
              std::string::npos);
}

TEST_F(SolidCommands, ACancelOfTheOptionsWritesNothing) {
    dialogs.solidOptions = {std::nullopt};
    saveAs("a.stl", stl);
    EXPECT_FALSE(std::filesystem::exists(file("a.stl")));
    EXPECT_EQ(dialogs.story(), "save solids");
}

TEST_F(SolidCommands, TheOptionsAreAskedAsTheyWereLastLeft) {
    saveSolids("a.stl", stl, {true, true});
    saveSolids("b.stl", stl);
    EXPECT_EQ(dialogs.asked.back().text, "eachcut");
}

TEST_F(SolidCommands, FilesOfPartsThatStandAreAskedAbout) {
    writeFile(file("a-fin.stl"), "old");
    dialogs.yesNo = {false};
    saveSolids("a.stl", stl, {true, false});
    EXPECT_EQ(dialogs.asked.back().text,
              "These files will be replaced:\na-fin.stl\nDo you want to proceed ?");
    EXPECT_EQ(contentOf(file("a-fin.stl")), "old");
    EXPECT_FALSE(std::filesystem::exists(file("a-fuselage-1.stl")));
    dialogs.yesNo = {true};
    saveSolids("a.stl", stl, {true, false});
    EXPECT_TRUE(contentOf(file("a-fin.stl")).starts_with("Velna "));
    EXPECT_FALSE(std::filesystem::exists(file("a.stl")));
}

TEST_F(SolidCommands, OfManyFilesThatStandTheFirstAreNamed) {
    nbFuselages = 300;
    Fuselage::resizeFuselages(project);
    for (int n = 1; n <= nbFuselages; ++n)
        writeFile(file("a-fuselage-" + std::to_string(n) + ".stl"), "old");
    dialogs.yesNo = {false};
    saveSolids("a.stl", stl, {true, false});
    const std::string& question = dialogs.asked.back().text;
    EXPECT_NE(question.find("a-fuselage-11.stl\nand 289 more\n"), std::string::npos) << question;
}

TEST_F(SolidCommands, ChangeNothingThatIsToBeSaved) {
    ObjectList.setShown(1, false);
    const Project before = project;
    Main.savedProject = true;
    saveSolids("a.glb", glb);
    EXPECT_EQ(project, before);
    EXPECT_TRUE(Main.savedProject);
}

TEST_F(SolidCommands, WhatIsLeftOutIsTold) {
    Stabilizer.span = 0;
    saveSolids("a.stl", stl);
    EXPECT_EQ(dialogs.asked.back().kind, "message");
    EXPECT_EQ(dialogs.asked.back().text,
              "a.stl could not be exported completely.\nLeft out: stabilizer left (no length), "
              "stabilizer right (no length). All else has been exported.");
    EXPECT_TRUE(std::filesystem::exists(file("a.stl")));
}

TEST_F(SolidCommands, TheStrictModelHasTheBlank) {
    saveAs("a.wrl", 2);
    saveAs("b.wrl", strictModel);
    EXPECT_EQ(contentOf(file("a.wrl")).find("          size "), std::string::npos);
    EXPECT_NE(contentOf(file("b.wrl")).find("          size 30 "), std::string::npos);
    EXPECT_EQ(contentOf(file("a.wrl")).size() + 1, contentOf(file("b.wrl")).size());
}

}  // namespace
}  // namespace velna::test
