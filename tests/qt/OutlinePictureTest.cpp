// The outline in the wing tab, and the form of a NACA section.

#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QSpinBox>
#include <cstdlib>
#include <limits>

#include <gtest/gtest.h>

#include "editor/Main.h"
#include "model/MainWing.h"
#include "model/NacaSection.h"
#include "shell/qt/Mirrors.h"
#include "shell/qt/NacaForm.h"
#include "shell/qt/OutlinePicture.h"
#include "shell/qt/PanelWidgets.h"
#include "support/EditorBench.h"
#include "support/ProgramInHand.h"

namespace velna {
namespace {

QImage drawn(QWidget& widget) {
    QImage image(widget.size(), QImage::Format_RGB32);
    image.fill(Qt::white);
    widget.render(&image, {}, {}, QWidget::DrawChildren);
    return image;
}

QImage blank(const QWidget& widget) {
    QImage image(widget.size(), QImage::Format_RGB32);
    image.fill(Qt::white);
    return image;
}

AirfoilOutline::Points naca(const char* number, int points) {
    return NacaSection::outline(NacaSection::number(number), points, true);
}

TEST(OutlinePicture, DrawsTheOutlineAsLargeAsItsRoomWithTheUpperSideAbove) {
    OutlinePicture picture;
    picture.resize(204, 60);
    picture.setOutline(naca("4412", 61), "4412");
    const QImage image = drawn(picture);
    QRect inked;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixelColor(x, y) != Qt::white) inked |= QRect(x, y, 1, 1);
    EXPECT_NEAR(inked.width(), 201, 2);
    EXPECT_NEAR(inked.height(), 0.125 * 200, 3);
    EXPECT_NEAR(inked.center().y(), 30, 1);
    // Camber: a third behind the nose the middle of the chord's height lies inside the section.
    EXPECT_NE(image.pixelColor(70, inked.top() + 2), Qt::white);
    EXPECT_EQ(image.pixelColor(180, inked.top() + 1), Qt::white);
}

TEST(OutlinePicture, WhatCannotBeSeenDrawsNothing) {
    OutlinePicture picture;
    for (const QSize size : {QSize(200, 60), QSize(200, 5), QSize(1, 60)}) {
        picture.resize(size);
        const double huge = std::numeric_limits<double>::max();
        for (const AirfoilOutline::Points& points :
             {AirfoilOutline::Points{}, AirfoilOutline::Points{{1, 0}},
              AirfoilOutline::Points{{1, 1}, {1, 1}},
              AirfoilOutline::Points{{huge, 0}, {-huge, huge}, {0, -huge}}}) {
            picture.setOutline(points, "");
            EXPECT_EQ(drawn(picture), blank(picture));
        }
    }
    picture.resize(200, 5);
    picture.setOutline(naca("2412", 61), "");
    EXPECT_EQ(drawn(picture), blank(picture));
}

TEST(OutlinePicture, ThousandsOfPointsLookLikeTheFewThatCanBeSeen) {
    OutlinePicture picture;
    picture.resize(200, 60);
    AirfoilOutline::Points many;
    const AirfoilOutline::Points few = naca("0012", 61);
    for (std::size_t i = 0; i + 1 < few.size(); ++i)
        for (int k = 0; k < 500; ++k)
            many.push_back({few[i].x + (few[i + 1].x - few[i].x) * k / 500,
                            few[i].y + (few[i + 1].y - few[i].y) * k / 500});
    many.push_back(few.back());
    picture.setOutline(few, "");
    const QImage wanted = drawn(picture);
    picture.setOutline(many, "");
    const QImage got = drawn(picture);
    int difference = 0;
    for (int y = 0; y < got.height(); ++y)
        for (int x = 0; x < got.width(); ++x)
            difference += std::abs(qGray(got.pixel(x, y)) - qGray(wanted.pixel(x, y)));
    EXPECT_LT(difference / (got.width() * got.height()), 2) << "of 255, on the average";
}

/// A window that shows each control in the panel.
struct ShowingWindow : test::RecordingWindow {
    explicit ShowingWindow(Mirrors& shows) : mirrors(shows) {}
    void changed(Control control) override { mirrors.show(control); }
    Mirrors& mirrors;
};

class WingTab : public testing::TestWithParam<bool> {
protected:
    void SetUp() override {
        Main.window = &window;
        mirrors.showAll();
    }
    /// Out of the page, whose layout would give it other sizes.
    QImage now() {
        picture->setParent(&holder);
        picture->resize(160, 50);
        return drawn(*picture);
    }

