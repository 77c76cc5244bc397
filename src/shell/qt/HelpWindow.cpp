#include "shell/qt/HelpWindow.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QShortcut>
#include <QSplitter>
#include <QTabWidget>
#include <QTextBrowser>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWindow>

namespace velna {
namespace {

QPointer<HelpWindow> theWindow;

// The page of each context number in use.
struct Context {
    int id;
    const char* page;
};
constexpr Context contexts[] = {{300, "main-window"}};

// The pages of the panel's tabs, by their numbers.
constexpr const char* tabPages[] = {"tab-fuselage", "tab-wing", "tab-stabiliser", "tab-rudder",
                                    "tab-electronics"};

// The pages of the dialogs: ours by name, the toolkit's by class.
struct DialogPage {
    const char* dialog;
    const char* page;
};
constexpr DialogPage dialogPages[] = {
    {"Prefs", "preferences"},  {"ObjectList", "manager"},        {"PrintSelect", "print"},
    {"QPrintDialog", "print"}, {"QPrintPreviewDialog", "print"}, {"QColorDialog", "palette"},
};

constexpr int pageRole = Qt::UserRole;

QString pageOfTab(const QWidget& tabs) {
    const auto* strip = qobject_cast<const QTabWidget*>(&tabs);
    const int tab = strip ? strip->currentIndex() : -1;
    return tab >= 0 && tab < static_cast<int>(std::size(tabPages)) ? tabPages[tab] : "";
}

// What the widget itself stands for: a page that it names, a tab of the panel, or a dialog.
QString ownPage(const QWidget& widget) {
    const QString named = widget.property("helpPage").toString();
    if (!named.isEmpty()) return named;
    if (widget.objectName() == "Parameters") return pageOfTab(widget);
    if (const auto* panel = widget.findChild<QTabWidget*>("Parameters")) return pageOfTab(*panel);
    if (const auto* files = qobject_cast<const QFileDialog*>(&widget)) {
        return files->acceptMode() == QFileDialog::AcceptSave ? "save" : "open";
    }
    for (const DialogPage& row : dialogPages) {
        if (widget.objectName() == row.dialog || widget.inherits(row.dialog)) return row.page;
    }
    return {};
}

QToolButton* toolButton(QWidget* parent, const char* name, QStyle::StandardPixmap icon,
                        const QString& tip) {
    auto* button = new QToolButton(parent);
    button->setObjectName(name);
    button->setIcon(parent->style()->standardIcon(icon));
    button->setToolTip(tip);
    button->setAutoRaise(true);
    return button;
}

}  // namespace

HelpWindow& HelpWindow::instance() {
    if (!theWindow) theWindow = new HelpWindow;
    return *theWindow;
}

void HelpWindow::quit() {
    delete theWindow.data();
}

HelpWindow::HelpWindow()
    : file_(QDir(QCoreApplication::applicationDirPath()).filePath("Velna.HLP")),
      place_(256, 256, 512, 512) {
    setWindowTitle("Velna Help");
    setObjectName("HelpWindow");
}

void HelpWindow::build() {
    browser_ = new QTextBrowser(this);
    browser_->setObjectName("HelpBrowser");
    contents_ = new QListWidget(this);
    contents_->setObjectName("HelpContents");
    search_ = new QLineEdit(this);
    search_->setObjectName("HelpSearch");
    search_->setPlaceholderText("Search");
    search_->setClearButtonEnabled(true);

    auto* halves = new QSplitter(this);
    halves->addWidget(contents_);
    halves->addWidget(browser_);
    halves->setStretchFactor(1, 1);
    halves->setSizes({180, 500});
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(4, 4, 4, 4);
    column->addLayout(buildBar());
    column->addWidget(halves, 1);

    connect(browser_, &QTextBrowser::sourceChanged, this, &HelpWindow::pageShown);
    connect(search_, &QLineEdit::textChanged, this, &HelpWindow::search);
    const auto open = [this](const QListWidgetItem* item) {
        const QString page = item->data(pageRole).toString();
        if (!page.isEmpty()) browser_->setSource(QUrl(HelpFile::address(page)));
    };
    connect(contents_, &QListWidget::itemClicked, this, open);
    connect(contents_, &QListWidget::itemActivated, this, open);
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, search_,
            [this] { search_->setFocus(); });
    connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &QWidget::hide);
}

QLayout* HelpWindow::buildBar() {
    auto* home = toolButton(this, "HelpHome", QStyle::SP_DirHomeIcon, "Contents");
    auto* back = toolButton(this, "HelpBack", QStyle::SP_ArrowBack, "Back");
    auto* forward = toolButton(this, "HelpForward", QStyle::SP_ArrowForward, "Forward");
    back->setEnabled(false);
    forward->setEnabled(false);
    back->setShortcut(QKeySequence::Back);
    forward->setShortcut(QKeySequence::Forward);
    connect(home, &QToolButton::clicked, this, &HelpWindow::showContents);
    connect(back, &QToolButton::clicked, browser_, &QTextBrowser::backward);
    connect(forward, &QToolButton::clicked, browser_, &QTextBrowser::forward);
    connect(browser_, &QTextBrowser::backwardAvailable, back, &QWidget::setEnabled);
    connect(browser_, &QTextBrowser::forwardAvailable, forward, &QWidget::setEnabled);

    auto* bar = new QHBoxLayout;
    bar->addWidget(home);
    bar->addWidget(back);
    bar->addWidget(forward);
    bar->addWidget(search_);
    return bar;
}

