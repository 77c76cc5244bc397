#include "shell/qt/CommandKeys.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

#include "shell/Application.h"
#include "shell/qt/EventArguments.h"
#include "shell/qt/ParameterBox.h"

namespace velna {
namespace {

// A key with its modifiers, and what it does. Some wait for the tick "Ctrl+Z undoes".
struct CommandKey {
    int key;
    Qt::KeyboardModifiers modifiers;
    bool needsTick;
    bool repeats;
    void (*run)(QWidget& window, Application& program);
};

template <Toolbar::Key key>
void click(QWidget& /*window*/, Application& program) {
    program.toolbar.click(key);
}

void close(QWidget& window, Application& /*program*/) {
    window.close();
}

constexpr Qt::KeyboardModifiers altShift = Qt::AltModifier | Qt::ShiftModifier;

constexpr CommandKey commandKeys[] = {
    {Qt::Key_N, Qt::ControlModifier, false, false, click<Toolbar::Key::New>},
    {Qt::Key_P, Qt::ControlModifier, false, false, click<Toolbar::Key::Print>},
    {Qt::Key_Q, Qt::ControlModifier, false, false, close},
    {Qt::Key_F12, Qt::ShiftModifier, false, false, click<Toolbar::Key::SaveAgain>},
    {Qt::Key_S, Qt::ControlModifier, true, false, click<Toolbar::Key::SaveAgain>},
    {Qt::Key_Backspace, Qt::AltModifier, false, true, click<Toolbar::Key::Undo>},
    {Qt::Key_Backspace, altShift, false, true, click<Toolbar::Key::Redo>},
    {Qt::Key_Z, Qt::ControlModifier, true, true, click<Toolbar::Key::Undo>},
    {Qt::Key_Y, Qt::ControlModifier, true, true, click<Toolbar::Key::Redo>},
};

// A letter by its place, whatever alphabet the keyboard has; any other key by itself.
int keyOf(const QKeyEvent& event) {
    const int letter = EventArguments::keyCode(event);
    return letter != 0 ? letter : event.key();
}

const CommandKey* commandOf(const QKeyEvent& event, bool ticked) {
    const Qt::KeyboardModifiers held = event.modifiers() & ~Qt::KeypadModifier;
    for (const CommandKey& row : commandKeys) {
        const bool active = !row.needsTick || ticked;
        if (active && row.key == keyOf(event) && row.modifiers == held) return &row;
    }
    return nullptr;
}

}  // namespace

CommandKeys::CommandKeys(QWidget& window, Application& program)
    : window_(window), program_(program) {
    qApp->installEventFilter(this);
}

bool CommandKeys::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress || !watched->isWidgetType()) return false;
    auto& widget = static_cast<QWidget&>(*watched);
    if (widget.window() != &window_) return false;
    const auto& key = static_cast<const QKeyEvent&>(*event);
    const CommandKey* command = commandOf(key, program_.Main.Prefs.ctrlZUndoes);
    if (!command) return false;
    const bool busy = program_.Main.anyBusy() || QGuiApplication::mouseButtons() != Qt::NoButton;
    if ((key.isAutoRepeat() && !command->repeats) || busy) return true;
    if (auto* box = dynamic_cast<ParameterBox*>(&widget)) box->commitTyped();
    command->run(window_, program_);
    return true;
}

}  // namespace velna
