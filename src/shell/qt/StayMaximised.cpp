#include "shell/qt/StayMaximised.h"

#include <QEvent>
#include <QGuiApplication>
#include <QMoveEvent>
#include <QWidget>
#include <QWindow>
#include <cstdlib>
#include <memory>

#include <xcb/xcb.h>

#include "shell/qt/DisplaySystem.h"

namespace velna {
namespace {

constexpr int pause = 300;  // milliseconds: a manager that has just let go of the window listens
constexpr int mostTries = 20;

struct Release {
    void operator()(void* reply) const { std::free(reply); }
};
template <class Reply>
using Owned = std::unique_ptr<Reply, Release>;

xcb_atom_t atom(xcb_connection_t* x, const char* name) {
    const auto length = static_cast<std::uint16_t>(std::char_traits<char>::length(name));
    const Owned<xcb_intern_atom_reply_t> reply(
        xcb_intern_atom_reply(x, xcb_intern_atom(x, 1, length, name), nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

/// What the manager itself has noted on the window. The toolkit's word is no help: it takes the
/// wish for the deed.
bool notedAsMaximised(xcb_connection_t* x, xcb_window_t window) {
    constexpr std::uint32_t mostStates = 64;
    const xcb_atom_t maximised = atom(x, "_NET_WM_STATE_MAXIMIZED_VERT");
    const auto cookie =
        xcb_get_property(x, 0, window, atom(x, "_NET_WM_STATE"), XCB_ATOM_ATOM, 0, mostStates);
    const Owned<xcb_get_property_reply_t> reply(xcb_get_property_reply(x, cookie, nullptr));
    if (!reply || reply->format != 32) return false;
    const auto* states = static_cast<const xcb_atom_t*>(xcb_get_property_value(reply.get()));
    for (std::uint32_t i = 0; i < reply->value_len; ++i)
        if (states[i] == maximised) return true;
    return false;
}

bool isNormal(const QWidget& window) {
    return !(window.windowState() & (Qt::WindowMinimized | Qt::WindowFullScreen));
}

}  // namespace

StayMaximised::StayMaximised(QWidget& window) : QObject(&window), window_(window) {
    window.installEventFilter(this);
    again_.setSingleShot(true);
    connect(&again_, &QTimer::timeout, this, &StayMaximised::ask);
}

bool StayMaximised::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::WindowStateChange && window_.windowState() == Qt::WindowNoState)
        askFrom(DisplaySystem::isWayland() ? pause : 0);
    // A drag may last longer than the tries: its end moves the window once more.
    if (event->type() == QEvent::Move && tries_ > 0 &&
        static_cast<QMoveEvent*>(event)->pos() != static_cast<QMoveEvent*>(event)->oldPos())
        askFrom(pause);
    return false;
}

void StayMaximised::askFrom(int milliseconds) {
    tries_ = 1;
    again_.start(milliseconds);
}

bool StayMaximised::granted() const {
    const auto* x = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x && notedAsMaximised(x->connection(), static_cast<xcb_window_t>(window_.winId()));
}

void StayMaximised::ask() {
    if (!window_.isVisible() || !isNormal(window_) || granted()) {
        tries_ = 0;
        return;
    }
    // On X the toolkit passes a wish on only when it differs from the one before. (Under Wayland it
    // compares with what the desktop has granted, and taking the wish back would be seen.)
    if (!DisplaySystem::isWayland()) window_.windowHandle()->setWindowStates(Qt::WindowNoState);
    window_.setWindowState(Qt::WindowMaximized);
    window_.windowHandle()->setWindowStates(Qt::WindowMaximized);
    if (++tries_ <= mostTries) again_.start(pause);
}

}  // namespace velna
