#include "Probe.h"

#include <QGenericPlugin>
#include <QGuiApplication>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTimer>
#include <cstring>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

Probe::Probe(const QByteArray& path) : path_(path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, path.constData(), sizeof address.sun_path - 1);
    listener_ = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const auto* plain = reinterpret_cast<const sockaddr*>(&address);
    if (listener_ < 0 || ::bind(listener_, plain, sizeof address) != 0 ||
        ::listen(listener_, 4) != 0) {
        qWarning("the probe cannot listen on %s", path.constData());
        return;
    }
    notifier_ = std::make_unique<QSocketNotifier>(listener_, QSocketNotifier::Read);
    connect(notifier_.get(), &QSocketNotifier::activated, this, [this] { answer(); });
}

Probe::~Probe() {
    if (listener_ >= 0) ::close(listener_);
    ::unlink(path_.constData());
}

void Probe::answer() {
    const int client = ::accept(listener_, nullptr, nullptr);
    if (client < 0) return;
    const QJsonObject told{{"controls", visibleWidgets()},
                           {"seen", seen_.told()},
                           {"platform", QGuiApplication::platformName()}};
    const QByteArray text = QJsonDocument(told).toJson(QJsonDocument::Compact);
    qsizetype sent = 0;
    while (sent < text.size()) {
        // Who has asked may have waited long enough and be gone.
        const ssize_t part = ::send(client, text.constData() + sent,
                                    static_cast<std::size_t>(text.size() - sent), MSG_NOSIGNAL);
        if (part <= 0) break;
        sent += part;
    }
    ::close(client);
}

/// Qt creates it by its key and hands the text after the colon over: "velnaprobe:/path/of/socket".
class ProbePlugin : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "probe.json")

public:
    QObject* create(const QString&, const QString& path) override {
        return new Probe(path.toLocal8Bit());
    }
};

#include "Probe.moc"
