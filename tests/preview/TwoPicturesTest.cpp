// Two pictures of two projects in one program do not know of each other.

#include "PreviewFixture.h"

namespace velna::test {
namespace {

using nlohmann::json;

class TwoPicturesTest : public PreviewTest {
protected:
    Project other;
    Solids otherSolids;
    Rendering otherRendering{other, otherSolids};
    Flying otherFlight{other, otherRendering};
    RenderPointer otherPointer{otherRendering, otherFlight};

    void SetUp() override {
        PreviewTest::SetUp();
        Plane::setDefaultPlane(other);
        other.ObjectList.update(other.Fuselages, other.nbFuselages);
        otherRendering.context = &context;
        otherRendering.imaging = &pictures;
        otherRendering.createRenderContext();
        openPicture();
    }
};

TEST_F(TwoPicturesTest, DragInOneTurnsThatOneAlone) {
    pointer.mouseDown(Rendering::leftButton, 0, 100, 100);
    otherPointer.mouseMove(150, 150);
    EXPECT_TRUE(GlTape::calls().empty());
    pointer.mouseMove(110, 120);
    otherPointer.mouseUp(Rendering::leftButton, 150, 150);
    pointer.mouseUp(Rendering::leftButton, 110, 120);
    EXPECT_EQ(rendering.renderSpin, 910);
    EXPECT_EQ(rendering.shownView.tilt, 470);
    EXPECT_EQ(otherRendering.renderSpin, 900);
    EXPECT_EQ(otherRendering.shownView.tilt, 0);
}

TEST_F(TwoPicturesTest, RebuildOfOneTakesNoTextureFromTheOther) {
    pictures.pictures["p"] = plainPicture(4, 4);
    other.Rudder.texture_filename = "p";
    otherRendering.renderScene(true);
    EXPECT_EQ(GlTape::count("glGenTextures"), 1);
    rebuild();
    EXPECT_EQ(GlTape::count("glDeleteTextures"), 0);
    EXPECT_TRUE(otherSolids.rudder.picture.texture_loaded);
    EXPECT_FALSE(solids.rudder.picture.texture_loaded);
}

TEST_F(TwoPicturesTest, FlightOfOneScalesAndSteersThatOneAlone) {
    const Project before = other;
    context.events = [&] {
        EXPECT_FALSE(project == before);
        EXPECT_TRUE(other == before);
        EXPECT_FALSE(otherFlight.running());
        const double roll = flight.flightRoll;
        otherPointer.mouseMove(0, 0);
        EXPECT_EQ(flight.flightRoll, roll);
        otherPointer.mouseDown(Rendering::rightButton, 0, 0, 0);
        EXPECT_TRUE(otherRendering.panning);
        EXPECT_EQ(flight.flightSpeed, 10);
        flight.flying = false;
    };
    flight.flyPreview();
    EXPECT_TRUE(project == before);
    EXPECT_EQ(otherSolids.wings(1).Left.tipPoint(1).y, other.Wings(1).span);
}

}  // namespace
}  // namespace velna::test
