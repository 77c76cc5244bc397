#include <QFile>
#include <QGuiApplication>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QSlider>
#include <QTabBar>
#include <QWheelEvent>
#include <QWidget>
#include <set>
#include <string>

#include <gtest/gtest.h>

#include "editor/FieldNames.h"
#include "editor/Main.h"
#include "editor/PanelTable.h"
#include "shell/qt/Bar.h"
#include "shell/qt/Drawings.h"
#include "shell/qt/HelpWindow.h"
#include "shell/qt/Mirrors.h"
#include "shell/qt/PanelPlaces.h"
#include "shell/qt/PanelWidgets.h"
#include "shell/qt/PopupMenu.h"
#include "shell/qt/SurfaceWidget.h"
#include "support/ProgramInHand.h"

namespace velna {
namespace {

class Panel : public testing::TestWithParam<bool> {
protected:
    void SetUp() override { resetEditor(); }

    Mirrors mirrors{Main.controls};
    QWidget window;
    PanelWidgets panel{Main, GetParam(), mirrors, &window};
};

INSTANTIATE_TEST_SUITE_P(NormalAndCompact, Panel, testing::Bool());

TEST_P(Panel, EveryControlOfTheWindowHasAWidget) {
    const Bar bar(program.toolbar, mirrors, &window);
    const PopupMenu popup(Main, mirrors, &window);
    for (std::size_t i = 0; i < controlCount; ++i) {
        const auto control = static_cast<Control>(i);
        // The menu as a whole has no state; the sign belongs to the window itself.
        if (control == Control::Popup || control == Control::ShiftButton) continue;
        EXPECT_TRUE(mirrors.has(control)) << controlName(control);
    }
}

TEST_P(Panel, EveryTextBoxIsFoundByItsName) {
    for (const PanelField& field : panelFields())
        EXPECT_NE(panel.findChild<QLineEdit*>(controlName(field.control)), nullptr)
            << controlName(field.control);
}

TEST_P(Panel, AFieldStandsForTheHelpOfItsTab) {
    const char* const pages[] = {"tab-fuselage", "tab-wing", "tab-stabiliser", "tab-rudder",
                                 "tab-electronics"};
    const QSignalBlocker silent(panel);
    for (const PanelField& field : panelFields()) {
        panel.setCurrentIndex(field.tab);
        const auto* box = panel.findChild<QLineEdit*>(controlName(field.control));
        EXPECT_EQ(helpPageOf(box), pages[field.tab]) << controlName(field.control);
    }
    panel.setCurrentIndex(PanelTab::fuselage);
    EXPECT_EQ(helpPageOf(&panel.sectionArea()), "section-editor");
    EXPECT_EQ(helpPageOf(panel.tabBar()), "tab-fuselage");
}

TEST_P(Panel, AStateIsShownWithoutSendingAnEventBack) {
    Main.controls[Control::SpanText].text = "1234";
    Main.controls[Control::CurvatureSlider].value = 321;
    Main.savedProject = true;
    mirrors.showAll();
    EXPECT_EQ(panel.findChild<QLineEdit*>("SpanText")->text(), "1234");
    EXPECT_EQ(panel.findChild<QSlider*>("CurvatureSlider")->value(), 321);
    EXPECT_TRUE(Main.savedProject);
    EXPECT_EQ(Main.controls[Control::Curvature2Slider].value, 100);
}

TEST_P(Panel, ARefillKeepsTheCursorWhereItWas) {
    auto* box = panel.findChild<QLineEdit*>("LengthBText");
    box->setText("12345");
    box->setCursorPosition(2);
    Main.controls[Control::LengthBText].text = "99999";
    mirrors.show(Control::LengthBText);
    EXPECT_EQ(box->text(), "99999");
    EXPECT_EQ(box->cursorPosition(), 2);
}

TEST_P(Panel, TheWheelChangesNoControlOfAPageThatScrolls) {
    auto* slider = panel.findChild<QSlider*>("CurvatureSlider");
    const QSignalBlocker silent(slider);
    slider->setValue(300);
    panel.setCurrentIndex(PanelTab::fuselage);
    const auto turnWheel = [&](int height) {
        panel.resize(400, height);
        window.show();
        QCoreApplication::processEvents();
        QWheelEvent wheel({5, 5}, slider->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, {}, {},
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(slider, &wheel);
        return slider->value();
    };
    EXPECT_EQ(turnWheel(200), 300);
    EXPECT_NE(turnWheel(1200), 300);
}

TEST_P(Panel, TheBiasSliderIsNeverTallerThanThePictureBesideIt) {
    auto* slider = panel.findChild<QSlider*>("BiasSlider");
    const int picture = panel.findChild<QWidget*>("DrawSectionArea")->height();
    for (const double height : {-5.0, 0.0, 60.0, 1e300}) {
        Main.controls[Control::BiasSlider].height = height;
        mirrors.show(Control::BiasSlider);
        EXPECT_LE(slider->height(), picture);
        EXPECT_GT(slider->height(), 0);
    }
}

TEST(PanelPlaces, EveryTextBoxHasOnePlace) {
    std::set<Control> seen;
    for (const PanelPlace& place : panelPlaces()) {
        EXPECT_NE(panelField(place.control), nullptr) << controlName(place.control);
        EXPECT_TRUE(seen.insert(place.control).second) << controlName(place.control);
    }
    EXPECT_EQ(seen.size(), panelFields().size());
}

TEST(PanelPlaces, NoTwoBoxesOfATabShareAPlace) {
    std::set<std::tuple<int, int, int>> seen;
    for (const PanelPlace& place : panelPlaces())
        EXPECT_TRUE(seen.insert({panelField(place.control)->tab, place.row, place.column}).second)
            << controlName(place.control);
}

TEST(PanelPlaces, EveryDrawingLightsWhatItsBoxMeasures) {
    std::set<std::string> used;
    for (const PanelPlace& place : panelPlaces()) {
        QFile file(QString(":/measures/%1.svg").arg(place.drawing));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << place.drawing;
        const QByteArray group = QByteArray("id=\"") + place.measure + "\" display=\"none\"";
        EXPECT_TRUE(file.readAll().contains(group)) << place.drawing << " " << place.measure;
        used.insert(place.drawing);
    }
    EXPECT_EQ(used.size(), 13U);
}

TEST(Drawings, ALitMeasureChangesTheDrawing) {
    const QSize size(64, 44);
    const auto plain = Drawings::picture("measures/Image1", size, 1, Qt::black).toImage();
    const auto lit = Drawings::picture("measures/Image1", size, 1, Qt::black, "root").toImage();
    EXPECT_FALSE(plain.isNull());
    EXPECT_NE(plain, lit);
}

TEST(Drawings, EveryToolbarKeyHasAnIcon) {
    for (const Toolbar::Button& button : Toolbar::buttons()) {
        const std::string name = std::string("icons/") + button.name;
        EXPECT_FALSE(Drawings::picture(name.c_str(), {24, 24}, 2, Qt::black).isNull())
            << button.name;
    }
    EXPECT_TRUE(Drawings::picture("icons/None", {24, 24}, 1, Qt::black).isNull());
}

TEST(Drawings, AnIconIsDrawnForTheScreenAndPaleWhenItsButtonIsDisabled) {
    const QIcon icon = Drawings::icon("icons/Minus", Qt::black);
    const QImage dense = icon.pixmap({24, 24}, 2.0).toImage();
    EXPECT_EQ(dense.size(), QSize(48, 48));
    EXPECT_EQ(dense.pixelColor(24, 24), QColor(Qt::black));
    const QColor pale = icon.pixmap({24, 24}, 2.0, QIcon::Disabled).toImage().pixelColor(24, 24);
    EXPECT_GT(pale.lightness(), 60);
    EXPECT_TRUE(Drawings::icon("icons/None", Qt::black).pixmap({24, 24}, 1.0).isNull());
}

TEST(Drawings, TheInkIsTheDesktops) {
    const auto onDark = Drawings::picture("icons/Minus", {24, 24}, 1, Qt::white).toImage();
    EXPECT_EQ(onDark.pixelColor(12, 12).lightness(), 255);
}

TEST(PanelNames, EndInTheCaptionsThatStandOverTheBoxes) {
    for (const PanelPlace& place : panelPlaces()) {
        const QString name = QString::fromUtf8(fieldName(place.control).data());
        EXPECT_TRUE(name.endsWith(place.caption, Qt::CaseInsensitive))
            << name.toStdString() << " and " << place.caption;
    }
}

}  // namespace
}  // namespace velna
