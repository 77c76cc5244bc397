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
    Qt::KeyboardModifier modifier;
    bool needsTick;
    void (*run)(QWidget& window, Application& program);
};

constexpr CommandKey commandKeys[] = {
    {Qt::Key_N, Qt::ControlModifier, false,
     [](QWidget&, Application& program) { program.toolbar.click(Toolbar::Key::New); }},
    {Qt::Key_P, Qt::ControlModifier, false,
     [](QWidget&, Application& program) { program.toolbar.click(Toolbar::Key::Print); }},
    {Qt::Key_Q, Qt::ControlModifier, false, [](QWidget& window, Application&) { window.close(); }},
    {Qt::Key_F12, Qt::ShiftModifier, false,
     [](QWidget&, Application& program) { program.toolbar.click(Toolbar::Key::SaveAgain); }},
    {Qt::Key_S, Qt::ControlModifier, true,
     [](QWidget&, Application& program) { program.toolbar.click(Toolbar::Key::SaveAgain); }},
};

// A letter by its place, whatever alphabet the keyboard has; any other key by itself.
int keyOf(const QKeyEvent& event) {
    const int letter = EventArguments::keyCode(event);
    return letter != 0 ? letter : event.key();
}

const CommandKey* commandOf(const QKeyEvent& event, const Settings& settings) {
    for (const CommandKey& row : commandKeys) {
        const bool active = !row.needsTick || settings.flag(SettingKey::ctrlZ);
        if (active && row.key == keyOf(event) && event.modifiers() == row.modifier) return &row;
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
    const CommandKey* command = commandOf(key, program_.settings);
    if (!command) return false;
    const bool busy = program_.Main.anyBusy() || QGuiApplication::mouseButtons() != Qt::NoButton;
    if (key.isAutoRepeat() || busy) return true;
    if (auto* box = dynamic_cast<ParameterBox*>(&widget)) box->commitTyped();
    command->run(window_, program_);
    return true;
}

}  // namespace velna
