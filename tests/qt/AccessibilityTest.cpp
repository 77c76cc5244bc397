// What the keyboard reaches and what a screen reader is told, by the interfaces that it asks.

#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QRadioButton>
#include <QTabBar>
#include <QToolButton>
#include <QTreeWidget>
#include <memory>
#include <set>

#include <gtest/gtest.h>

#include "shell/qt/Accessibility.h"
#include "shell/qt/DrawArea.h"
#include "shell/qt/MainWindow.h"
#include "shell/qt/ManagerForm.h"
#include "shell/qt/NacaForm.h"
#include "shell/qt/PanelWidgets.h"
#include "shell/qt/PrefsForm.h"
#include "shell/qt/PrintSelectForm.h"
#include "support/EditorBench.h"
#include "support/ProgramInHand.h"

namespace velna {
namespace {

QAccessible::Role roleOf(QWidget& widget) {
    return QAccessible::queryAccessibleInterface(&widget)->role();
}

std::string nameOf(QWidget& widget) {
    return QAccessible::queryAccessibleInterface(&widget)->text(QAccessible::Name).toStdString();
}

/// What labels the widget: a list has the chosen row for its name.
std::string labelOf(QWidget& widget) {
    for (const auto& [other, relation] :
         QAccessible::queryAccessibleInterface(&widget)->relations(QAccessible::Label))
        if (relation & QAccessible::Label) return other->text(QAccessible::Name).toStdString();
    return {};
}

/// What Tab can stop at in `window`, on every page.
std::vector<QWidget*> stopsOf(QWidget& window) {
    std::vector<QWidget*> stops;
    for (QWidget* widget : window.findChildren<QWidget*>())
        // What opens in a window of its own, such as a combo's rows, is no stop of this one.
        if ((widget->focusPolicy() & Qt::TabFocus) && !widget->focusProxy() &&
            widget->window() == window.window())
            stops.push_back(widget);
    return stops;
}

void expectNamed(QWidget& window) {
    const auto stops = stopsOf(window);
    EXPECT_FALSE(stops.empty());
    for (QWidget* stop : stops) {
        const std::string what =
            stop->metaObject()->className() + std::string(" ") + stop->objectName().toStdString();
        EXPECT_NE(nameOf(*stop), "") << what;
        if (roleOf(*stop) == QAccessible::ComboBox) {
            EXPECT_NE(labelOf(*stop), "") << what;
        }
        const auto role = roleOf(*stop);
        EXPECT_TRUE(role != QAccessible::Client && role != QAccessible::NoRole) << what;
    }
}

class Spoken : public test::EditorTest {
protected:
    void SetUp() override {
        static const bool installed = [] {
            Accessibility::install();
            return true;
        }();
        ASSERT_TRUE(installed);
        mainWindow.setWindowTitle("Velna V0");
        mainWindow.build(false);
        mainWindow.mirrors().showAll();
    }
    template <class Widget = QWidget>
    Widget& find(const char* name) {
        return *mainWindow.findChild<Widget*>(name);
    }

