// What objects with the same picture share, and the room that all pictures have.

#include "TexturesFixture.h"
#include "model/Fuselage.h"
#include "model/MainWing.h"

namespace velna::test {
namespace {

using nlohmann::json;

TEST_F(TexturesTest, FileIsDecodedOnceHoweverManyObjectsCarryIt) {
    pictures.pictures["p"] = plainPicture(8, 4);
    pictures.pictures["q"] = plainPicture(4, 4);
    while (nbWings < 100) {
        ++nbWings;
        MainWing::addWing(project);
    }
    for (int i = 1; i <= nbWings; ++i) Wings(i).set_texture_filename(i % 2 == 0 ? "q" : "p");
    Stabilizer.set_texture_filename("p");
    putOnFin("p");
    putOnFuselage("p");
    EXPECT_EQ(uploads(), (Sizes{{4, 8}, {4, 4}, {8, 4}}));
    EXPECT_EQ(pictures.loads, (std::vector<std::string>{"p", "q"}));
    for (int i = 1; i <= nbWings; ++i) {
        EXPECT_TRUE(solids.wings(i).Left.picture.texture_loaded) << i;
        EXPECT_TRUE(solids.wings(i).Right.picture.texture_loaded) << i;
    }
    // Each object shows its own, whichever was handed over last.
    std::vector<int> bound;
    for (const json& call : GlTape::named("glBindTexture")) bound.push_back(call[2].get<int>());
    ASSERT_EQ(bound.size(), 204u);
    for (std::size_t i = 0; i < 200; ++i) EXPECT_EQ(bound[i], bound[i / 2 % 2 * 2]) << i;
    EXPECT_EQ(bound[200], bound[0]);
    EXPECT_EQ(bound[202], bound[203]);
    EXPECT_NE(bound[202], bound[0]);
}

TEST_F(TexturesTest, FileThatCannotBeReadIsLookedForOnceARebuild) {
    putOnWing("missing");
    Stabilizer.set_texture_filename("missing");
    putOnFin("missing");
    rebuild();
    EXPECT_EQ(pictures.loads.size(), 1u);
    EXPECT_EQ(pictures.errors, std::vector<std::string>(4, wingMessage));
}

// The next list has names of its own: OpenGL keeps no picture that is not shown any more.
TEST_F(TexturesTest, PicturesOfTheListBeforeAreGivenBack) {
    pictures.pictures["p"] = plainPicture(4, 4);
    putOnWing("p");
    rebuild();
    const json name = GlTape::named("glGenTextures").at(0)[1];
    const std::vector<json> calls = rebuild();
    EXPECT_EQ(calls[0], json::array({"glClear", "GL_COLOR_BUFFER_BIT|GL_DEPTH_BUFFER_BIT"}));
    EXPECT_EQ(calls[1], json::array({"glDeleteTextures", name}));
    putOnWing("");
    rebuild();
    EXPECT_EQ(GlTape::count("glDeleteTextures"), 1);
    rebuild();
    EXPECT_EQ(GlTape::count("glDeleteTextures"), 0);
}

/// A hidden fuselage whose picture stands for pictures that fill all but `left` bytes of the room.
void fillRoom(int left) {
    ++nbFuselages;
    Fuselage::resizeFuselages(project);
    Fuselage::addFuselage(project);
    ObjectList.update(Fuselages, nbFuselages);
    ObjectList.setShown(2, false);
    Fuselages(2).texture_filename = "elsewhere";
    solids.fuselages(2).picture.texture_loaded = true;
    solids.fuselages(2).picture.xtex = ((512 << 20) - left) / 3;
    solids.fuselages(2).picture.ytex = 1;
}

// Pictures of a whole project take no more memory than an eighth of a small machine.
TEST_F(TexturesTest, AllPicturesTogetherAreBounded) {
    GlTape::largestTexture = 1 << 20;
    fillRoom(48);
    pictures.pictures["large"] = plainPicture(64, 32);
    putOnFuselage("large");
    EXPECT_EQ(uploads(), (Sizes{{4, 2}}));
    pictures.pictures["second"] = plainPicture(16, 16);
    putOnWing("second");
    EXPECT_EQ(uploads(), (Sizes{{2, 2}, {4, 2}})) << "24 bytes are left";
}

// Turned is a second picture, which only a wing shows.
TEST_F(TexturesTest, PictureThatNoWingCarriesTakesItsRoomOnce) {
    fillRoom(96);
    pictures.pictures["p"] = pictures.pictures["q"] = plainPicture(4, 4);
    putOnFin("p");
    putOnFuselage("q");
    EXPECT_EQ(uploads(), (Sizes{{4, 4}, {4, 4}}));
}

TEST_F(TexturesTest, SharedPictureTakesItsRoomOnce) {
    fillRoom(48);
    pictures.pictures["p"] = plainPicture(4, 4);
    for (int i = 0; i < 9; ++i) {
        ++nbWings;
        MainWing::addWing(project);
    }
    for (int i = 1; i <= nbWings; ++i) Wings(i).set_texture_filename("p");
    EXPECT_EQ(uploads(), (Sizes{{4, 4}}));
    EXPECT_EQ(solids.wings(10).Right.picture.xtex, 4);
}

}  // namespace
}  // namespace velna::test
