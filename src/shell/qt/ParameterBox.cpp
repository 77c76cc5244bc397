#include "shell/qt/ParameterBox.h"

#include <QEvent>
#include <QGridLayout>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <QStyleOptionFrame>
#include <QToolTip>
#include <algorithm>
#include <string>

#include "editor/Main.h"
#include "editor/PanelTable.h"
#include "shell/qt/Drawings.h"
#include "shell/qt/EventArguments.h"
#include "shell/qt/Legible.h"
#include "shell/qt/Mirrors.h"

namespace velna {
namespace {

/// Whether the key will change the text, not only leave it or move in it.
bool edits(const QKeyEvent& event) {
    return event.key() == Qt::Key_Backspace || event.key() == Qt::Key_Delete ||
           EventArguments::types(event);
}

}  // namespace

ParameterBox::ParameterBox(MainForm& main, Control control, QWidget* parent)
    : QLineEdit(parent), main_(main), control_(control) {
    setObjectName(controlName(control));
    setAccessibleName(panelField(control)->quantity);
    setMinimumWidth(40);
    connect(this, &QLineEdit::textEdited, this, [this](const QString& text) {
        const QScopedValueRollback typing(typing_, true);  // pasted, too
        main_.textEdited(control_, text.toStdString());
    });
}

bool ParameterBox::event(QEvent* event) {
    if (event->type() == QEvent::FocusIn) main_.endVisit();
    // Before the toolkit takes Tab and Enter for its own: they commit too.
    if (event->type() != QEvent::KeyPress) return QLineEdit::event(event);
    const auto& key = static_cast<const QKeyEvent&>(*event);
    typing_ = edits(key);
    commitTyped();
    // What was refilled while it was being typed is shown now.
    if (!typing_) showText(QString::fromStdString(main_.controls[control_].text));
    const bool taken = !EventArguments::typesWithAlt(key) && QLineEdit::event(event);
    typing_ = false;
    return taken;
}

void ParameterBox::commitTyped() {
    main_.textKeyDown(control_, text().toStdString());
}

void ParameterBox::showState(const ControlState& state) {
    setEnabled(state.enabled);
    showText(QString::fromStdString(state.text));
    const QString tip = QString::fromStdString(entryTip(main_.store(), *panelField(control_)));
    if (tip == toolTip()) return;
    setToolTip(tip);
    update();
}

void ParameterBox::showText(const QString& shown) {
    // A commit may refill its own box with the number as it is shown there: 12. would become 12
    // before the 5 comes, and 125 be stored.
    if (typing_ || text() == shown) return;
    const QSignalBlocker silent(this);
    const int cursor = cursorPosition();
    setText(shown);
    setCursorPosition(std::min(cursor, static_cast<int>(shown.size())));
}

void ParameterBox::initStyleOption(QStyleOptionFrame* option) const {
    QLineEdit::initStyleOption(option);
    // Where the box has something to tell, it is tinted.
    if (!toolTip().isEmpty())
        option->palette.setColor(QPalette::Base, tinted(option->palette.color(QPalette::Base)));
}

void ParameterBox::keyReleaseEvent(QKeyEvent* event) {
    if (!event->isAutoRepeat()) main_.Form_keyup();
    QLineEdit::keyReleaseEvent(event);
}

ParameterCell::ParameterCell(MainForm& main, const PanelPlace& place, QSize pictureSize,
                             Mirrors& mirrors, QWidget* parent)
    : QWidget(parent),
      main_(main),
      place_(place),
      pictureSize_(pictureSize),
      picture_(new QLabel(this)) {
    auto* caption = new QLabel(place.caption, this);
    QFont small = font();
    small.setPointSizeF(small.pointSizeF() * 0.85);
    caption->setFont(small);
    auto* box = new ParameterBox(main, place.control, this);
    caption->setBuddy(box);
    picture_->setFixedSize(pictureSize);

    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(4);
    grid->setVerticalSpacing(0);
    grid->addWidget(caption, 0, 0, 1, 2);
    grid->addWidget(picture_, 1, 0);
    grid->addWidget(box, 1, 1);
    grid->setColumnStretch(1, 1);

    mirrors.add(place.control, [box](const ControlState& state) { box->showState(state); });
}

bool ParameterCell::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QWidget::event(event);
    // Asked for now, since the unit can change.
    const std::string tip = panelTip(main_.project, *panelField(place_.control));
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), QString::fromStdString(tip),
                       this);
    return true;
}

void ParameterCell::showEvent(QShowEvent*) {
    if (picture_->pixmap().isNull()) drawPicture();
}

void ParameterCell::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange) renewPicture();
    QWidget::changeEvent(event);
}

void ParameterCell::renewPicture() {
    isVisible() ? drawPicture() : picture_->clear();
}

void ParameterCell::drawPicture() {
    const std::string name = std::string("measures/") + place_.drawing;
    picture_->setPixmap(Drawings::picture(name.c_str(), pictureSize_, devicePixelRatioF(),
                                          palette().color(QPalette::WindowText), place_.measure));
}

}  // namespace velna
