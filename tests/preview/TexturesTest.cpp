#include <algorithm>

#include "TexturesFixture.h"
#include "support/GlCompare.h"
#include "support/TemporaryFolder.h"

namespace velna::test {
namespace {

using nlohmann::json;

TEST_F(TexturesTest, SizesAreRoundedAndAWingsPictureIsTurned) {
    for (const json& row : sceneCases("picture_size")["pairs"]) {
        pictures.pictures["p"] =
            plainPicture(row["picture"][0].get<int>(), row["picture"][1].get<int>());
        putOnWing("p");
        putOnFuselage("p");
        putOnFin("p");
        uploads();
        const json& plain = row["fuselage_or_fin"];
        const json& wing = row["wing"];
        EXPECT_EQ(solids.wings(1).Left.picture.xtex, wing[0].get<int>()) << row;
        EXPECT_EQ(solids.wings(1).Left.picture.ytex, wing[1].get<int>()) << row;
        EXPECT_EQ(solids.wings(1).Right.picture.xtex, wing[0].get<int>()) << row;
        EXPECT_EQ(solids.fuselages(1).picture.xtex, plain[0].get<int>()) << row;
        EXPECT_EQ(solids.fuselages(1).picture.ytex, plain[1].get<int>()) << row;
        EXPECT_EQ(solids.rudder.picture.xtex, plain[0].get<int>()) << row;
        EXPECT_EQ(solids.rudder.picture.ytex, plain[1].get<int>()) << row;
    }
}

TEST_F(TexturesTest, TexelsAreThePicturesPixels) {
    for (const json& row : sceneCases("texels")) {
        const json& plain = row["texels_fuselage_and_fin"];
        // One of the pictures is a file; the others are what the table says.
        const std::string name = row["picture"];
        const std::string file = name == "square8.bmp" ? sceneFile(name) : name;
        if (file == name) pictures.pictures[file] = pictureOf(row["size"], plain);
        const json& turned = row.contains("texels_wing_if_turned_clockwise")
                                 ? row["texels_wing_if_turned_clockwise"]
                                 : json();
        putOnWing(file);
        putOnFin(file);
        putOnFuselage(file);
        GlTape::pictures().clear();
        rebuild();
        // Both halves show one picture, fin and fuselage another.
        ASSERT_EQ(GlTape::pictures().size(), 2u);
        if (!turned.is_null()) {
            EXPECT_EQ(GlTape::pictures()[0], turned.get<std::vector<unsigned char>>()) << name;
        }
        EXPECT_EQ(GlTape::pictures()[1], plain.get<std::vector<unsigned char>>()) << name;
        EXPECT_EQ(solids.rudder.picture.xtex, row["size"][0].get<int>()) << name;
        EXPECT_EQ(solids.rudder.picture.ytex, row["size"][1].get<int>()) << name;
        EXPECT_EQ(solids.wings(1).Left.picture.xtex, row["wing_size"][0].get<int>()) << name;
        EXPECT_EQ(solids.wings(1).Right.picture.ytex, row["wing_size"][1].get<int>()) << name;
    }
}

TEST_F(TexturesTest, EachKindIsSetUpByItsOwnRow) {
    pictures.pictures["p"] = plainPicture(4, 4);
    putOnWing("p");
    putOnFin("p");
    putOnFuselage("p");
    rebuild();
    std::vector<json> wraps;
    for (const json& call : GlTape::named("glTexParameteri")) wraps.push_back(call[3]);
    const std::vector<json> once{"GL_CLAMP", "GL_CLAMP", "GL_NEAREST", "GL_NEAREST"};
    const std::vector<json> again{"GL_REPEAT", "GL_REPEAT", "GL_NEAREST", "GL_NEAREST"};
    std::vector<json> expected;
    for (const auto* row : {&once, &once, &once, &again})
        expected.insert(expected.end(), row->begin(), row->end());
    EXPECT_EQ(wraps, expected);
    EXPECT_EQ(GlTape::count("glPixelStorei"), GlTape::count("glTexImage2D"));
    for (const json& call : GlTape::named("glTexEnvi")) EXPECT_EQ(call[3], "GL_DECAL");
}

TEST_F(TexturesTest, ObjectWithoutAPictureLeavesTheTexturingStateAlone) {
    rebuild();
    EXPECT_EQ(GlTape::count("glTexImage2D"), 0);
    EXPECT_EQ(GlTape::named("glEnable"), std::vector<json>{});
    EXPECT_EQ(GlTape::count("glTexCoord2dv"), 0);
}

TEST_F(TexturesTest, PictureIsConvertedOnceAndHandedOverAtEachRebuild) {
    pictures.pictures["p"] = plainPicture(4, 4);
    putOnWing("p");
    putOnFuselage("p");
    EXPECT_EQ(uploads().size(), 2u) << "turned for the wing, plain for the fuselage";
    EXPECT_EQ(uploads().size(), 2u);
    EXPECT_EQ(pictures.loads.size(), 1u);
    rendering.createRenderContext();
    EXPECT_EQ(pictures.loads.size(), 1u);
    putOnFuselage("p");
    uploads();
    EXPECT_EQ(pictures.loads.size(), 2u) << "the file may be another by now";
}

TEST_F(TexturesTest, ProgressIsShownDuringAConversionAndPutAway) {
    pictures.pictures["p"] = plainPicture(4, 4);
    putOnFin("p");
    rebuild();
    EXPECT_GT(GlTape::count("progress"), 0);
    EXPECT_EQ(GlTape::count("hideProgress"), 1);
    rebuild();
    EXPECT_EQ(GlTape::count("progress"), 0);
}

// The tape reports anything but GL between glNewList and glEndList; the end of the test looks.
TEST_F(TexturesTest, MessagesAndProgressComeBeforeTheListIsBegun) {
    pictures.pictures["p"] = plainPicture(4, 4);
    putOnWing("missing");
    putOnFin("p");
    const std::vector<json> calls = rebuild();
    const auto list = std::find_if(calls.begin(), calls.end(),
                                   [](const json& call) { return call[0] == "glNewList"; });
    ASSERT_NE(list, calls.end());
    const auto message =
        std::find(calls.begin(), calls.end(), json::array({"message", wingMessage}));
    EXPECT_LT(message - calls.begin(), list - calls.begin());
}

TEST_F(TexturesTest, UnreadableWingPictureGivesOneMessageAHalfAndARebuild) {
    putOnWing("missing");
    Stabilizer.set_texture_filename("missing too");
    rebuild();
    EXPECT_EQ(pictures.errors, std::vector<std::string>(4, wingMessage));
    EXPECT_FALSE(solids.wings(1).Left.picture.texture_loaded);
    rebuild();
    EXPECT_EQ(pictures.errors.size(), 8u);
    rendering.renderScene(false);
    EXPECT_EQ(pictures.errors.size(), 8u);
    EXPECT_EQ(GlTape::count("glTexImage2D"), 0);
}

TEST_F(TexturesTest, UnreadablePictureOfFinOrFuselageIsSilent) {
    const std::vector<json> plain = rebuild();
    putOnFin("missing");
    putOnFuselage("missing");
    const std::vector<json> calls = rebuild();
    EXPECT_TRUE(pictures.errors.empty());
    EXPECT_FALSE(solids.rudder.picture.texture_loaded);
    EXPECT_FALSE(solids.fuselages(1).picture.texture_loaded);
    EXPECT_TRUE(glDifferences(plain, calls).empty()) << "drawn in their colour";
}

TEST_F(TexturesTest, UnreadablePicturesOfAllKindsLeaveTheAircraftDrawn) {
    const TemporaryFolder folder;
    writeBytes(folder / "empty.bmp", "");
    writeBytes(folder / "cut.bmp", bytesOf(sceneFile("square8.bmp")).substr(0, 100));
    writeBytes(folder / "text.jpg", "This is no picture, whatever its name may say.\n");
    const std::vector<json> plain = rebuild();
    for (const char* name : {"missing.bmp", "empty.bmp", "cut.bmp", "text.jpg", ""}) {
        const std::string file = folder / name;
        putOnWing(file);
        putOnFin(file);
        putOnFuselage(file);
        EXPECT_TRUE(glDifferences(plain, rebuild()).empty()) << name;
    }
}

TEST_F(TexturesTest, PixelsFewerThanTheirSizeAreAFailure) {
    pictures.pictures["p"] = plainPicture(4, 4);
    pictures.cutPixels = true;
    putOnFin("p");
    putOnWing("p");
    rebuild();
    EXPECT_FALSE(solids.rudder.picture.texture_loaded);
    EXPECT_EQ(pictures.errors.size(), 2u);
    EXPECT_EQ(GlTape::count("hideProgress"), 1);
}

TEST_F(TexturesTest, MemoryThatCannotBeHadIsAFailureWithoutAFormLeftOver) {
    pictures.pictures["p"] = plainPicture(4, 4);
    pictures.pixelsFail = true;
    putOnWing("p");
    rebuild();
    EXPECT_FALSE(solids.wings(1).Left.picture.texture_loaded);
    EXPECT_EQ(pictures.errors.size(), 2u);
    EXPECT_EQ(GlTape::count("hideProgress"), 1);
}

TEST_F(TexturesTest, WithoutAnImagingTheAircraftIsDrawn) {
    rendering.imaging = nullptr;
    putOnWing("p");
    putOnFuselage("p");
    EXPECT_TRUE(uploads().empty());
    EXPECT_EQ(GlTape::count("glEndList"), 1);
}

// Both sides alike, so that the picture keeps its proportions.
TEST_F(TexturesTest, PictureBeyondTheLimitOfOpenGlIsHalvedUntilItFits) {
    GlTape::largestTexture = 256;
    pictures.pictures["wide"] = plainPicture(1024, 512);
    pictures.pictures["line"] = plainPicture(2048, 1);
    putOnFuselage("wide");
    putOnFin("line");
    EXPECT_EQ(uploads(), (Sizes{{256, 1}, {256, 128}}));
    putOnWing("line");
    EXPECT_EQ(uploads()[0], (std::pair{1, 256}));
}

TEST_F(TexturesTest, PlacesOfAWingFollowItsCountOfPoints) {
    pictures.pictures["p"] = plainPicture(8, 8);
    putOnWing("p");
    rebuild();
    Wings(1).nb = 30;
    Wings(1).allocate();
    for (int i = 1; i <= 30; ++i)
        Wings(1).setAirfoilPoint(i, i < 16 ? 1 - i / 15.0 : i / 30.0, 0.1);
    rebuild();
    EXPECT_NE(solids.wings(1).Left.rootTexCoord(30), 0);
    EXPECT_EQ(solids.wings(1).Left.rootTexCoord(30), solids.wings(1).Left.rootTexCoord(1));
    EXPECT_EQ(solids.wings(1).Left.rootTexCoord(31), 0);
    Wings(1).nb = 4;
    Wings(1).allocate();
    rebuild();
    EXPECT_EQ(solids.wings(1).Left.rootTexCoord(5), 0);
}

TEST_F(TexturesTest, SpanOfZeroGivesPlacesOfZeroAndNoMessage) {
    pictures.pictures["p"] = plainPicture(8, 8);
    Wings(1).span = 0;
    Rudder.span = 0;
    putOnWing("p");
    putOnFin("p");
    rebuild();
    EXPECT_TRUE(pictures.errors.empty());
    for (const json& call : GlTape::named("glTexCoord2dv")) EXPECT_EQ(call[1].get<double>(), 0);
}

// With no length the whole body shows one colour of the picture.
TEST_F(TexturesTest, FuselageThatEndsAtTheOriginHasNoPlaces) {
    pictures.pictures["p"] = plainPicture(8, 8);
    putOnFuselage("p");
    Fuselages(1).pos_offset = -800;
    const std::vector<json> calls = rebuild();
    const auto places = GlTape::named("glTexCoord2dv");
    EXPECT_FALSE(places.empty());
    for (const json& call : places) EXPECT_EQ(call, json::array({"glTexCoord2dv", 0.0, 0.0}));
}

// A place of exactly -1 stands for none: the vertex keeps the place of the one before.
TEST_F(TexturesTest, PlaceOfMinusOneIsNotGiven) {
    pictures.pictures["p"] = plainPicture(8, 8);
    putOnFuselage("p");
    rebuild();
    const int all = GlTape::count("glTexCoord2dv");
    // The nose lies as far before the origin as the tail behind it.
    Fuselages(1).pos(1) = -800;
    rebuild();
    EXPECT_EQ(GlTape::count("glTexCoord2dv"), all - 9);
}

TEST_F(TexturesTest, CapsAndClosingPairKeepTheLastPlace) {
    pictures.pictures["p"] = plainPicture(8, 8);
    putOnWing("p");
    rebuild();
    // 16 pairs a half, none for the closing pair or the cap.
    EXPECT_EQ(GlTape::count("glTexCoord2dv"), 2 * 32);
}

TEST_F(TexturesTest, HiddenFuselagesPictureIsNotTouched) {
    pictures.pictures["p"] = plainPicture(8, 8);
    putOnFuselage("p");
    ObjectList.setShown(1, false);
    EXPECT_TRUE(uploads().empty());
    EXPECT_TRUE(pictures.loads.empty());
}

TEST_F(TexturesTest, RemovedPictureIsGoneAtTheNextRebuild) {
    pictures.pictures["p"] = plainPicture(8, 8);
    putOnWing("p");
    EXPECT_EQ(uploads().size(), 1u);
    putOnWing("");
    EXPECT_TRUE(uploads().empty());
    EXPECT_EQ(GlTape::count("glTexCoord2dv"), 0);
}

TEST_F(TexturesTest, AnotherFileTakesThePlaceOfTheOneBefore) {
    pictures.pictures["p"] = plainPicture(4, 4);
    pictures.pictures["q"] = plainPicture(8, 8);
    putOnFin("p");
    putOnFuselage("p");
    EXPECT_EQ(uploads(), (Sizes{{4, 4}}));
    Rudder.texture_filename = "q";
    EXPECT_EQ(uploads(), (Sizes{{8, 8}, {4, 4}}));
    EXPECT_EQ(pictures.loads, (std::vector<std::string>{"p", "q"}));
}

// Behind the box the window asks for its picture again; that must not convert, and ask, again.
TEST_F(TexturesTest, PictureAskedForBehindAMessageBoxIsTheOldOne) {
    putOnWing("missing");
    bool nested = false;
    pictures.whileBoxOpen = [&] {
        const int lists = GlTape::count("glCallList");
        rendering.renderScene(false);
        rendering.renderScene(true);
        EXPECT_EQ(GlTape::count("glCallList"), lists + 2);
        nested = true;
    };
    rendering.renderScene(true);
    EXPECT_TRUE(nested);
    EXPECT_EQ(pictures.errors.size(), 2u);
    EXPECT_EQ(GlTape::count("glNewList"), 1);
}

TEST_F(TexturesTest, PictureAskedForBehindTheFirstMessageBoxIsNotThereYet) {
    putOnWing("missing");
    rendering.renderListBuilt = false;
    pictures.whileBoxOpen = [this] {
        const auto before = GlTape::calls().size();
        rendering.renderScene(false);
        EXPECT_EQ(GlTape::calls().size(), before);
    };
    rebuild();
    EXPECT_EQ(GlTape::count("glNewList"), 1);
}

TEST_F(TexturesTest, ProgramThatEndsBehindAMessageBoxDrawsNoMore) {
    putOnWing("missing");
    pictures.whileBoxOpen = [this] { rendering.destroyRenderContext(); };
    rebuild();
    EXPECT_EQ(GlTape::count("glClear"), 0);
}

TEST_F(TexturesTest, WithoutAContextNoPictureIsConverted) {
    rendering.destroyRenderContext();
    putOnWing("missing");
    rebuild();
    EXPECT_TRUE(pictures.errors.empty());
    EXPECT_TRUE(pictures.loads.empty());
}

}  // namespace
}  // namespace velna::test
