#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QWidget>

#include "shell/qt/Legible.h"
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

    static void key(QLineEdit& box, int code, const QString& text,
                    Qt::KeyboardModifiers held = {}) {
        QKeyEvent down(QEvent::KeyPress, code, held, text);
        QApplication::sendEvent(&box, &down);
        QKeyEvent up(QEvent::KeyRelease, code, held, text);
        QApplication::sendEvent(&box, &up);
    }
    QLineEdit& box(const char* name) { return *panel.findChild<QLineEdit*>(name); }
    void type(const char* name, const char* text) {
        auto& box = this->box(name);
        box.selectAll();
        for (const QChar c : QString(text)) key(box, c.toUpper().unicode(), c);
        key(box, Qt::Key_Return, "\r");
    }

    Mirrors mirrors{Main.controls};
    QWidget owner;
    PanelWidgets panel{Main, false, mirrors, &owner};
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
    project.units = inches;
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
    const auto& fuselage = Fuselage::current(project);
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

TEST_F(TypedNumbers, WalkingThroughTheBoxesCutsNoFractionOff) {
    Wings(1).length1 = 230.75;
    Wings(1).shift = 10.5;
    Main.updateWingInterface();
    for (QLineEdit* box : panel.findChildren<QLineEdit*>())
        for (const int code : {Qt::Key_Home, Qt::Key_Shift, Qt::Key_Return, Qt::Key_Tab})
            key(*box, code, "");
    EXPECT_EQ(Wings(1).length1, 230.75);
    EXPECT_EQ(Wings(1).shift, 10.5);
    EXPECT_TRUE(Main.savedProject);
    type("LengthBText", "230");
    EXPECT_EQ(Wings(1).length1, 230) << "the same digits, typed";
}

TEST_F(TypedNumbers, ALetterWithAltTypesNothing) {
    auto& field = box("LengthBText");
    field.selectAll();
    for (const auto held : {Qt::AltModifier | Qt::NoModifier, Qt::AltModifier | Qt::ShiftModifier})
        key(field, Qt::Key_A, "a", held);
    EXPECT_EQ(field.text(), "230");
    key(field, Qt::Key_5, "5");
    key(field, Qt::Key_6, "6", Qt::AltModifier);
    EXPECT_EQ(field.text(), "5");
    EXPECT_EQ(Wings(1).length1, 5) << "but it commits, as every key";
}

TEST_F(TypedNumbers, AltGrTypes) {
    auto& field = box("LengthBText");
    field.selectAll();
    key(field, Qt::Key_5, "5", Qt::GroupSwitchModifier);
    EXPECT_EQ(field.text(), "5");
}

TEST_F(TypedNumbers, APastedNumberOfOutlinePointsIsTakenLikeATypedOne) {
    auto& field = box("NbCrossFuselageText");
    field.selectAll();
    field.insert("12x");
    EXPECT_EQ(Fuselage::current(project).nb_cross, 12);
    EXPECT_EQ(field.text(), "12x");
    EXPECT_EQ(field.toolTip(), "Taken: 12");
    key(field, Qt::Key_Return, "\r");
    EXPECT_EQ(field.text(), "12");
    EXPECT_EQ(field.toolTip(), "");
}

/// The ground under the letters of a box, which stands at its right end.
QColor ground(QWidget& box) {
    const QImage picture = box.grab().toImage();
    return picture.pixelColor(picture.width() - 6, picture.height() / 2);
}

TEST_F(TypedNumbers, ABoxWhoseTextTheModelHasNotTakenIsTintedOnEveryDesktop) {
    auto& field = box("LengthBText");
    for (const QColor& paper : {QColor(Qt::white), QColor(35, 38, 41)}) {
        SCOPED_TRACE(paper.name().toStdString());
        QPalette desktop = owner.palette();
        desktop.setColor(QPalette::Base, paper);
        desktop.setColor(QPalette::Text, contrast(paper, Qt::black) > 4 ? Qt::black : Qt::white);
        owner.setPalette(desktop);
        Main.updateWingInterface();
        EXPECT_EQ(ground(field), paper);
        EXPECT_EQ(field.toolTip(), "");

        field.selectAll();
        key(field, '7', "7");
        EXPECT_GT(contrast(ground(field), paper), 1.15);
        EXPECT_GT(contrast(ground(field), field.palette().color(QPalette::Text)), 7);
        EXPECT_EQ(field.toolTip(), "Enter takes this number");
        key(field, ',', ",");
        key(field, Qt::Key_Return, "\r");
        EXPECT_NE(ground(field), paper);
        EXPECT_EQ(field.toolTip(), "Taken: 7");
        EXPECT_EQ(field.text(), "7,");
        type("LengthBText", "8");
        EXPECT_EQ(ground(field), paper);
    }
}

}  // namespace
}  // namespace velna
