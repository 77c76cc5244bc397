#include "support/FreshModel.h"

namespace velna {
namespace {

using Manager = FreshModel;

void setCount(int count) {
    while (nbFuselages < count) {
        ++nbFuselages;
        Fuselage::resizeFuselages(project);
        Fuselage::addFuselage(project);
    }
    nbFuselages = static_cast<std::int16_t>(count);
    ObjectList.update(Fuselages, nbFuselages);
}

TEST_F(Manager, RowTellsNumberStateAndSections) {
    ASSERT_EQ(ObjectList.rows.size(), 1u);
    EXPECT_EQ(ObjectList.rows[0].text, "Fuselage 001");
    EXPECT_EQ(ObjectList.rows[0].status, "Shown");
    EXPECT_EQ(ObjectList.rows[0].sections, "003");
    EXPECT_TRUE(ObjectList.rows[0].checked);
}

TEST_F(Manager, UpdateFollowsTheCountAndKeepsTheMarks) {
    setCount(3);
    ObjectList.setShown(2, false);
    Fuselages(2).nb_sections = 12;
    setCount(4);
    ASSERT_EQ(ObjectList.rows.size(), 4u);
    EXPECT_EQ(ObjectList.rows[1].status, "Hidden");
    EXPECT_EQ(ObjectList.rows[1].sections, "012");
    EXPECT_TRUE(ObjectList.shown(4));
    setCount(2);
    ASSERT_EQ(ObjectList.rows.size(), 2u);
    EXPECT_FALSE(ObjectList.shown(2));
    EXPECT_FALSE(ObjectList.shown(3));
}

TEST_F(Manager, CheckMarkDecidesAndNotTheText) {
    ObjectList.rows[0].status = "Hidden";
    EXPECT_TRUE(ObjectList.shown(1));
    ObjectList.rows[0].checked = false;
    ObjectList.rows[0].status = "Shown";
    EXPECT_FALSE(ObjectList.shown(1));
}

TEST_F(Manager, RowsThatDoNotExistAreHidden) {
    EXPECT_FALSE(ObjectList.shown(0));
    EXPECT_FALSE(ObjectList.shown(-1));
    EXPECT_FALSE(ObjectList.shown(2));
    ObjectList.setShown(0, true);
    ObjectList.setShown(2, true);
    EXPECT_EQ(ObjectList.rows.size(), 1u);
}

TEST_F(Manager, NumbersHaveThreeDigitsAtLeast) {
    setCount(1000);
    EXPECT_EQ(ObjectList.rows[98].text, "Fuselage 099");
    EXPECT_EQ(ObjectList.rows[999].text, "Fuselage 1000");
}

}  // namespace
}  // namespace velna
