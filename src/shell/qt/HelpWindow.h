#pragma once

#include <QRect>
#include <QString>
#include <QStringList>
#include <QWidget>
#include <functional>
#include <string>

#include "shell/qt/HelpFile.h"

class QLayout;
class QLineEdit;
class QListWidget;
class QSplitter;
class QTextBrowser;
class QUrl;

namespace velna {

class KeptPlace;
class Settings;

/// The help: contents, search, back and forward in a window of its own, all read from one file,
/// `Velna.HLP` beside the program. A missing or damaged file gives a plain message in the window.
///
/// F1: a widget names its page by the dynamic property "helpPage" (a page name, such as
/// "tab-wing"). The search goes from the widget with the focus up through its parents, so a dialog
/// names its page once on itself, and the main window changes its own property with the open tab.
class HelpWindow : public QWidget {
    Q_OBJECT

public:
    /// The one help window, made at the first use.
    static HelpWindow& instance();
    /// Closes the window and drops it; the next `instance()` starts anew.
    static void quit();

    /// Names another help file than `Velna.HLP` beside the program.
    void setHelpFile(const std::string& file);
    /// Place and size of the window, in screen pixels; taken at the next showing.
    void setPlace(const QRect& place);
    /// Gives the part of the screen beside the drawing, asked at each showing: the window stands
    /// there, frame and all, instead of in its place where a page has room.
    void setRoom(std::function<QRect()> room);
    /// From now on the window comes back to where its user has put it, by what `settings` know.
    void keepPlace(Settings& settings);
    /// From now on F1 anywhere in the program opens the page of the widget in use, whenever
    /// `wanted` says so.
    void answerF1(std::function<bool()> wanted = {});

    /// Shows the window with the first page, the contents.
    void showContents();
    /// Shows a page by its name, without folder and ".html"; an unknown name shows the contents.
    void showPage(const QString& page);
    /// Shows the page of a context number; 300 is the main window's.
    void showContext(int contextId);

    /// The page shown now, by its name; empty when the help file cannot be read.
    QString currentPage() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    HelpWindow();
    /// Its parts are made at the first page, for most people never open the help.
    void build();
    QLayout* buildBar();
    void fillContents();
    void search(const QString& text);
    void markWords();
    void pageShown(const QUrl& address);
    void markPage();
    void openMarked();
    void setInks();
    void bringUp();
    QRect placeToStand() const;
    void fitContents();

    std::string file_;
    QRect place_;
    std::function<QRect()> room_;
    KeptPlace* keptPlace_ = nullptr;
    HelpFile help_;
    bool readable_ = false;
    QString page_;  ///< the one shown, by its name
    std::function<bool()> wanted_;
    QStringList words_;  ///< what is searched, marked in the page shown
    QTextBrowser* browser_ = nullptr;
    QSplitter* halves_ = nullptr;
    QListWidget* contents_ = nullptr;
    QLineEdit* search_ = nullptr;
};

/// The page about a widget, or about the nearest parent that has one; empty if none has.
QString helpPageOf(const QWidget* widget);

}  // namespace velna