void HelpWindow::setHelpFile(const QString& file) {
    file_ = file;
    readable_ = false;
}

void HelpWindow::setPlace(const QRect& place) {
    if (place.isValid()) place_ = place;
}

void HelpWindow::answerF1(std::function<bool()> wanted) {
    wanted_ = std::move(wanted);
    qApp->removeEventFilter(this);
    qApp->installEventFilter(this);
}

// F1 is taken out of the stream of keys, its release too: a release in the drawing area ends a
// drag.
bool HelpWindow::eventFilter(QObject* watched, QEvent* event) {
    const bool press = event->type() == QEvent::KeyPress;
    if (!press && event->type() != QEvent::KeyRelease) return false;
    if (static_cast<QKeyEvent*>(event)->key() != Qt::Key_F1) return false;
    // A widget's key comes to its window first, and from there to the widget.
    if (watched->inherits("QWidgetWindow")) return false;
    if (press && !static_cast<QKeyEvent*>(event)->isAutoRepeat() && (!wanted_ || wanted_())) {
        const auto* widget = qobject_cast<const QWidget*>(watched);
        if (widget && widget->window() == this) return true;
        showPage(helpPageOf(widget ? widget : QApplication::activeWindow()));
    }
    return true;
}

void HelpWindow::showContents() {
    showPage("index");
}

void HelpWindow::showContext(int contextId) {
    for (const Context& context : contexts) {
        if (context.id == contextId) return showPage(context.page);
    }
    showContents();
}

void HelpWindow::showPage(const QString& page) {
    if (!browser_) build();
    if (!readable_) {
        readable_ = help_.open(file_);
        fillContents();
    }
    if (readable_) {
        browser_->setSource(QUrl(HelpFile::address(help_.has(page) ? page : "index")));
    } else {
        browser_->setPlainText(
            QStringLiteral("The help cannot be shown: %1 is missing or damaged.").arg(file_));
    }
    bringUp();
}

QString HelpWindow::currentPage() const {
    return readable_ ? HelpFile::nameOf(browser_->source().toString()) : QString();
}

// A modal dialog blocks every window but its own children. The help must stay usable beside it, so
// it stands on the dialog while that is open.
void HelpWindow::bringUp() {
    QWidget* modal = QApplication::activeModalWidget();
    winId();
    QWindow* owner = modal ? modal->windowHandle() : nullptr;
    if (windowHandle()->transientParent() != owner) {
        hide();
        windowHandle()->setTransientParent(owner);
    }
    if (!isVisible()) setGeometry(place_);
    show();
    raise();
    activateWindow();
}

// With words to search, the list shows the pages that have them all; otherwise every page and
// heading.
void HelpWindow::fillContents() {
    contents_->clear();
    search_->setEnabled(readable_);
    std::vector<int> shown = pagesWith(help_.pages(), words_);
    if (words_.isEmpty()) {
        shown.resize(help_.pages().size());
        for (std::size_t at = 0; at < shown.size(); ++at) shown[at] = static_cast<int>(at);
    }
    for (const int at : shown) {
        const HelpPage& page = help_.pages()[static_cast<std::size_t>(at)];
        auto* item = new QListWidgetItem(page.title, contents_);
        item->setData(pageRole, page.name);
        if (page.name.isEmpty()) {
            QFont bold = item->font();
            bold.setBold(true);
            item->setFont(bold);
            item->setFlags(Qt::ItemIsEnabled);
        }
    }
    if (readable_ && shown.empty()) {
        (new QListWidgetItem("No page has these words.", contents_))->setFlags(Qt::NoItemFlags);
    }
}

void HelpWindow::search(const QString& text) {
    words_ = text.split(' ', Qt::SkipEmptyParts);
    fillContents();
    pageShown();
}

void HelpWindow::pageShown() {
    const QString page = currentPage();
    for (int row = 0; row < contents_->count(); ++row) {
        QListWidgetItem* item = contents_->item(row);
        if (!page.isEmpty() && item->data(pageRole).toString() == page)
            contents_->setCurrentItem(item);
    }
    markWords();
}

void HelpWindow::markWords() {
    QList<QTextEdit::ExtraSelection> marks;
    for (const QString& word : words_) {
        QTextCursor at(browser_->document());
        while (!(at = browser_->document()->find(word, at)).isNull()) {
            QTextEdit::ExtraSelection mark;
            mark.cursor = at;
            mark.format.setBackground(QColor(255, 235, 120));
            mark.format.setForeground(Qt::black);
            marks.append(mark);
        }
    }
    browser_->setExtraSelections(marks);
}

QString helpPageOf(const QWidget* widget) {
    for (; widget; widget = widget->parentWidget()) {
        const QString page = ownPage(*widget);
        if (!page.isEmpty()) return page;
        if (widget->isWindow()) break;
    }
    return {};
}

}  // namespace velna
