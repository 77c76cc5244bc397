#include "shell/qt/FiguresWindow.h"

#include <QAbstractEventDispatcher>
#include <QCheckBox>
#include <QClipboard>
#include <QFormLayout>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QStyleOptionFrame>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <string>

#include "shell/Application.h"
#include "shell/qt/DrawArea.h"
#include "shell/qt/Legible.h"
#include "shell/qt/MainWindow.h"

namespace velna {
namespace {

constexpr QSize usualSize(340, 520);
constexpr int margin = 12;  // pixels

enum Column { label, value, unit };

QString shownText(const std::string& text) {
    return QString::fromStdString(text);
}

// Whether both lists have the same rows, whatever their values.
bool sameRows(const std::vector<FigureSheet::Line>& one,
              const std::vector<FigureSheet::Line>& other) {
    return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                      [](const FigureSheet::Line& a, const FigureSheet::Line& b) {
                          return a.title == b.title && a.label == b.label;
                      });
}

// Four numbers as they are remembered; nothing where they are none.
QRect placeFrom(const std::vector<std::string>& texts) {
    if (texts.size() != 4) return {};
    int numbers[4];
    for (std::size_t i = 0; i < texts.size(); ++i) {
        bool whole = false;
        numbers[i] = shownText(texts[i]).toInt(&whole);
        if (!whole) return {};
    }
    return {numbers[0], numbers[1], numbers[2], numbers[3]};
}

}  // namespace

FigureField::FigureField(const char* name, const char* caption, QWidget* parent)
    : QLineEdit(parent) {
    setObjectName(name);
    setAccessibleName(caption);
}

void FigureField::showTaken(bool taken) {
    if (taken == taken_) return;
    taken_ = taken;
    setToolTip(taken ? "" : "A number of at least 0");
    update();
}

void FigureField::initStyleOption(QStyleOptionFrame* option) const {
    QLineEdit::initStyleOption(option);
    if (!taken_)
        option->palette.setColor(QPalette::Base, tinted(option->palette.color(QPalette::Base)));
}

FiguresWindow::FiguresWindow(Application& program, MainWindow& owner)
    : QWidget(&owner, Qt::Tool), program_(program), owner_(owner), sheet_(program.figures) {
    setObjectName("FiguresWindow");
    setWindowTitle("Figures");
    setProperty("helpPage", "figures");
    // Whoever opens it goes on drawing.
    setAttribute(Qt::WA_ShowWithoutActivating);
}

void FiguresWindow::start() {
    connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
            [this] { follow(); });
}

void FiguresWindow::build() {
    list_ = new QTreeWidget(this);
    list_->setObjectName("FiguresList");
    list_->setAccessibleName("Figures");
    list_->setColumnCount(3);
    list_->setHeaderLabels({"Figure", "Value", "Unit"});
    list_->setRootIsDecorated(false);
    list_->setUniformRowHeights(true);
    list_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    list_->header()->setStretchLastSection(false);
    list_->header()->setSectionResizeMode(Column::label, QHeaderView::Stretch);
    list_->header()->setSectionResizeMode(Column::value, QHeaderView::ResizeToContents);
    list_->header()->setSectionResizeMode(Column::unit, QHeaderView::ResizeToContents);
    auto* copy = new QShortcut(QKeySequence::Copy, list_, nullptr, nullptr, Qt::WidgetShortcut);
    connect(copy, &QShortcut::activated, this, [this] { copySelected(); });

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(6, 6, 6, 6);
    column->addLayout(buildFields());
    column->addWidget(list_, 1);
    column->addLayout(buildFoot());
}

QLayout* FiguresWindow::buildFields() {
    mass_ = new FigureField("FiguresMass", "Mass in grams", this);
    speed_ = new FigureField("FiguresSpeed", "Speed in kilometres an hour", this);
    connect(mass_, &QLineEdit::textChanged, this, [this](const QString& text) {
        sheet_.typeMass(text.toStdString());
        mass_->showTaken(sheet_.massTaken());
    });
    connect(speed_, &QLineEdit::textChanged, this, [this](const QString& text) {
        sheet_.typeSpeed(text.toStdString());
        speed_->showTaken(sheet_.speedTaken());
    });
    auto* form = new QFormLayout;
    form->addRow("&Mass, g", mass_);
    form->addRow("&Speed, km/h", speed_);
    return form;
}

