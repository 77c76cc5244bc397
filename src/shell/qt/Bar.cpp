#include "shell/qt/Bar.h"

#include <QEvent>
#include <QFrame>
#include <QHBoxLayout>
#include <QToolButton>
#include <string>

#include "shell/ToolbarCommands.h"
#include "shell/qt/BarMenus.h"
#include "shell/qt/Drawings.h"
#include "shell/qt/Mirrors.h"

namespace velna {
namespace {

constexpr int arrowWidth = 14;  // pixels

// Where a group of commands begins.
bool beginsGroup(Toolbar::Key key) {
    using enum Toolbar::Key;
    return key == Print || key == VTop || key == Palette || key == Prefs || key == FlyingPreview ||
           key == Help || key == Undo || key == Figures;
}

// What a step would do stands in the text of its control ("Tip chord").
void showStep(QToolButton& button, const Toolbar::Button& row, const ControlState& state) {
    const QString keys = row.key == Toolbar::Key::Undo ? "Alt+Backspace" : "Alt+Shift+Backspace";
    const QString what = QString::fromStdString(state.text.empty() ? "" : " " + state.text);
    button.setToolTip(QString("%1%2 (%3)").arg(row.tip, what, keys));
}

QToolButton* newButton(const Toolbar::Button& row, QWidget* parent) {
    using enum Toolbar::ButtonKind;
    auto* button = new QToolButton(parent);
    button->setIconSize({24, 24});
    button->setObjectName(row.name);
    button->setAccessibleName(row.name);
    button->setToolTip(row.tip);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    button->setCheckable(row.kind == View || row.kind == Toggle);
    return button;
}

void addGap(QHBoxLayout& row) {
    auto* line = new QFrame;
    line->setFrameStyle(QFrame::VLine | QFrame::Sunken);
    row.addSpacing(4);
    row.addWidget(line);
    row.addSpacing(4);
}

}  // namespace

Bar::Bar(ToolbarCommands& commands, Mirrors& mirrors, QWidget* parent) : QWidget(parent) {
    setObjectName("Bar");
    setContextMenuPolicy(Qt::PreventContextMenu);
    setAutoFillBackground(true);
    auto* line = new QHBoxLayout(this);
    line->setContentsMargins(4, 4, 4, 4);
    line->setSpacing(1);
    for (const Toolbar::Button& row : Toolbar::buttons()) {
        if (beginsGroup(row.key)) addGap(*line);
        QToolButton* button = newButton(row, this);
        line->addWidget(button);
        buttons_.push_back(button);
        if (QToolButton* arrow = BarMenus::arrowBeside(row.key, commands, this)) {
            arrow->setFixedWidth(arrowWidth);
            arrow->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
            line->addWidget(arrow);
        }
        connect(button, &QToolButton::clicked, this, [&commands, &row, &mirrors] {
            commands.click(row.key);
            // The button has changed by itself; what stands in the state is what counts.
            if (row.state) mirrors.show(*row.state);
        });
        if (row.state) {
            mirrors.add(*row.state, [button, &row](const ControlState& state) {
                button->setEnabled(state.enabled);
                button->setChecked(state.checked);
                if (row.kind == Toolbar::ButtonKind::Step) showStep(*button, row, state);
            });
        }
    }
    line->addStretch();
    drawIcons();
}

void Bar::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange) drawIcons();
    QWidget::changeEvent(event);
}

void Bar::drawIcons() {
    const QColor ink = palette().color(QPalette::ButtonText);
    for (std::size_t i = 0; i < buttons_.size(); ++i) {
        const std::string name = std::string("icons/") + Toolbar::buttons()[i].name;
        buttons_[i]->setIcon(Drawings::icon(name.c_str(), ink));
    }
}

}  // namespace velna
