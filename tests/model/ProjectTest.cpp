#include <functional>
#include <vector>

#include "support/FreshModel.h"

namespace velna {
namespace {

using ProjectValue = FreshModel;

void addFuselage() {
    ++nbFuselages;
    Fuselage::resizeFuselages(project);
    Fuselage::addFuselage(project);
    ObjectList.update(Fuselages, nbFuselages);
}

TEST_F(ProjectValue, ACopyIsEqualAndStandsByItself) {
    addFuselage();
    const Project before = project;
    EXPECT_EQ(before, project);
    Fuselages(2).width(1) = 77;
    EXPECT_NE(before, project);
    EXPECT_EQ(before.Fuselages(2).width(1), 20);
    project = before;
    EXPECT_EQ(before, project);
    EXPECT_EQ(Fuselages(2).width(1), 20);
}

TEST_F(ProjectValue, EveryChangeOfAPartMakesAnotherProject) {
    const std::vector<std::function<void()>> changes{
        [] { Wings(1).span += 1; },
        [] { Wings(1).setAirfoilPoint(3, 0.3, 0.1); },
        [] { Wings(1).set_texture_filename("a.bmp"); },
        [] {
            Stabilizer.set_color({1, 2, 3});
        },
        [] { Rudder.offset1 = 5; },
        [] { Fuselages(1).curvature(2) = 0.5; },
        [] { Fuselages(1).sectionOrder(1) = 2; },
        [] { Fuselages(1).transparent = true; },
        [] { Equipments(1).orientation = 1; },
        [] { ObjectList.setShown(1, false); },
        [] { project.units = inches; },
        [] { currentEquipment = 0; },
        [] { addFuselage(); },
    };
    for (std::size_t i = 0; i < changes.size(); ++i) {
        resetModel();
        const Project before = project;
        changes[i]();
        EXPECT_NE(before, project) << i;
    }
}

TEST_F(ProjectValue, TwoFreshDefaultAircraftAreEqual) {
    Project one;
    Plane::setDefaultPlane(one);
    Project other;
    Plane::setDefaultPlane(other);
    EXPECT_EQ(one, other);
    Plane::setDefaultPlane(one);
    EXPECT_EQ(one, other);
    one.Wings(1).span = 5;
    EXPECT_EQ(other.Wings(1).span, 700);
}

// A file may promise tens of thousands of parts.
TEST_F(ProjectValue, WhatIsOnlyPromisedStaysSoInACopy) {
    nbWings = 32767;
    MainWing::allocateWings(project);
    const Project copy = project;
    EXPECT_TRUE(copy.Wings.promised(1));
    EXPECT_TRUE(copy.Wings.promised(32767));
    EXPECT_EQ(copy, project);
    Solids built;
    built.createAll(copy);
    EXPECT_TRUE(copy.Wings.promised(1));
    EXPECT_EQ(built.wings.size(), 1) << "one solid stands for all";
}

}  // namespace
}  // namespace velna