QLayout* FiguresWindow::buildFoot() {
    marks_ = new QCheckBox("Show in &views and plans", this);
    marks_->setObjectName("FiguresMarks");
    marks_->setToolTip("A diamond at the quarter point, a bar from end to end of the range");
    connect(marks_, &QCheckBox::toggled, this, [this](bool on) { sheet_.showsMarks = on; });
    auto* copy = new QPushButton("&Copy all", this);
    copy->setObjectName("FiguresCopy");
    connect(copy, &QPushButton::clicked, this,
            [this] { QGuiApplication::clipboard()->setText(shownText(sheet_.text())); });
    auto* foot = new QHBoxLayout;
    foot->addWidget(marks_, 1);
    foot->addWidget(copy);
    return foot;
}

void FiguresWindow::toggle() {
    if (isVisible()) return hide();
    if (!list_) build();
    putInPlace();
    show();
    raise();
    follow();
}

void FiguresWindow::standAside(bool aside) {
    if (aside) comesBack_ = isVisible();
    aside_ = aside;
    if (comesBack_) setVisible(!aside);
}

// The loop has done all that there was to do: a drag's moves, a command, a step of the history.
void FiguresWindow::follow() {
    if (aside_ || program_.flying.running()) return;
    if (isVisible() || sheet_.showsMarks) {
        const bool changed = sheet_.update();
        if (isVisible() && (changed || shown_.empty())) showLines();
    }
    owner_.drawArea().showMarks(sheet_.marksOnScreen());
}

void FiguresWindow::showLines() {
    std::vector<FigureSheet::Line> lines = sheet_.lines();
    if (!sameRows(lines, shown_)) {
        list_->clear();
        for (const FigureSheet::Line& line : lines) fill(*new QTreeWidgetItem(list_), line);
    } else {
        for (std::size_t i = 0; i < lines.size(); ++i)
            if (!(lines[i] == shown_[i])) fill(*list_->topLevelItem(static_cast<int>(i)), lines[i]);
    }
    shown_ = std::move(lines);
}

void FiguresWindow::fill(QTreeWidgetItem& row, const FigureSheet::Line& line) const {
    row.setText(Column::label, shownText(line.label));
    row.setText(Column::value, shownText(line.value));
    row.setText(Column::unit, shownText(line.unit));
    row.setTextAlignment(Column::value, Qt::AlignRight | Qt::AlignVCenter);
    if (!line.title) return;
    QFont bold = list_->font();
    bold.setBold(true);
    row.setFont(Column::label, bold);
}

void FiguresWindow::copySelected() const {
    QStringList texts;
    for (int i = 0; i < list_->topLevelItemCount(); ++i) {
        const QTreeWidgetItem& row = *list_->topLevelItem(i);
        if (!row.isSelected()) continue;
        QStringList cells;
        for (const int column : {Column::label, Column::value, Column::unit})
            if (!row.text(column).isEmpty()) cells << row.text(column);
        texts << cells.join('\t');
    }
    if (!texts.isEmpty()) QGuiApplication::clipboard()->setText(texts.join('\n'));
}

// Where it stood last, if that is on a screen yet; or over the picture, so that the drawing is
// free.
void FiguresWindow::putInPlace() {
    const QRect kept = placeFrom(program_.settings.list(SettingKey::figuresPlace));
    if (kept.isValid() && QGuiApplication::screenAt(kept.center())) {
        resize(kept.size());
        move(kept.topLeft());
        return;
    }
    const QRect picture = owner_.picturePlace();
    const int title = style()->pixelMetric(QStyle::PM_TitleBarHeight);
    const int height = std::min(usualSize.height(), picture.height() - title - 2 * margin);
    resize(usualSize.width(), std::max(height, minimumSizeHint().height()));
    move(picture.right() - width() - 2 * margin, picture.top() + margin);
}

void FiguresWindow::keepPlace() {
    if (!list_) return;
    std::vector<std::string> texts;
    for (const int number : {x(), y(), width(), height()}) texts.push_back(std::to_string(number));
    // What cannot be written is remembered for this run.
    if (texts != program_.settings.list(SettingKey::figuresPlace))
        (void)program_.settings.store(SettingKey::figuresPlace, texts);
}

void FiguresWindow::hideEvent(QHideEvent* event) {
    keepPlace();
    QWidget::hideEvent(event);
}

void FiguresWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) return hide();
    QWidget::keyPressEvent(event);
}

}  // namespace velna
