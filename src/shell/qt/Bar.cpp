#include "shell/qt/Bar.h"

#include <QEvent>
#include <QToolButton>
#include <string>

#include "editor/Main.h"
#include "shell/ToolbarCommands.h"
#include "shell/qt/Drawings.h"
#include "shell/qt/Mirrors.h"
#include "shell/qt/QtProgress.h"

namespace velna {
namespace {

// Where a group of commands begins.
bool beginsGroup(Toolbar::Key key) {
    using enum Toolbar::Key;
    return key == Print || key == VTop || key == Palette || key == Prefs || key == FlyingPreview ||
           key == Help;
}

}  // namespace

Bar::Bar(Mirrors& mirrors, QWidget* parent) : QToolBar(parent) {
    setObjectName("Bar");
    setIconSize({24, 24});
    setMovable(false);
    setContextMenuPolicy(Qt::PreventContextMenu);
    setAutoFillBackground(true);
    for (const Toolbar::Button& row : Toolbar::buttons) {
        if (beginsGroup(row.key)) addSeparator();
        auto* button = new QToolButton(this);
        button->setObjectName(row.name);
        button->setAccessibleName(row.name);
        button->setToolTip(row.tip);
        button->setAutoRaise(true);
        button->setFocusPolicy(Qt::TabFocus);
        button->setCheckable(row.kind != Toolbar::ButtonKind::Push);
        addWidget(button);
        buttons_.push_back(button);
        connect(button, &QToolButton::clicked, this, [&row, &mirrors] {
            Toolbar::click(row.key);
            QtProgress::finish();
            // The button has changed by itself; what stands in the state is what counts.
            if (row.state) mirrors.show(*row.state);
        });
        if (row.state)
            mirrors.add(*row.state, [button](const ControlState& state) {
                button->setEnabled(state.enabled);
                button->setChecked(state.checked);
            });
    }
    drawIcons();
}

void Bar::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange) drawIcons();
    QToolBar::changeEvent(event);
}

void Bar::drawIcons() {
    const QColor ink = palette().color(QPalette::ButtonText);
    for (std::size_t i = 0; i < buttons_.size(); ++i) {
        const std::string name = std::string("icons/") + Toolbar::buttons[i].name;
        buttons_[i]->setIcon(Drawings::icon(name.c_str(), ink));
    }
}

}  // namespace velna
