// What a real OpenGL makes of the picture. Where there is none that draws off screen these are
// skipped.

#include <array>
#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include <GL/gl.h>

#include "model/Equipment.h"
#include "model/Fuselage.h"
#include "persistence/ProjectFile.h"
#include "preview/Flying.h"
#include "preview/Imaging.h"
#include "preview/Rendering.h"
#include "support/FreshModel.h"
#include "support/ObjectEdits.h"
#include "support/OffscreenContext.h"

namespace velna::test {
namespace {

constexpr int width = 300;
constexpr int height = 200;

using Pixel = std::array<int, 3>;

class PixelsTest : public FreshModel {
protected:
    void SetUp() override {
        FreshModel::SetUp();
        rendering.context = &context;
        rendering.createRenderContext();
        if (!rendering.contextCreated) GTEST_SKIP() << "no OpenGL that draws off screen";
        while (glGetError() != GL_NO_ERROR) {
        }
    }
    void TearDown() override {
        if (rendering.contextCreated) {
            EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
        }
        resetModel();
    }

    /// The picture from the side (`spin` 0), row 0 at the bottom.
    void show(double spin, double tilt) {
        rendering.setViewTransform(0, 0, 0, spin, tilt);
        rendering.renderScene(true);
        readBack();
    }

    void readBack() {
        bytes.resize(3UL * width * height);
        glPixelStorei(GL_PACK_ALIGNMENT, 1);
        glReadPixels(0, 0, width, height, GL_RGB, GL_UNSIGNED_BYTE, bytes.data());
    }

    Pixel pixel(int x, int y) const {
        const auto at = 3 * (static_cast<std::size_t>(y) * width + static_cast<std::size_t>(x));
        return {bytes[at], bytes[at + 1], bytes[at + 2]};
    }

    /// The place on the screen of a model point in the view of spin and tilt 0 of the default
    /// aircraft.
    static std::array<int, 2> placeOf(double x, double z) {
        const double scale = width / 2.0 / 100 * 100 / 1000;
        return {static_cast<int>(width / 2.0 + (x - 400) * scale),
                static_cast<int>(height / 2.0 + z * scale)};
    }

    int litPixels() const {
        int lit = 0;
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x) lit += pixel(x, y) != Pixel{0, 0, 0};
        return lit;
    }

