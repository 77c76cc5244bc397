#include <QApplication>
#include <QDialog>
#include <QFileDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QTabWidget>
#include <QTextBrowser>
#include <QToolButton>

#include <gtest/gtest.h>

#include "shell/qt/HelpWindow.h"

using namespace velna;

namespace {

class HelpWindowTest : public testing::Test {
protected:
    HelpWindowTest() { HelpWindow::instance().setHelpFile(VELNA_HELP); }
    ~HelpWindowTest() override { HelpWindow::quit(); }

    static void press(QWidget& widget, int key) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QApplication::sendEvent(&widget, &event);
    }

    template <typename Kind>
    static Kind& part(const char* name) {
        return *HelpWindow::instance().findChild<Kind*>(name);
    }
};

}  // namespace

TEST_F(HelpWindowTest, ShowsTheContentsFirst) {
    HelpWindow::instance().showContents();
    EXPECT_TRUE(HelpWindow::instance().isVisible());
    EXPECT_EQ(HelpWindow::instance().currentPage(), "index");
    EXPECT_GT(part<QListWidget>("HelpContents").count(), 25);
}

TEST_F(HelpWindowTest, AnUnknownPageIsTheContents) {
    HelpWindow::instance().showPage("print");
    EXPECT_EQ(HelpWindow::instance().currentPage(), "print");
    HelpWindow::instance().showPage("nowhere");
    EXPECT_EQ(HelpWindow::instance().currentPage(), "index");
}

TEST_F(HelpWindowTest, ContextNumber300IsTheMainWindow) {
    HelpWindow::instance().showContext(300);
    EXPECT_EQ(HelpWindow::instance().currentPage(), "main-window");
    HelpWindow::instance().showContext(301);
    EXPECT_EQ(HelpWindow::instance().currentPage(), "index");
}

TEST_F(HelpWindowTest, GoesBackAndForward) {
    HelpWindow::instance().showContents();
    HelpWindow::instance().showPage("tab-wing");
    part<QToolButton>("HelpBack").click();
    EXPECT_EQ(HelpWindow::instance().currentPage(), "index");
    part<QToolButton>("HelpForward").click();
    EXPECT_EQ(HelpWindow::instance().currentPage(), "tab-wing");
}

TEST_F(HelpWindowTest, SearchListsThePagesWithTheWordsAndMarksThem) {
    HelpWindow::instance().showPage("print");
    auto& list = part<QListWidget>("HelpContents");
    const int all = list.count();
    part<QLineEdit>("HelpSearch").setText("ruler");
    EXPECT_GT(list.count(), 0);
    EXPECT_LT(list.count(), all / 2);
    EXPECT_FALSE(part<QTextBrowser>("HelpBrowser").extraSelections().isEmpty());
    part<QLineEdit>("HelpSearch").setText("qqqq");
    EXPECT_EQ(list.item(0)->text(), "No page has these words.");
    part<QLineEdit>("HelpSearch").clear();
    EXPECT_EQ(list.count(), all);
    EXPECT_TRUE(part<QTextBrowser>("HelpBrowser").extraSelections().isEmpty());
}

TEST_F(HelpWindowTest, AMissingFileGivesAPlainMessageAndNothingElse) {
    HelpWindow::instance().setHelpFile("/absent/Velna.HLP");
    HelpWindow::instance().showPage("print");
    const QString text = part<QTextBrowser>("HelpBrowser").toPlainText();
    EXPECT_TRUE(text.contains("/absent/Velna.HLP is missing or damaged")) << qPrintable(text);
    EXPECT_EQ(part<QListWidget>("HelpContents").count(), 0);
    EXPECT_FALSE(part<QLineEdit>("HelpSearch").isEnabled());
    EXPECT_EQ(HelpWindow::instance().currentPage(), "");
    // Put back meanwhile, the file is found.
    HelpWindow::instance().setHelpFile(VELNA_HELP);
    HelpWindow::instance().showPage("print");
    EXPECT_EQ(HelpWindow::instance().currentPage(), "print");
}

TEST_F(HelpWindowTest, F1OpensThePageOfTheOpenTab) {
    QWidget window;
    QTabWidget panel(&window);
    panel.setObjectName("Parameters");
    auto* field = new QLineEdit;
    panel.addTab(new QWidget, "0");
    panel.addTab(field, "1");
    panel.setCurrentIndex(1);
    QWidget area(&window);
    HelpWindow::instance().answerF1();
    press(*field, Qt::Key_F1);
    EXPECT_EQ(HelpWindow::instance().currentPage(), "tab-wing");
    panel.setCurrentIndex(0);
    press(area, Qt::Key_F1);
    EXPECT_EQ(HelpWindow::instance().currentPage(), "tab-fuselage");
}

TEST_F(HelpWindowTest, F1OpensThePageOfTheDialog) {
    QWidget main;
    QTabWidget panel(&main);
    panel.setObjectName("Parameters");
    QFileDialog files(&main);
    files.setOption(QFileDialog::DontUseNativeDialog);
    EXPECT_EQ(helpPageOf(&files), "open");
    files.setAcceptMode(QFileDialog::AcceptSave);
    EXPECT_EQ(helpPageOf(&files), "save");
    QDialog manager(&main);
    manager.setObjectName("ObjectList");
    QLineEdit inside(&manager);
    EXPECT_EQ(helpPageOf(&inside), "manager");
    inside.setProperty("helpPage", "files");
    EXPECT_EQ(helpPageOf(&inside), "files");
    QDialog other(&main);
    EXPECT_EQ(helpPageOf(&other), "");
}

TEST_F(HelpWindowTest, F1IsAnsweredOnlyWhenItIsWanted) {
    QLineEdit field;
    bool wanted = false;
    HelpWindow::instance().answerF1([&] { return wanted; });
    press(field, Qt::Key_F1);
    EXPECT_FALSE(HelpWindow::instance().isVisible());
    wanted = true;
    press(field, Qt::Key_F1);
    EXPECT_TRUE(HelpWindow::instance().isVisible());
}

TEST_F(HelpWindowTest, OtherKeysAndTheReleaseOfF1AreNotAnswered) {
    QLineEdit field;
    HelpWindow::instance().answerF1();
    press(field, Qt::Key_F2);
    EXPECT_FALSE(HelpWindow::instance().isVisible());
    QKeyEvent release(QEvent::KeyRelease, Qt::Key_F1, Qt::NoModifier);
    QApplication::sendEvent(&field, &release);
    EXPECT_FALSE(HelpWindow::instance().isVisible());
}

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