    test::EditorBench bench;
    Mirrors mirrors{Main.controls};
    ShowingWindow window{mirrors};
    QWidget parent;
    QWidget holder;
    PanelWidgets panel{Main, GetParam(), mirrors, &parent};
    QWidget* picture = panel.findChild<QWidget*>("WingOutline");
};

INSTANTIATE_TEST_SUITE_P(NormalAndCompact, WingTab, testing::Bool());

TEST_P(WingTab, TheOutlineFollowsImportPanelAndThickness) {
    const QImage builtIn = now();
    EXPECT_NE(builtIn, blank(*picture));
    nbWings = 2;
    MainWing::addWing(project);
    currentWing = 2;
    AirfoilOutline::putOnWing(project, naca("6409", 61), false);
    Main.updateWingInterface();
    const QImage second = now();
    EXPECT_EQ(picture->accessibleDescription(), "Airfoil: 61 points, 9.0 % thick");
    EXPECT_NE(second, builtIn);
    currentWing = 1;
    Main.updateWingInterface();
    EXPECT_EQ(now(), builtIn);
    Main.textEdited(Control::ThicknessBText, "0.2");
    Main.textKeyDown(Control::ThicknessBText, "0.2");
    EXPECT_NE(now(), builtIn);
}

/// Where the fields alone fill the tab the picture is not there.
TEST_P(WingTab, TheTabNeedsNoMoreRoomThanItsFields) {
    auto* page = static_cast<QScrollArea*>(panel.widget(PanelTab::wing))->widget();
    const int needed = page->minimumSizeHint().height();
    page->resize(page->minimumSizeHint());
    EXPECT_EQ(picture->minimumSizeHint(), QSize(0, 0));
    picture->hide();
    EXPECT_LE(needed - page->minimumSizeHint().height(), 8) << "a gap between rows";
}

TEST(NacaForm, NonsenseIsToldAndCannotBeTaken) {
    NacaForm form({"2412", 61, true, false}, nullptr);
    auto* number = form.findChild<QLineEdit*>("NacaNumber");
    auto* word = form.findChild<QLabel*>("NacaWord");
    auto* ok = form.findChild<QPushButton*>("OkCommand");
    auto* picture = form.findChild<QWidget*>("NacaOutline");
    EXPECT_TRUE(ok->isEnabled());
    EXPECT_EQ(picture->accessibleDescription(), "61 points, 12 % thick");
    for (const char* nonsense : {"", "24", "2400", "99999", "two", "2012"}) {
        number->setText(nonsense);
        EXPECT_FALSE(ok->isEnabled()) << nonsense;
        EXPECT_TRUE(word->text().startsWith("No section: ")) << nonsense;
        picture->resize(360, 120);
        EXPECT_EQ(drawn(*picture), blank(*picture));
    }
    number->setText("NACA 23012");
    EXPECT_TRUE(ok->isEnabled());
    EXPECT_EQ(word->text(), "");
    EXPECT_NE(drawn(*picture), blank(*picture));
}

TEST(NacaForm, GivesBackWhatItWasGivenAndWhatHasBeenChosen) {
    NacaForm form({"0012", 33, false, true}, nullptr);
    EXPECT_EQ(form.answer().number, "0012");
    EXPECT_EQ(form.answer().points, 33);
    EXPECT_FALSE(form.answer().closed);
    EXPECT_TRUE(form.answer().everyPanel);
    form.findChild<QRadioButton*>("NacaThisPanel")->click();
    form.findChild<QSpinBox*>("NacaPoints")->setValue(5);
    EXPECT_FALSE(form.answer().everyPanel);
    EXPECT_EQ(form.answer().points, 9);
}

}  // namespace
}  // namespace velna
