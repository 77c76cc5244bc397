#include "shell/qt/SessionClient.h"

#include <QCoreApplication>
#include <QEvent>
#include <QTimer>
#include <array>
#include <cstdlib>
#include <string>
#include <utility>

#include <X11/SM/SMlib.h>
#include <unistd.h>

namespace velna {
namespace {

SessionClient& client(SmPointer self) {
    return *static_cast<SessionClient*>(self);
}

void saveYourself(SmcConn, SmPointer self, int, Bool loggingOut, int interaction, Bool) {
    client(self).saveYourself(loggingOut && interaction == SmInteractStyleAny);
}

void interact(SmcConn, SmPointer self) {
    client(self).ask();
}

void die(SmcConn, SmPointer) {
    SessionClient::end();
}

void nothing(SmcConn, SmPointer) {}

// The library would end the program when the desktop goes without a word.
void lost(IceConn) {}

SmcCallbacks callbacks(SessionClient* self) {
    SmcCallbacks calls{};
    calls.save_yourself = {saveYourself, self};
    calls.die = {die, self};
    calls.save_complete = {nothing, self};
    calls.shutdown_cancelled = {nothing, self};
    return calls;
}

void tell(SmcConn connection, const char* name, const char* type, std::string value) {
    std::string property = name;
    std::string kind = type;
    SmPropValue part{static_cast<int>(value.size()), value.data()};
    SmProp told{property.data(), kind.data(), 1, &part};
    std::array<SmProp*, 1> all{&told};
    SmcSetProperties(connection, 1, all.data());
}

}  // namespace

SessionClient::SessionClient(std::function<bool()> agrees) : agrees_(std::move(agrees)) {
    if (!qEnvironmentVariableIsEmpty("SESSION_MANAGER")) join();
}

SessionClient::~SessionClient() {
    if (connection_) SmcCloseConnection(connection_, 0, nullptr);
}

void SessionClient::join() {
    constexpr unsigned long wanted = SmcSaveYourselfProcMask | SmcDieProcMask |
                                     SmcSaveCompleteProcMask | SmcShutdownCancelledProcMask;
    IceSetIOErrorHandler(lost);
    SmcCallbacks calls = callbacks(this);
    std::array<char, 256> failure{};
    char* id = nullptr;
    connection_ = SmcOpenConnection(nullptr, nullptr, SmProtoMajor, SmProtoMinor, wanted, &calls,
                                    nullptr, &id, static_cast<int>(failure.size()), failure.data());
    std::free(id);
    if (!connection_) return;
    introduce();
    const int socket = IceConnectionNumber(SmcGetIceConnection(connection_));
    notifier_ = std::make_unique<QSocketNotifier>(socket, QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(),
                     [this] { read(); });
}

// What the desktop needs to start the program again at the next log-in.
void SessionClient::introduce() {
    const std::string program = QCoreApplication::applicationFilePath().toStdString();
    tell(connection_, SmProgram, SmARRAY8, program);
    tell(connection_, SmCloneCommand, SmLISTofARRAY8, program);
    tell(connection_, SmRestartCommand, SmLISTofARRAY8, program);
    tell(connection_, SmUserID, SmARRAY8, std::to_string(::getuid()));
}

void SessionClient::read() {
    IceConn ice = SmcGetIceConnection(connection_);
    if (IceProcessMessages(ice, nullptr, nullptr) == IceProcessMessagesSuccess) return;
    notifier_->setEnabled(false);
    IceSetShutdownNegotiation(ice, False);
    SmcCloseConnection(std::exchange(connection_, nullptr), 0, nullptr);
}

void SessionClient::saveYourself(bool mayAsk) {
    if (!mayAsk || !SmcInteractRequest(connection_, SmDialogNormal, interact, this))
        SmcSaveYourselfDone(connection_, True);
}

// The question has an event loop of its own, and must not stand inside the reading of a message.
void SessionClient::ask() {
    QTimer::singleShot(0, notifier_.get(), [this] {
        const bool yes = agrees_();
        if (!connection_) return;
        SmcInteractDone(connection_, !yes);
        SmcSaveYourselfDone(connection_, yes);
    });
}

void SessionClient::end() {
    QTimer::singleShot(0, QCoreApplication::instance(), [] {
        QEvent quit(QEvent::Quit);
        QCoreApplication::sendEvent(QCoreApplication::instance(), &quit);
    });
}

}  // namespace velna
