#include "shell/qt/HelpWindow.h"

#include <QApplication>
#include <QFileDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QPointer>
#include <QScrollBar>
#include <QShortcut>
#include <QSplitter>
#include <QTabWidget>
#include <QTextBrowser>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWindow>
#include <algorithm>

#include "shell/qt/KeptPlace.h"
#include "shell/qt/Legible.h"

namespace velna {
namespace {

QPointer<HelpWindow> theWindow;

// The page of each context number in use.
struct Context {
    int id;
    const char* page;
};
constexpr Context contexts[] = {{300, "main-window"}};

// The pages of the panel's tabs, by their numbers: a field stands for the tab that it is on.
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
    : file_((QCoreApplication::applicationDirPath() + "/Velna.HLP").toStdString()),
      place_(256, 256, 512, 512) {
    setWindowTitle("Velna Help");
    setObjectName("HelpWindow");
}

void HelpWindow::build() {
    browser_ = new QTextBrowser(this);
    browser_->setObjectName("HelpBrowser");
    contents_ = new QListWidget(this);
    contents_->setObjectName("HelpContents");
    contents_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    search_ = new QLineEdit(this);
    search_->setObjectName("HelpSearch");
    search_->setPlaceholderText("Search");
    search_->setClearButtonEnabled(true);

    halves_ = new QSplitter(this);
    halves_->addWidget(contents_);
    halves_->addWidget(browser_);
    halves_->setStretchFactor(1, 1);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(4, 4, 4, 4);
    column->addLayout(buildBar());
    column->addWidget(halves_, 1);

    connect(browser_, &QTextBrowser::sourceChanged, this, &HelpWindow::pageShown);
    connect(search_, &QLineEdit::textChanged, this, &HelpWindow::search);
    connect(contents_, &QListWidget::itemSelectionChanged, this, &HelpWindow::openMarked);
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, search_,
            [this] { search_->setFocus(); });
    connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &QWidget::hide);
    setInks();
}

// Some desktops set a dark ground and leave these inks at what suits white paper.
void HelpWindow::setInks() {
    const QColor ground = palette().color(QPalette::Base);
    const QColor letters = palette().color(QPalette::Text);
    const QColor link = legible(palette().color(QPalette::Link), ground, letters);
    browser_->document()->setDefaultStyleSheet(QStringLiteral("a { color: %1; }").arg(link.name()));
    QPalette inks = search_->palette();
    inks.setColor(QPalette::PlaceholderText,
                  legible(palette().color(QPalette::PlaceholderText), ground, letters));
    search_->setPalette(inks);
}

void HelpWindow::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange && browser_) {
        setInks();
        if (readable_) {
            fillContents();
            browser_->reload();
        }
    }
    QWidget::changeEvent(event);
}

// A selection dragged out of the text scrolls by a timer that only the release ends, and a hidden
// window gets none.
void HelpWindow::hideEvent(QHideEvent*) {
    if (!browser_) return;
    const QPointF outside(-1, -1);
    QMouseEvent release(QEvent::MouseButtonRelease, outside,
                        browser_->viewport()->mapToGlobal(outside), Qt::LeftButton, Qt::NoButton,
                        Qt::NoModifier);
    QApplication::sendEvent(browser_->viewport(), &release);
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

void HelpWindow::setHelpFile(const std::string& file) {
    file_ = file;
    readable_ = false;
}

void HelpWindow::setPlace(const QRect& place) {
    if (place.isValid()) place_ = place;
}

void HelpWindow::setRoom(std::function<QRect()> room) {
    room_ = std::move(room);
}

void HelpWindow::keepPlace(Settings& settings) {
    delete keptPlace_;
    keptPlace_ = new KeptPlace(*this, settings, "help");
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
        markPage();
    }
    if (readable_) {
        browser_->setSource(QUrl(HelpFile::address(help_.has(page) ? page : "index")));
    } else {
        browser_->setPlainText(QStringLiteral("The help cannot be shown: %1 is missing or damaged.")
                                   .arg(QString::fromStdString(file_)));
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
    const bool opens = !isVisible();
    if (opens && !(keptPlace_ && keptPlace_->restore())) setGeometry(placeToStand());
    show();
    if (opens) fitContents();
    raise();
    activateWindow();
}

QRect HelpWindow::placeToStand() const {
    constexpr QSize least(360, 200);
    if (!room_) return place_;
    constexpr int frame = 8;
    const int title = style()->pixelMetric(QStyle::PM_TitleBarHeight);
    const QRect inside = room_().adjusted(frame, title, -frame, -frame);
    const bool enough = inside.width() >= least.width() && inside.height() >= least.height();
    return enough ? inside : place_;
}

// The list is as wide as its longest title, or half the window with the title on two lines.
void HelpWindow::fitContents() {
    contents_->setWordWrap(false);
    const int titles = contents_->sizeHintForColumn(0) + 2 * contents_->frameWidth() +
                       contents_->verticalScrollBar()->sizeHint().width();
    contents_->setWordWrap(true);
    const int all = halves_->width() - halves_->handleWidth();
    const int list = std::min(titles, all / 2);
    halves_->setSizes({list, all - list});
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
            // No mark stops there, and it looks no paler for that.
            item->setFlags(Qt::NoItemFlags);
            item->setForeground(palette().color(QPalette::Active, QPalette::Text));
        }
    }
    if (readable_ && shown.empty()) {
        (new QListWidgetItem("No page has these words.", contents_))->setFlags(Qt::NoItemFlags);
    }
}

void HelpWindow::search(const QString& text) {
    words_ = text.split(' ', Qt::SkipEmptyParts);
    fillContents();
    markPage();
}

// The browser tells of a page before it names it as its own.
void HelpWindow::pageShown(const QUrl& address) {
    page_ = readable_ ? HelpFile::nameOf(address.toString()) : QString();
    markPage();
}

// The mark stands on the page shown, and nowhere where the list has not got that page.
void HelpWindow::markPage() {
    QListWidgetItem* shown = nullptr;
    for (int row = 0; row < contents_->count() && !page_.isEmpty(); ++row) {
        if (contents_->item(row)->data(pageRole).toString() == page_) shown = contents_->item(row);
    }
    contents_->setCurrentItem(shown);
    markWords();
}

void HelpWindow::openMarked() {
    const QList<QListWidgetItem*> marked = contents_->selectedItems();
    const QString page = marked.isEmpty() ? QString() : marked.first()->data(pageRole).toString();
    if (!page.isEmpty() && page != page_) browser_->setSource(QUrl(HelpFile::address(page)));
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