    OffscreenContext context{width, height};
    Rendering rendering{project, solids};
    Flying flight{project, rendering};
    std::vector<unsigned char> bytes;
};

TEST_F(PixelsTest, SilhouetteStandsWhereTheModelIs) {
    show(0, 0);
    const auto [bodyX, bodyY] = placeOf(200, 60);
    EXPECT_NE(pixel(bodyX, bodyY), (Pixel{0, 0, 0})) << "the thickest place of the body";
    const auto [finX, finY] = placeOf(770, 120);
    EXPECT_NE(pixel(finX, finY), (Pixel{0, 0, 0})) << "the fin";
    const auto [aboveX, aboveY] = placeOf(200, 200);
    EXPECT_EQ(pixel(aboveX, aboveY), (Pixel{0, 0, 0})) << "above the body";
    const auto [beforeX, beforeY] = placeOf(-60, 20);
    EXPECT_EQ(pixel(beforeX, beforeY), (Pixel{0, 0, 0})) << "before the nose";
}

TEST_F(PixelsTest, FaceTowardsTheLightHasTheObjectsColour) {
    Fuselages(1).set_color({255, 0, 0});
    show(0, 0);
    // Below the wing, which is nearer and covers what lies higher.
    const auto [x, y] = placeOf(100, 40);
    const Pixel lit = pixel(x, y);
    EXPECT_GT(lit[0], 100);
    EXPECT_EQ(lit[1], 0);
    EXPECT_EQ(lit[2], 0);
}

TEST_F(PixelsTest, HiddenFuselageIsGone) {
    show(0, 0);
    const auto [x, y] = placeOf(100, 40);
    EXPECT_NE(pixel(x, y), (Pixel{0, 0, 0}));
    const int before = litPixels();
    ObjectList.setShown(1, false);
    show(0, 0);
    EXPECT_EQ(pixel(x, y), (Pixel{0, 0, 0}));
    EXPECT_LT(litPixels(), before);
}

TEST_F(PixelsTest, TransparentFuselageLetsThroughWhatStandsBehind) {
    Fuselages(1).set_color({200, 0, 0});
    show(0, 0);
    const auto [x, y] = placeOf(100, 40);
    const Pixel solid = pixel(x, y);
    Fuselages(1).transparent = true;
    show(0, 0);
    const Pixel blended = pixel(x, y);
    EXPECT_NE(blended, (Pixel{0, 0, 0}));
    EXPECT_LT(blended[0], solid[0]) << "the black behind it darkens it";
}

TEST_F(PixelsTest, ReplayedListGivesTheSamePicture) {
    show(300, 200);
    const std::vector<unsigned char> built = bytes;
    rendering.renderScene(false);
    readBack();
    EXPECT_EQ(bytes, built);
    EXPECT_GT(litPixels(), 500);
}

/// Three boxes of three kinds side by side, high above the aircraft.
void layBoxes() {
    nbEquipments = 3;
    Equipment::resizeEquipments(project, nbEquipments);
    for (const int kind : {BoxKind::servo, BoxKind::receiver, BoxKind::accumulator}) {
        ElectroBox& box = Equipments(kind + 1);
        box.box = kind;
        box.length = 100;
        box.width = 100;
        box.height = 100;
        box.pos = 100 + 200 * kind;
        box.elevation = 300;
        box.shift = 0;
    }
}

TEST_F(PixelsTest, BoxesHaveTheirOwnColoursWhenTheListIsBuiltAndWhenItIsReplayed) {
    layBoxes();
    show(0, 0);
    for (const char* frame : {"built", "replayed"}) {
        SCOPED_TRACE(frame);
        for (const int kind : {BoxKind::servo, BoxKind::receiver, BoxKind::accumulator}) {
            const auto [x, y] = placeOf(150 + 200 * kind, 350);
            const Pixel seen = pixel(x, y);
            const auto colour = static_cast<std::size_t>(2 - kind);  // blue, green, red
            for (std::size_t i = 0; i < 3; ++i) {
                if (i == colour)
                    EXPECT_GT(seen[i], 50) << "kind " << kind;
                else
                    EXPECT_EQ(seen[i], 0) << "kind " << kind << " part " << i;
            }
        }
        rendering.renderScene(false);
        readBack();
    }
}

TEST_F(PixelsTest, FlightShowsTheAircraftAndLeavesThePicture) {
    int lit = 0;
    int frames = 0;
    context.events = [&] {
        bytes.resize(3UL * width * height);
        glPixelStorei(GL_PACK_ALIGNMENT, 1);
        glReadPixels(0, 0, width, height, GL_RGB, GL_UNSIGNED_BYTE, bytes.data());
        lit = litPixels();
        flight.flying = ++frames < 3;
    };
    flight.flyPreview();
    EXPECT_EQ(frames, 3);
    EXPECT_GT(lit, 50);
    show(0, 0);
    EXPECT_GT(litPixels(), 500);
}

/// An imaging in which every file is one small picture, with a colour of its own for each pixel.
class SmallPictures : public Imaging {
public:
    bool load(const std::string&, std::string&) override {
        width_ = 8;
        height_ = 16;
        return true;
    }
    int width() const override { return width_; }
    int height() const override { return height_; }
    void rotateQuarter() override { std::swap(width_, height_); }
    void resize(int width, int height) override {
        width_ = width;
        height_ = height;
    }
    PictureBytes pixels() override {
        PictureBytes picture{width_, height_, {}};
        for (int i = 0; i < width_ * height_; ++i)
            for (const int part : {40, 255 - i, i})
                picture.bytes.push_back(static_cast<unsigned char>(part));
        return picture;
    }
    bool encode(PictureFormat, std::string&, std::string&) override { return false; }
    void showProgress(int) override {}
    void hideProgress() override {}
    void showError(const std::string&) override {}

private:
    int width_ = 0;
    int height_ = 0;
};

/// Only what has changed is built, and every pixel is as if all were.
TEST_F(PixelsTest, EachEditShowsThePixelsOfAWholeRebuild) {
    SmallPictures imaging;
    rendering.imaging = &imaging;
    Equipment::resizeEquipments(project, ++nbEquipments);
    std::vector<unsigned char> before;
    int seen = 0;
    for (const Edit& edit : objectEdits()) {
        edit.make();
        show(300, 300);
        const std::vector<unsigned char> changed = bytes;
        seen += changed != before;
        before = changed;
        rendering.renderListBuilt = false;
        show(300, 300);
        EXPECT_EQ(bytes, changed) << edit.name;
    }
    EXPECT_GT(seen, 20) << "most edits are to be seen at all";
}

class ExamplePixels : public PixelsTest, public ::testing::WithParamInterface<const char*> {
protected:
    SmallPictures pictures;

    void SetUp() override {
        PixelsTest::SetUp();
        rendering.imaging = &pictures;
        EXPECT_TRUE(Plane::readProject(
                        project, VELNA_SOURCE_DIR "/examples/" + std::string(GetParam()) + ".vln")
                        .isDone());
        ObjectList.update(Fuselages, nbFuselages);
    }
};

TEST_P(ExamplePixels, AreTheSameBuiltAndReplayed) {
    for (const double spin : {900.0, 300.0, -1350.0}) {
        show(spin, 450);
        const std::vector<unsigned char> built = bytes;
        EXPECT_GT(litPixels(), 500);
        rendering.renderScene(false);
        readBack();
        EXPECT_EQ(bytes, built) << spin;
        rendering.renderScene(true);
        readBack();
        EXPECT_EQ(bytes, built) << spin;
    }
}

INSTANTIATE_TEST_SUITE_P(All, ExamplePixels,
                         ::testing::Values("glider", "sport_inches", "trainer", "twin_hull"),
                         [](const auto& instance) { return std::string(instance.param); });

}  // namespace
}  // namespace velna::test
