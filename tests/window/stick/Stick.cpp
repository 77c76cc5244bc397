#include "Stick.h"

#include <QGenericPlugin>
#include <QList>
#include <algorithm>

#include <SDL.h>
#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr int axes = 2;
constexpr int buttons = 4;

}  // namespace

Stick::Stick(const QString& pipe)
    // Open for writing too, so that the pipe has no end while the test is between two lines.
    : pipe_(::open(pipe.toLocal8Bit().constData(), O_RDWR | O_NONBLOCK | O_CLOEXEC)) {
    if (pipe_ < 0) {
        qWarning("the stick cannot read %s", qPrintable(pipe));
        return;
    }
    notifier_ = std::make_unique<QSocketNotifier>(pipe_, QSocketNotifier::Read);
    connect(notifier_.get(), &QSocketNotifier::activated, this, [this] { read(); });
    plugIn();
}

Stick::~Stick() {
    if (pipe_ < 0) return;
    ::close(pipe_);
    pullOut();
    SDL_QuitSubSystem(SDL_INIT_JOYSTICK);
}

void Stick::plugIn() {
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    if (SDL_InitSubSystem(SDL_INIT_JOYSTICK) == 0)
        index_ = SDL_JoystickAttachVirtual(SDL_JOYSTICK_TYPE_FLIGHT_STICK, axes, buttons, 0);
    device_ = index_ < 0 ? nullptr : SDL_JoystickOpen(index_);
    if (!device_) qWarning("no virtual stick: %s", SDL_GetError());
}

void Stick::pullOut() {
    if (device_) SDL_JoystickClose(device_);
    device_ = nullptr;
    if (index_ >= 0) SDL_JoystickDetachVirtual(index_);
    index_ = -1;
}

void Stick::read() {
    QByteArray lines(4096, 0);
    lines.truncate(std::max<qsizetype>(::read(pipe_, lines.data(), lines.size()), 0));
    for (const QByteArray& line : lines.split('\n')) obey(line);
}

void Stick::obey(const QByteArray& line) {
    if (line == "out") pullOut();
    const QList<QByteArray> words = line.split(' ');
    if (!device_ || words.size() != axes + 1) return;
    for (int i = 0; i < axes; ++i) SDL_JoystickSetVirtualAxis(device_, i, words[i].toShort());
    const int down = words[axes].toInt();
    for (int i = 0; i < buttons; ++i)
        SDL_JoystickSetVirtualButton(device_, i, static_cast<Uint8>(down >> i & 1));
}

/// Qt creates it by its key and hands the text after the colon over: "velnastick:/path/of/pipe".
class StickPlugin : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "stick.json")

public:
    QObject* create(const QString&, const QString& pipe) override { return new Stick(pipe); }
};

#include "Stick.moc"
