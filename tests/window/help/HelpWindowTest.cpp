#include <QApplication>
#include <QDialog>
#include <QEventLoop>
#include <QFileDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QTabWidget>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTimer>
#include <QToolButton>

#include <gtest/gtest.h>

#include "shell/qt/HelpWindow.h"
#include "shell/qt/Legible.h"

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

TEST_F(HelpWindowTest, TheMarkInTheListIsOnThePageShown) {
    const auto marked = [] {
        const auto items = part<QListWidget>("HelpContents").selectedItems();
        return items.isEmpty() ? QString() : items.first()->text();
    };
    HelpWindow::instance().showContents();
    EXPECT_EQ(marked(), "Contents");
    HelpWindow::instance().showPage("tab-wing");
    EXPECT_EQ(marked(), "Wing tab");
    part<QToolButton>("HelpBack").click();
    EXPECT_EQ(marked(), "Contents");
    part<QToolButton>("HelpForward").click();
    EXPECT_EQ(marked(), "Wing tab");
    press(part<QListWidget>("HelpContents"), Qt::Key_Down);
    EXPECT_EQ(marked(), "Stabiliser tab");
    EXPECT_EQ(HelpWindow::instance().currentPage(), "tab-stabiliser");
    part<QTextBrowser>("HelpBrowser").setSource(QUrl(HelpFile::address("print")));
    EXPECT_EQ(marked(), "Print plans");
    part<QLineEdit>("HelpSearch").setText("joystick");
    EXPECT_EQ(marked(), "") << "the search has not found the page shown";
    part<QLineEdit>("HelpSearch").clear();
    EXPECT_EQ(marked(), "Print plans");
}

TEST_F(HelpWindowTest, TheMarkPassesOverHeadings) {
    HelpWindow::instance().showPage("examples");
    auto& list = part<QListWidget>("HelpContents");
    ASSERT_EQ(list.item(list.currentRow() + 1)->text(), "Drawing");
    press(list, Qt::Key_Down);
    EXPECT_EQ(HelpWindow::instance().currentPage(), "views");
}

TEST_F(HelpWindowTest, StandsInTheRoomBesideTheDrawingWhereAPageHasRoom) {
    HelpWindow::instance().setPlace({10, 300, 500, 250});
    QRect room(40, 60, 400, 300);
    HelpWindow::instance().setRoom([&] { return room; });
    HelpWindow::instance().showContents();
    EXPECT_TRUE(room.contains(HelpWindow::instance().geometry()));
    EXPECT_GT(HelpWindow::instance().height(), 200);
    HelpWindow::instance().hide();
    room.setHeight(100);
    HelpWindow::instance().showContents();
    EXPECT_EQ(HelpWindow::instance().geometry(), QRect(10, 300, 500, 250));
}

TEST_F(HelpWindowTest, EveryTitleOfTheListIsWhole) {
    for (const int width : {900, 420}) {
        HelpWindow::instance().setPlace({0, 0, width, 400});
        HelpWindow::instance().showContents();
        QApplication::processEvents();
        auto& list = part<QListWidget>("HelpContents");
        EXPECT_GT(part<QTextBrowser>("HelpBrowser").width(), width * 2 / 5);
        for (int row = 0; row < list.count(); ++row) {
            const QListWidgetItem* item = list.item(row);
            const QRect place = list.visualItemRect(item).adjusted(3, 0, -3, 0);
            const QRect text =
                QFontMetrics(item->font())
                    .boundingRect(QRect(0, 0, place.width(), 1000), Qt::TextWordWrap, item->text());
            EXPECT_LE(place.right(), list.viewport()->width());
            EXPECT_LE(text.width(), place.width()) << qPrintable(item->text());
            EXPECT_LE(text.height(), place.height()) << qPrintable(item->text());
        }
        HelpWindow::instance().hide();
    }
}

TEST_F(HelpWindowTest, LinksAndTheSearchBoxCanBeReadOnADarkDesktop) {
    const QPalette before = QApplication::palette();
    HelpWindow::instance().showContents();
    QPalette dark = before;
    const QColor ground(35, 38, 41);
    for (const auto role : {QPalette::Base, QPalette::Window}) dark.setColor(role, ground);
    for (const auto role : {QPalette::Text, QPalette::WindowText}) dark.setColor(role, Qt::white);
    dark.setColor(QPalette::PlaceholderText, QColor(0, 0, 0, 128));
    dark.setColor(QPalette::Link, Qt::blue);
    QApplication::setPalette(dark);
    QApplication::processEvents();
    const QColor hint =
        part<QLineEdit>("HelpSearch").palette().color(QPalette::Active, QPalette::PlaceholderText);
    EXPECT_GT(contrast(hint, ground), 4.5);
    int links = 0;
    const QTextDocument& page = *part<QTextBrowser>("HelpBrowser").document();
    for (QTextBlock block = page.begin(); block.isValid(); block = block.next()) {
        for (auto at = block.begin(); !at.atEnd(); ++at) {
            const QTextCharFormat format = at.fragment().charFormat();
            if (!format.isAnchor()) continue;
            ++links;
            EXPECT_GT(contrast(format.foreground().color(), ground), 4.5);
        }
    }
    EXPECT_GT(links, 20);
    QApplication::setPalette(before);
}

/// Counts the timer events of a widget.
class Ticks : public QObject {
public:
    explicit Ticks(QObject& watched) { watched.installEventFilter(this); }
    int seen = 0;

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Timer) ++seen;
        return false;
    }
};

TEST_F(HelpWindowTest, HidingEndsTheScrollingOfADragInTheText) {
    HelpWindow::instance().showPage("mouse-and-keys");
    auto& browser = part<QTextBrowser>("HelpBrowser");
    QWidget& text = *browser.viewport();
    const auto mouse = [&](QEvent::Type type, QPointF at) {
        QMouseEvent event(type, at, text.mapToGlobal(at), Qt::LeftButton, Qt::LeftButton,
                          Qt::NoModifier);
        QApplication::sendEvent(&text, &event);
    };
    const Ticks ticks(browser);
    mouse(QEvent::MouseButtonPress, {20, 20});
    mouse(QEvent::MouseMove, {20, -300});
    while (ticks.seen == 0) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    HelpWindow::instance().hide();
    const int before = ticks.seen;
    // The slowest scrolling ticks every 100 milliseconds.
    QEventLoop loop;
    QTimer::singleShot(500, &loop, &QEventLoop::quit);
    loop.exec();
    EXPECT_EQ(ticks.seen, before);
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