    MainWindow mainWindow{program};
};

TEST_F(Spoken, EveryStopOfTheKeyboardHasANameAndARole) {
    expectNamed(mainWindow);
    PrefsForm preferences(program.preferences, false, nullptr);
    expectNamed(preferences);
    ManagerForm manager(Main, nullptr);
    expectNamed(manager);
    PrintSelectForm print(program.print, nullptr);
    expectNamed(print);
    NacaForm naca({}, nullptr);
    expectNamed(naca);
}

TEST_F(Spoken, TheOutlineOfThePanelIsAPictureThatSaysWhatItShows) {
    auto& outline = *mainWindow.findChild<QWidget*>("WingOutline");
    EXPECT_EQ(roleOf(outline), QAccessible::Graphic);
    EXPECT_EQ(nameOf(outline), "Airfoil of this panel");
    const auto said = [&outline] {
        return QAccessible::queryAccessibleInterface(&outline)->text(QAccessible::Description);
    };
    EXPECT_EQ(said().toStdString(), "Airfoil: 16 points, 13.0 % thick");
    Wings(1).thickness2 = 0.1;
    mainWindow.mirrors().showAll();
    EXPECT_EQ(said().toStdString(), "Airfoil: 16 points, 13.0 to 10.0 % thick");
}

TEST_F(Spoken, NoTwoStopsOfTheWindowSoundAlike) {
    // The boxes of two tabs may: the open tab is told before them.
    for (int tab = 0; tab < mainWindow.panel().count(); ++tab) {
        std::set<std::string> names;
        for (QWidget* stop : stopsOf(*mainWindow.panel().widget(tab)))
            EXPECT_TRUE(names.insert(labelOf(*stop) + nameOf(*stop)).second) << nameOf(*stop);
    }
}

TEST_F(Spoken, TheBarsAreReachedByTabAndWorkedByTheArrows) {
    for (const char* name :
         {"IndexFusScroll", "FuselageScroll", "IndexWingsScroll", "IndexServosScroll"}) {
        QWidget& bar = find(name);
        EXPECT_TRUE(bar.focusPolicy() & Qt::TabFocus) << name;
        EXPECT_FALSE(bar.focusPolicy() & Qt::ClickFocus) << "a click leaves the drawing its keys";
        EXPECT_EQ(roleOf(bar), QAccessible::ScrollBar) << name;
    }
    EXPECT_EQ(nameOf(find("FuselageScroll")), "Section");
    Main.controls[Control::FuselageScroll].value = 1;
    mainWindow.mirrors().show(Control::FuselageScroll);
    const auto sectionAfter = [&](int key) {
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
        QApplication::sendEvent(&find("FuselageScroll"), &press);
        return Fuselages(1).sel_sec;
    };
    EXPECT_EQ(sectionAfter(Qt::Key_Right), 2);
    EXPECT_EQ(sectionAfter(Qt::Key_Left), 1);
    EXPECT_EQ(sectionAfter(Qt::Key_Down), 2);
    EXPECT_EQ(sectionAfter(Qt::Key_Up), 1);
    EXPECT_EQ(sectionAfter(Qt::Key_End), 3);
    EXPECT_EQ(sectionAfter(Qt::Key_Home), 1);
}

TEST_F(Spoken, AFocusedBarShowsIt) {
    QWidget& bar = find("IndexWingsScroll");
    mainWindow.panel().setCurrentIndex(PanelTab::wing);
    mainWindow.show();
    mainWindow.activateWindow();
    QApplication::processEvents();
    const QImage before = bar.grab().toImage();
    bar.setFocus(Qt::TabFocusReason);
    QApplication::processEvents();
    ASSERT_TRUE(bar.hasFocus());
    EXPECT_NE(bar.grab().toImage(), before);
}

TEST_F(Spoken, ThePartsOfTheWindowSayWhatTheyAre) {
    EXPECT_EQ(roleOf(mainWindow), QAccessible::Window);
    EXPECT_EQ(nameOf(mainWindow), "Velna V0");
    EXPECT_EQ(roleOf(mainWindow.drawArea()), QAccessible::Canvas);
    EXPECT_EQ(nameOf(mainWindow.drawArea()), "Drawing");
    EXPECT_EQ(roleOf(find("DrawSectionArea")), QAccessible::Canvas);
    EXPECT_EQ(roleOf(find("Bar")), QAccessible::ToolBar);
    EXPECT_EQ(roleOf(*mainWindow.panel().tabBar()), QAccessible::PageTabList);
}

TEST_F(Spoken, TheDrawingsValueIsTheStripsText) {
    const QAccessibleInterface& drawing =
        *QAccessible::queryAccessibleInterface(&mainWindow.drawArea());
    EXPECT_EQ(drawing.text(QAccessible::Value), QString());
    enterField(Main, Control::LengthEText);
    EXPECT_EQ(drawing.text(QAccessible::Value), "Tip chord 150.00 mm");
    EXPECT_EQ(drawing.text(QAccessible::Description), "Tip chord 150.00 mm");
}

TEST_F(Spoken, CombosAndTheButtonsOfTheListsSayWhatTheyAreFor) {
    EXPECT_EQ(labelOf(find("ServosCombo")), "Servo model");
    EXPECT_EQ(labelOf(find("ReceiverCombo")), "Receiver model");
    EXPECT_EQ(labelOf(find("AccuCombo")), "Accumulator model");
    EXPECT_EQ(roleOf(find("AccuCombo")), QAccessible::ComboBox);
    const std::pair<const char*, const char*> buttons[] = {
        {"IndexFusPlusButton", "Add fuselage"}, {"IndexFusMinusButton", "Remove last fuselage"},
        {"IndexWingPlusButton", "Add panel"},   {"IndexWingMinusButton", "Remove last panel"},
        {"IndexServosPlusButton", "Add box"},   {"IndexServosMinusButton", "Remove last box"},
    };
    for (const auto& [button, name] : buttons) {
        EXPECT_EQ(nameOf(find(button)), name);
        EXPECT_EQ(roleOf(find(button)), QAccessible::Button);
    }
}

TEST_F(Spoken, ThePreferencesOpenOnTheUnitThatIsSet) {
    for (const int unit : {millimetres, inches}) {
        Main.Prefs.selectUnit(unit);
        PrefsForm form(program.preferences, false, nullptr);
        form.show();
        const char* set = unit == inches ? "InchesOption" : "MillimetersOption";
        EXPECT_EQ(form.focusWidget(), form.findChild<QRadioButton*>(set));
    }
    Main.Prefs.selectUnit(millimetres);
}

TEST_F(Spoken, TheManagersColumnsFitLargeLetters) {
    ObjectList.update(Fuselages, nbFuselages);
    const QFont usual = QApplication::font();
    for (const int size : {9, 30}) {
        QFont font = usual;
        font.setPointSize(size);
        QApplication::setFont(font);
        ManagerForm form(Main, nullptr);
        form.show();
        QApplication::processEvents();
        auto& list = *form.findChild<QTreeWidget*>("ListView");
        EXPECT_EQ(nameOf(list), "Fuselages");
        for (int column = 0; column < 3; ++column) {
            const QString text = list.topLevelItem(0)->text(column);
            EXPECT_GE(list.columnWidth(column), list.fontMetrics().horizontalAdvance(text))
                << size << " " << column;
            const QString title = list.headerItem()->text(column);
            EXPECT_GE(list.columnWidth(column), list.fontMetrics().horizontalAdvance(title));
        }
        EXPECT_LE(list.columnWidth(0) + list.columnWidth(1) + list.columnWidth(2),
                  list.viewport()->width());
    }
    QApplication::setFont(usual);
}

}  // namespace
}  // namespace velna
