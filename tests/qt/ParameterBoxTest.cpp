#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QWidget>

#include "model/Fuselage.h"
#include "model/Plane.h"
#include "model/Prefs.h"
#include "shell/qt/Mirrors.h"
#include "shell/qt/PanelWidgets.h"
#include "support/EditorBench.h"

// Numbers typed key by key into the panel's boxes, as the toolkit delivers them.

namespace velna {
namespace {

/// A main window that shows the states of the panel's controls.
class MirrorWindow : public test::RecordingWindow {
public:
    explicit MirrorWindow(const Mirrors& mirrors) : mirrors_(mirrors) {}
    void changed(Control control) override { mirrors_.show(control); }

private:
    const Mirrors& mirrors_;
};

class TypedNumbers : public test::EditorTest {
protected:
    void SetUp() override {
        Main.window = &mirrorWindow;
        mirrors.showAll();
    }

    static void key(QLineEdit& box, int code, const QString& text) {
        QKeyEvent down(QEvent::KeyPress, code, {}, text);
        QApplication::sendEvent(&box, &down);
        QKeyEvent up(QEvent::KeyRelease, code, {}, text);
        QApplication::sendEvent(&box, &up);
    }
    void type(const char* name, const char* text) {
        auto& box = *panel.findChild<QLineEdit*>(name);
        box.selectAll();
        for (const QChar c : QString(text)) key(box, c.toUpper().unicode(), c);
        key(box, Qt::Key_Return, "\r");
    }

    Mirrors mirrors;
    QWidget owner;
    PanelWidgets panel{false, mirrors, &owner};
    MirrorWindow mirrorWindow{mirrors};
};

TEST_F(TypedNumbers, AFractionIsStored) {
    type("LengthBText", "240.5");
    EXPECT_EQ(Wings(1).length1, 240.5);
}

TEST_F(TypedNumbers, ABoxThatRefillsItselfKeepsWhatIsBeingTyped) {
    type("ShiftText", "12.5");
    EXPECT_EQ(Wings(1).shift, 12.5);
    EXPECT_EQ(panel.findChild<QLineEdit*>("ShiftText")->text(), "12") << "after Enter as shown";
}

TEST_F(TypedNumbers, InInchesToo) {
    Prefs.units = inches;
    type("ShiftText", "1.25");
    EXPECT_EQ(Wings(1).shift, 1.25);
    EXPECT_EQ(panel.findChild<QLineEdit*>("ShiftText")->text(), "1.25");
}

TEST_F(TypedNumbers, AWordLeavesZero) {
    type("ShiftText", "abc");
    EXPECT_EQ(Wings(1).shift, 0);
}

TEST_F(TypedNumbers, BackspaceCommitsFirstAndLeavesTheShorterText) {
    auto& box = *panel.findChild<QLineEdit*>("LengthBText");
    box.selectAll();
    key(box, '1', "1");
    key(box, '2', "2");
    key(box, Qt::Key_Backspace, "\b");
    EXPECT_EQ(Wings(1).length1, 12);
    EXPECT_EQ(box.text(), "1");
}

TEST_F(TypedNumbers, AFractionOfOutlinePointsIsRoundedHalfToEven) {
    const auto& fuselage = Fuselage::current();
    auto& box = *panel.findChild<QLineEdit*>("NbCrossFuselageText");
    type("NbCrossFuselageText", "8.5");
    EXPECT_EQ(fuselage.nb_cross, 8);
    EXPECT_EQ(box.text(), "8") << "after Enter as stored";
    type("NbCrossFuselageText", "9.5");
    EXPECT_EQ(fuselage.nb_cross, 10);
    EXPECT_EQ(box.text(), "10");
}

TEST_F(TypedNumbers, LosingTheFocusStoresNothing) {
    const double before = Wings(1).length1;
    auto& box = *panel.findChild<QLineEdit*>("LengthBText");
    box.selectAll();
    key(box, '7', "7");
    QFocusEvent away(QEvent::FocusOut);
    QApplication::sendEvent(&box, &away);
    EXPECT_EQ(Wings(1).length1, before);
}

}  // namespace
}  // namespace velna
