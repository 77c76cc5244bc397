#include <cmath>
#include <utility>

#include "support/FreshModel.h"

namespace velna {
namespace {

class Body : public FreshModel {
protected:
    MeshSections& body() { return Fuselages(1); }
};

TEST_F(Body, DefaultShape) {
    const MeshSections fresh(millimetres, project.defaultColor);
    EXPECT_EQ(fresh.nb_sections, 3);
    EXPECT_EQ(fresh.nb_cross, 8);
    EXPECT_EQ(fresh.sel_sec, 1);
    EXPECT_TRUE(fresh.uniqueCurvature);
    EXPECT_TRUE(fresh.linkedCurvatures);
    EXPECT_FALSE(fresh.transparent);
    EXPECT_EQ(fresh.color(), project.defaultColor);
    const double expected[][7] = {
        {20, 20, 0, 10, 1, 1, 0.5}, {100, 100, 200, 10, 1, 1, 0.5}, {10, 10, 800, 30, 1, 1, 0.5}};
    for (int i = 1; i <= 3; ++i) {
        const auto& row = expected[i - 1];
        EXPECT_EQ(fresh.sectionOrder(i), i);
        EXPECT_EQ(fresh.height(i), row[0]);
        EXPECT_EQ(fresh.width(i), row[1]);
        EXPECT_EQ(fresh.pos(i), row[2]);
        EXPECT_EQ(fresh.elevation(i), row[3]);
        EXPECT_EQ(fresh.curvature(i), row[4]);
        EXPECT_EQ(fresh.curvature2(i), row[5]);
        EXPECT_EQ(fresh.bias_curve(i), row[6]);
    }
}

TEST_F(Body, DefaultShapeInAProjectInInches) {
    const MeshSections fresh(inches, project.defaultColor);
    EXPECT_EQ(fresh.height(2), 100 / 25.4);
    EXPECT_EQ(fresh.pos(3), 800 / 25.4);
    EXPECT_EQ(fresh.curvature(2), 1);
}

TEST_F(Body, CopyLiesOnTheCentreLineInOrderWithoutAPicture) {
    body().shift = 50;
    body().pos_offset = 5;
    body().elevation_offset = 6;
    body().texture_filename = "body.bmp";
    body().transparent = true;
    body().uniqueCurvature = false;
    body().linkedCurvatures = false;
    body().set_color({1, 2, 3});
    body().sectionOrder(2) = 3;
    body().sectionOrder(3) = 2;
    body().sel_sec = 2;
    const MeshSections copy = body().copyShapeAndSelectLast();
    EXPECT_EQ(copy.shift, 0);
    EXPECT_EQ(copy.pos_offset, 0);
    EXPECT_EQ(copy.elevation_offset, 0);
    EXPECT_EQ(copy.texture_filename, "");
    EXPECT_TRUE(copy.transparent);
    EXPECT_FALSE(copy.uniqueCurvature);
    EXPECT_FALSE(copy.linkedCurvatures);
    EXPECT_EQ(copy.color(), (Point3D{1, 2, 3}));
    EXPECT_EQ(copy.sel_sec, 1);
    EXPECT_EQ(copy.sectionOrder(2), 2);
    EXPECT_EQ(copy.width(2), 10);
    EXPECT_EQ(copy.width(3), 100);
    EXPECT_EQ(body().sel_sec, 3);  // the source's selection stays at its last section
}

TEST_F(Body, AnOrdinaryCopyIsWholeAndLeavesItsSource) {
    body().shift = 50;
    body().texture_filename = "body.bmp";
    body().set_color({1, 2, 3});
    body().sectionOrder(2) = 3;
    body().sectionOrder(3) = 2;
    body().sel_sec = 2;
    const MeshSections copy(std::as_const(body()));
    EXPECT_EQ(copy.shift, 50);
    EXPECT_EQ(copy.texture_filename, "body.bmp");
    EXPECT_EQ(copy.color(), (Point3D{1, 2, 3}));
    EXPECT_EQ(copy.sectionOrder, body().sectionOrder);
    EXPECT_EQ(copy.width, body().width);
    EXPECT_EQ(copy.sel_sec, 2);
    EXPECT_EQ(body().sel_sec, 2);
}

TEST_F(Body, TheShapeOfTheLongestFuselageIsCopied) {
    body().nb_sections = 32767;
    body().initArrays();
    body().sectionOrder(32767) = 3;
    const MeshSections copy = body().copyShapeAndSelectLast();
    EXPECT_EQ(copy.nb_sections, 32767);
    EXPECT_EQ(copy.sectionOrder(32767), 32767);
    EXPECT_EQ(copy.width(32767), body().width(3));
    EXPECT_EQ(body().sel_sec, 32767);
}

TEST_F(Body, WithoutASelectedSectionAnswersZeroAndTakesNothing) {
    for (int selected : {0, 4, -1, 32767}) {
        body().sel_sec = static_cast<std::int16_t>(selected);
        EXPECT_EQ(body().widthGet(), 0);
        EXPECT_EQ(body().heightGet(), 0);
        EXPECT_EQ(body().elevationGet(), 0);
        EXPECT_EQ(body().posGet(), 0);
        EXPECT_EQ(body().curvatureGet(), 0);
        EXPECT_EQ(body().curvature2Get(), 0);
        EXPECT_EQ(body().bias_curveGet(), 0);
        body().widthSet(7);
        body().heightSet(7);
        body().elevationSet(7);
        body().posSet(7);
        body().curvatureSet(7);
        body().curvature2Set(7);
        body().bias_curveSet(7);
    }
    const MeshSections fresh(millimetres, project.defaultColor);
    EXPECT_EQ(body().width, fresh.width);
    EXPECT_EQ(body().height, fresh.height);
    EXPECT_EQ(body().elevation, fresh.elevation);
    EXPECT_EQ(body().pos, fresh.pos);
    EXPECT_EQ(body().curvature, fresh.curvature);
    EXPECT_EQ(body().curvature2, fresh.curvature2);
    EXPECT_EQ(body().bias_curve, fresh.bias_curve);
}

TEST_F(Body, SelectedSectionIsFoundThroughTheOrder) {
    body().sectionOrder(2) = 3;
    body().sel_sec = 2;
    EXPECT_EQ(body().posGet(), 800);
    body().widthSet(44);
    body().heightSet(45);
    body().elevationSet(46);
    body().posSet(47);
    EXPECT_EQ(body().width(3), 44);
    EXPECT_EQ(body().height(3), 45);
    EXPECT_EQ(body().elevation(3), 46);
    EXPECT_EQ(body().pos(3), 47);
    body().widthSet(INFINITY);
    EXPECT_EQ(body().widthGet(), 44);
}

TEST_F(Body, UniqueCurvatureSetsTheShapeOfAllSections) {
    body().sel_sec = 2;
    body().curvatureSet(0.7);
    body().curvature2Set(0.8);
    body().bias_curveSet(0.3);
    for (int i = 1; i <= 3; ++i) {
        EXPECT_EQ(body().curvature(i), 0.7);
        EXPECT_EQ(body().curvature2(i), 0.8);
        EXPECT_EQ(body().bias_curve(i), 0.3);
    }
    body().uniqueCurvature = false;
    body().curvatureSet(2);
    body().curvature2Set(3);
    body().bias_curveSet(0.9);
    EXPECT_EQ(body().curvature(1), 0.7);
    EXPECT_EQ(body().curvature(2), 2);
    EXPECT_EQ(body().curvature2(2), 3);
    EXPECT_EQ(body().curvature2(3), 0.8);
    EXPECT_EQ(body().bias_curve(2), 0.9);
    EXPECT_EQ(body().bias_curve(3), 0.3);
}

TEST_F(Body, ArraysAreResizedWithTheirContents) {
    body().nb_sections = 5;
    body().initArrays();
    EXPECT_EQ(body().height.upper(), 5);
    EXPECT_EQ(body().sectionOrder.upper(), 5);
    EXPECT_EQ(body().pos(3), 800);
    EXPECT_EQ(body().pos(4), 0);
}

TEST_F(Body, OldFilesGetEqualExponentsAndACentredWidestLine) {
    body().curvature(2) = 0.6;
    body().curvature2(2) = 3;
    body().bias_curve(2) = 0.1;
    body().fillCurvatureArrays();
    EXPECT_EQ(body().curvature2(2), 0.6);
    EXPECT_EQ(body().bias_curve(2), 0.5);
}

TEST_F(Body, ConversionTakesTheLengthsAlone) {
    body().shift = 254;
    body().pos_offset = 25.4;
    body().elevation_offset = 50.8;
    body().switchToInches();
    EXPECT_EQ(body().shift, 10);
    EXPECT_EQ(body().pos_offset, 1);
    EXPECT_EQ(body().elevation_offset, 2);
    EXPECT_EQ(body().height(2), 100 / 25.4);
    EXPECT_EQ(body().elevation(3), 30 / 25.4);
    EXPECT_EQ(body().curvature(2), 1);
    body().switchToMillimeters();
    EXPECT_EQ(body().shift, 254);
    body().rescale(3);
    EXPECT_EQ(body().shift, 762);
    EXPECT_DOUBLE_EQ(body().width(2), 300);
    EXPECT_EQ(body().bias_curve(2), 0.5);
    body().pos(3) = 1e308;
    body().rescale(10);
    EXPECT_EQ(body().pos(3), 1e308);
}

TEST_F(Body, OutlineFunctionsKeepTheSign) {
    EXPECT_EQ(MeshSections::outlineCos(0, 0.3), 1);
    EXPECT_DOUBLE_EQ(MeshSections::outlineCos(2, 2), -std::cos(2.0) * std::cos(2.0));
    EXPECT_EQ(MeshSections::outlineSin(0, 0.3), 1);
    EXPECT_DOUBLE_EQ(MeshSections::outlineSin(-1, 2), 1 - std::sin(1.0) * std::sin(1.0));
    EXPECT_EQ(MeshSections::outlineCos(1, 1), std::cos(1.0));
}

// Possible from a file only: a corner of the outline, not an infinity.
TEST_F(Body, ZeroToAPowerOfZeroOrBelowCountsAsZero) {
    EXPECT_EQ(MeshSections::outlineSin(0, 0), 1);
    EXPECT_EQ(MeshSections::outlineSin(0, -1), 1);
    EXPECT_EQ(MeshSections::outlineCos(0, 0), 1);
    EXPECT_EQ(MeshSections::outlineCos(0, -2), 1);
}

TEST_F(Body, IndicesOutsideTheArraysMeanTheEntryThatHoldsNothing) {
    EXPECT_EQ(body().storageIndex(0), 0);
    EXPECT_EQ(body().storageIndex(3), 3);
    EXPECT_EQ(body().storageIndex(4), 0);
    EXPECT_EQ(body().storageIndex(-1), 0);
    body().sectionOrder(2) = 300;
    EXPECT_EQ(body().storageIndex(2), 0);
    body().nb_sections = 200;
    EXPECT_EQ(body().sectionCount(), 3);
    body().nb_sections = -2;
    EXPECT_EQ(body().sectionCount(), 0);
}

}  // namespace
}  // namespace velna
