#include <set>

#include "editor/CursorRules.h"
#include "model/Fuselage.h"
#include "model/Plane.h"
#include "support/EditorBench.h"

namespace velna {
namespace {

class CursorRules : public test::EditorTest {
protected:
    /// Puts the form into a state that row `rule` asks for, with nothing else about.
    static void arrange(const CursorRule& rule) {
        Main.view.mode = rule.vtop == Ask::Yes ? ViewMode::VTop : ViewMode::Side;
        Main.pointer.shiftkey = rule.shift == Ask::Yes;
        Main.pointer.ctrlkey = rule.block == CursorBlock::CtrlSet;
        Main.pointer.altkey = rule.block == CursorBlock::AltSet;
        const int part = rule.parts.empty() ? 1 : rule.parts.front();
        Main.views.wings(1).grip.selected = rule.block == CursorBlock::OverWing;
        Main.views.stabilizer.grip.selected = rule.block == CursorBlock::OverStabilizer;
        Main.views.fuselage().grip.selected = rule.block == CursorBlock::OverFuselage;
        Main.views.boxes(1).grip.selected = rule.block == CursorBlock::OverBox;
        Main.views.rudder.grip.selected = rule.block == CursorBlock::OverFin;
        Main.views.wings(1).grip.selected_part = Main.views.stabilizer.grip.selected_part = part;
        Main.views.fuselage().grip.selected_part = Main.views.rudder.grip.selected_part = part;
    }
};

TEST_F(CursorRules, EveryRowShowsItsShape) {
    for (const CursorRule& rule : cursorRules()) {
        SCOPED_TRACE(static_cast<int>(rule.block));
        arrange(rule);
        Main.setCursor(CursorShape::Default);
        Main.updateCursor();
        EXPECT_EQ(Main.pointer.cursor, rule.shape);
        EXPECT_EQ(Main.pointer.cursorIcon, rule.icon);
        EXPECT_EQ(window.cursor, rule.shape);
    }
}

TEST_F(CursorRules, EveryBlockHasARow) {
    std::set<CursorBlock> blocks;
    for (const CursorRule& rule : cursorRules()) blocks.insert(rule.block);
    EXPECT_EQ(blocks.size(), 8U);
}

TEST_F(CursorRules, CustomRowsAndNoOthersHaveAPicture) {
    for (const CursorRule& rule : cursorRules())
        EXPECT_EQ(rule.shape == CursorShape::Custom, rule.icon != CursorIcon::None);
}

TEST_F(CursorRules, BothEdgesOfAPanelMoveTheWholeEdge) {
    for (int part : {WingPart::tipEdge, WingPart::rootEdge}) {
        Main.views.wings(1).grip.selected = true;
        Main.views.wings(1).grip.selected_part = part;
        Main.updateCursor();
        EXPECT_EQ(Main.pointer.cursor, CursorShape::NorthSouth) << part;
    }
}

TEST_F(CursorRules, LaterBlocksOverruleEarlierOnes) {
    Main.views.wings(1).grip.selected = true;
    Main.views.wings(1).grip.selected_part = WingPart::tipEdge;
    Main.views.stabilizer.grip.selected = true;
    Main.views.stabilizer.grip.selected_part = WingPart::tipLeading;
    Main.updateCursor();
    EXPECT_EQ(Main.pointer.cursor, CursorShape::Custom);
    Main.views.boxes(1).grip.selected = true;
    Main.updateCursor();
    EXPECT_EQ(Main.pointer.cursor, CursorShape::WestEast);
    Main.pointer.ctrlkey = true;
    Main.updateCursor();
    EXPECT_EQ(Main.pointer.cursor, CursorShape::Cross);
    Main.pointer.altkey = true;
    Main.updateCursor();
    EXPECT_EQ(Main.pointer.cursor, CursorShape::FourWay);
}

TEST_F(CursorRules, NothingSelectedWithShiftKeepsTheCursor) {
    Main.setCursor(CursorShape::NorthSouth);
    Main.pointer.shiftkey = true;
    Main.updateCursor();
    EXPECT_EQ(Main.pointer.cursor, CursorShape::NorthSouth);
    Main.pointer.shiftkey = false;
    Main.updateCursor();
    EXPECT_EQ(Main.pointer.cursor, CursorShape::Default);
}

TEST_F(CursorRules, HoverCursorRemainsUntilTheNextMoveOrRelease) {
    Main.setCursor(CursorShape::NorthSouth);
    Main.refreshDrawingArea();
    Main.DrawArea_MouseDown(1, 0, 20, 20);
    EXPECT_EQ(Main.pointer.cursor, CursorShape::NorthSouth);
    Main.DrawArea_MouseUp(1, 0, 20, 20);
    EXPECT_EQ(Main.pointer.cursor, CursorShape::Default);
}

}  // namespace
}  // namespace velna
