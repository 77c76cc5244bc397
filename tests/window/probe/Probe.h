#pragma once

#include <QJsonArray>
#include <QObject>
#include <QSocketNotifier>
#include <memory>

#include "Seen.h"

/// Tells a test what stands on the screen, where, and what it shows. It lives in the program as a
/// Qt plugin that Qt itself loads, so the program needs no door for its tests; and it can only
/// look: whatever a test does, it does by mouse and keys.
class Probe : public QObject {
    Q_OBJECT

public:
    /// Listens on the Unix socket at `path`; each connection is answered with one JSON text and
    /// closed: "controls", "seen" of mouse and keyboard, and the "platform".
    explicit Probe(const QByteArray& path);
    ~Probe() override;

private:
    void answer();

    int listener_ = -1;
    QByteArray path_;
    Seen seen_;
    std::unique_ptr<QSocketNotifier> notifier_;
};

/// Every visible widget of the program: name, kind, place on the screen, state and text.
QJsonArray visibleWidgets();
