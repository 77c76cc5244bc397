#include <set>

#include "Projects.h"
#include "persistence/PictureFiles.h"

namespace velna::test {

using PictureNames = ProjectTest;

namespace {

/// Gives every object of the default aircraft a picture in `folder`.
void setPictures(const std::string& folder) {
    Wings(1).set_texture_filename(folder + "wing.bmp");
    Wings(1).qualified_texture_filename = "wing.bmp";
    Stabilizer.set_texture_filename(folder + "stab.JPG");
    Stabilizer.qualified_texture_filename = "stab.JPG";
    Fuselages(1).texture_filename = folder + "body.bmp";
    Fuselages(1).qualified_texture_filename = "body.bmp";
    Rudder.texture_filename = folder + "fin.bmp";
    Rudder.qualified_texture_filename = "fin.bmp";
}

}  // namespace

TEST_F(PictureNames, StandAtTheEndInTheOrderWingsStabiliserFuselagesFin) {
    setPictures("/pictures/");
    const auto lines = linesOf(savedBytes());
    ASSERT_GT(lines.size(), 4u);
    EXPECT_EQ(
        std::vector(lines.end() - 4, lines.end()),
        (std::vector<std::string>{"\"wing.bmp\"", "\"stab.JPG\"", "\"body.bmp\"", "\"fin.bmp\""}));
}

TEST_F(PictureNames, ACopyOfEachPictureIsPutBesideTheProject) {
    setPictures("/pictures/");
    savedBytes();
    for (const char* name : {"wing.bmp", "stab.JPG", "body.bmp", "fin.bmp"})
        EXPECT_EQ(bytesOf(folder / name), std::string("/pictures/") + name);
    EXPECT_EQ(folder.count(), 5);
}

TEST_F(PictureNames, ObjectsWithoutPictureHaveAnEmptyNameAndNoFile) {
    const auto lines = linesOf(savedBytes());
    for (std::size_t i = lines.size() - 4; i < lines.size(); ++i) EXPECT_EQ(lines[i], "\"\"");
    EXPECT_TRUE(pictures.saved.empty());
    ASSERT_TRUE(readBytes(joinedLines(lines)));
    EXPECT_EQ(Wings(1).texture_filename(), "");
    EXPECT_EQ(Rudder.texture_filename, "");
}

TEST_F(PictureNames, AProjectMovedWithItsPicturesFindsThem) {
    setPictures("/pictures/");
    const std::string path = folder / "project.vln";
    ASSERT_EQ(save(path), "");
    std::filesystem::create_directory(folder / "moved");
    for (const char* name : {"project.vln", "wing.bmp", "stab.JPG", "body.bmp", "fin.bmp"})
        std::filesystem::rename(folder / name, folder / "moved/" + name);
    resetModel();
    readFile(folder / "moved/project.vln");
    EXPECT_EQ(Wings(1).texture_filename(), folder / "moved/wing.bmp");
    solids.createAll(project);
    EXPECT_EQ(solids.wings(1).Left.picture.texture_filename, folder / "moved/wing.bmp");
    EXPECT_EQ(Stabilizer.texture_filename(), folder / "moved/stab.JPG");
    EXPECT_EQ(Fuselages(1).texture_filename, folder / "moved/body.bmp");
    EXPECT_EQ(Rudder.texture_filename, folder / "moved/fin.bmp");
    EXPECT_EQ(Rudder.qualified_texture_filename, "fin.bmp");
}

TEST_F(PictureNames, ATitleIsLookedForAsWrittenThenIgnoringCase) {
    writeBytes(folder / "WING.BMP", "");
    EXPECT_EQ(PictureFiles::qualifyTextureName(folder.path(), "wing.bmp"), folder / "WING.BMP");
    writeBytes(folder / "wing.bmp", "");
    EXPECT_EQ(PictureFiles::qualifyTextureName(folder.path(), "wing.bmp"), folder / "wing.bmp");
    EXPECT_EQ(PictureFiles::qualifyTextureName(folder.path(), "fin.bmp"), folder / "fin.bmp");
    EXPECT_EQ(PictureFiles::qualifyTextureName(folder.path(), ""), "");
    EXPECT_EQ(PictureFiles::qualifyTextureName("/no/such/folder/", "a.bmp"),
              "/no/such/folder/a.bmp");
}

TEST_F(PictureNames, TheTitleInTheFileStaysAsWritten) {
    writeBytes(folder / "WING.BMP", "");
    Wings(1).qualified_texture_filename = "wing.bmp";
    writeBytes(folder / "project.vln", savedBytes());
    readFile(folder / "project.vln");
    EXPECT_EQ(Wings(1).texture_filename(), folder / "WING.BMP");
    EXPECT_EQ(Wings(1).qualified_texture_filename, "wing.bmp");
}

TEST_F(PictureNames, AVanishedPictureIsToldAndTheAircraftIsSavedAllTheSame) {
    setPictures("/vanished/");
    pictures.allThere = false;
    const std::string reason = save(folder / "project.vln");
    EXPECT_NE(reason.find("wing.bmp"), std::string::npos) << reason;
    EXPECT_NE(reason.find("no such picture"), std::string::npos) << reason;
    resetModel();
    EXPECT_TRUE(readBytes(bytesOf(folder / "project.vln")));
    EXPECT_EQ(Wings(1).qualified_texture_filename, "wing.bmp");
}

TEST_F(PictureNames, TheNextFreeNameStandsInTheFileAndInTheModel) {
    setPictures("/pictures/");
    writeBytes(folder / "stab.JPG", "the user's");
    const auto lines = linesOf(savedBytes());
    EXPECT_EQ(lines[lines.size() - 3], "\"stab-2.JPG\"");
    EXPECT_EQ(Stabilizer.qualified_texture_filename, "stab-2.JPG");
    EXPECT_EQ(Stabilizer.texture_filename(), "/pictures/stab.JPG");
    EXPECT_EQ(bytesOf(folder / "stab.JPG"), "the user's");
    EXPECT_EQ(bytesOf(folder / "stab-2.JPG"), "/pictures/stab.JPG");
}

TEST_F(PictureNames, OneTitleOfTwoPicturesBecomesTwoAndTwoOfOneBecomeOne) {
    setPictures("/pictures/");
    Rudder.texture_filename = "/other/wing.bmp";
    Rudder.qualified_texture_filename = "wing.bmp";
    Fuselages(1).texture_filename = "/pictures/wing.bmp";
    savedBytes();
    EXPECT_EQ(Rudder.qualified_texture_filename, "wing-2.bmp");
    EXPECT_EQ(Fuselages(1).qualified_texture_filename, "wing.bmp");
    EXPECT_EQ(bytesOf(folder / "wing.bmp"), "/pictures/wing.bmp");
    EXPECT_EQ(bytesOf(folder / "wing-2.bmp"), "/other/wing.bmp");
    EXPECT_FALSE(std::filesystem::exists(folder / "body.bmp"));
}

TEST_F(PictureNames, AProjectThatIsSavedOverTakesItsPicturesPlaces) {
    setPictures("/pictures/");
    savedBytes();
    // As another run that finds them: other sources with the same titles.
    setPictures("/elsewhere/");
    savedBytes();
    EXPECT_EQ(Wings(1).qualified_texture_filename, "wing.bmp");
    EXPECT_EQ(bytesOf(folder / "wing.bmp"), "/elsewhere/wing.bmp");
    EXPECT_EQ(folder.count(), 5);
    // Under another name it leaves them to that project.
    setPictures("/pictures/");
    ASSERT_EQ(save(folder / "second.vln"), "");
    EXPECT_EQ(Wings(1).qualified_texture_filename, "wing-2.bmp");
    EXPECT_EQ(bytesOf(folder / "wing.bmp"), "/elsewhere/wing.bmp");
}

TEST_F(PictureNames, TheNamesInAProjectAreItsLastLines) {
    setPictures("/pictures/");
    const std::string bytes = savedBytes();
    EXPECT_EQ(PictureFiles::namesIn(bytes),
              (std::set<std::string>{"wing.bmp", "stab.JPG", "body.bmp", "fin.bmp"}));
    EXPECT_TRUE(PictureFiles::namesIn("a list\r\n\"thesis.doc\"\r\n").empty());
    EXPECT_TRUE(PictureFiles::namesIn("").empty());
    const auto path = projectData + "legacy/1.7.0_two_wings_inches.vln";
    EXPECT_TRUE(PictureFiles::namesIn(bytesOf(path)).empty());
}

TEST_F(PictureNames, AFolderInATitleLeadsNowhere) {
    setPictures("/pictures/");
    Wings(1).qualified_texture_filename = "../.bashrc";
    Stabilizer.qualified_texture_filename = "a/b.bmp";
    Rudder.qualified_texture_filename = "..";
    std::filesystem::create_directory(folder / "deep");
    writeBytes(folder / ".bashrc", "mine");
    const std::string reason = save(folder / "deep/p.vln");
    EXPECT_EQ(reason,
              "The picture .. could not be put beside the project (it has no name). All else has "
              "been saved.");
    EXPECT_EQ(bytesOf(folder / ".bashrc"), "mine");
    EXPECT_EQ(folder.count(), 2);
    const auto lines = linesOf(bytesOf(folder / "deep/p.vln"));
    ASSERT_GT(lines.size(), 4u);
    EXPECT_EQ(std::vector(lines.end() - 4, lines.end()),
              (std::vector<std::string>{"\".bashrc\"", "\"b.bmp\"", "\"body.bmp\"", "\"..\""}));
    EXPECT_EQ(Wings(1).qualified_texture_filename, ".bashrc");
    for (const char* name : {".bashrc", "b.bmp", "body.bmp", "p.vln"})
        EXPECT_TRUE(std::filesystem::exists(folder / "deep/" + name)) << name;
}

TEST_F(PictureNames, ThePictureInUseIsNotOverwritten) {
    setPictures(folder.path());
    for (const char* name : {"wing.bmp", "stab.JPG", "body.bmp", "fin.bmp"})
        writeBytes(folder / name, "source");
    savedBytes();
    EXPECT_TRUE(pictures.saved.empty());
    EXPECT_EQ(bytesOf(folder / "wing.bmp"), "source");
}

}  // namespace velna::test
