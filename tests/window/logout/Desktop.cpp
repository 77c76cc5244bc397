// The side of a desktop that logs its user out, for one program. It prints the address at which the
// program finds it, then what the program answers, a word a line; a line of its input starts a
// log-out.

#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

#include <X11/ICE/ICElib.h>
#include <X11/ICE/ICEutil.h>
#include <X11/SM/SMlib.h>
#include <poll.h>
#include <unistd.h>

namespace {

SmsConn program = nullptr;
bool loggingOut = false;

void tell(const char* word) {
    std::puts(word);
    std::fflush(stdout);
}

// A new program is first asked to save itself, with nobody to ask and no log-out behind it.
Status registerClient(SmsConn connection, SmPointer, char* /*former*/) {
    char* id = SmsGenerateClientID(connection);
    SmsRegisterClientReply(connection, id);
    std::free(id);
    program = connection;
    SmsSaveYourself(connection, SmSaveLocal, False, SmInteractStyleNone, False);
    return 1;
}

void interactRequest(SmsConn connection, SmPointer, int) {
    tell("asks");
    SmsInteract(connection);
}

void interactDone(SmsConn connection, SmPointer, Bool cancel) {
    if (!cancel) return tell("answered");
    tell("called off");
    loggingOut = false;
    SmsShutdownCancelled(connection);
}

void saveYourselfDone(SmsConn connection, SmPointer, Bool) {
    if (!loggingOut) {
        SmsSaveComplete(connection);
        tell("stays");
        return;
    }
    tell("ready");
    SmsDie(connection);
}

void closeConnection(SmsConn connection, SmPointer, int count, char** reasons) {
    SmFreeReasons(count, reasons);
    SmsCleanUp(connection);
    program = nullptr;
    tell("gone");
}

void phase2Request(SmsConn connection, SmPointer) {
    SmsSaveYourselfPhase2(connection);
}

void setProperties(SmsConn, SmPointer, int count, SmProp** properties) {
    for (int i = 0; i < count; ++i) SmFreeProperty(properties[i]);
    std::free(properties);
}

void deleteProperties(SmsConn, SmPointer, int, char**) {}

void getProperties(SmsConn connection, SmPointer) {
    SmsReturnProperties(connection, 0, nullptr);
}

void saveYourselfRequest(SmsConn, SmPointer, int, Bool, int, Bool, Bool) {}

Status newClient(SmsConn, SmPointer, unsigned long* mask, SmsCallbacks* calls, char**) {
    *calls = {};
    *mask = SmsRegisterClientProcMask | SmsInteractRequestProcMask | SmsInteractDoneProcMask |
            SmsSaveYourselfRequestProcMask | SmsSaveYourselfP2RequestProcMask |
            SmsSaveYourselfDoneProcMask | SmsCloseConnectionProcMask | SmsSetPropertiesProcMask |
            SmsDeletePropertiesProcMask | SmsGetPropertiesProcMask;
    calls->register_client.callback = registerClient;
    calls->interact_request.callback = interactRequest;
    calls->interact_done.callback = interactDone;
    calls->save_yourself_request.callback = saveYourselfRequest;
    calls->save_yourself_phase2_request.callback = phase2Request;
    calls->save_yourself_done.callback = saveYourselfDone;
    calls->close_connection.callback = closeConnection;
    calls->set_properties.callback = setProperties;
    calls->delete_properties.callback = deleteProperties;
    calls->get_properties.callback = getProperties;
    return 1;
}

Bool anyHost(char*) {
    return True;
}

IceConn accepted(IceListenObj listener) {
    IceAcceptStatus status{};
    IceConn connection = IceAcceptConnection(listener, &status);
    while (connection && IceConnectionStatus(connection) == IceConnectPending)
        IceProcessMessages(connection, nullptr, nullptr);
    return connection;
}

void logOut() {
    if (!program) return;
    loggingOut = true;
    SmsSaveYourself(program, SmSaveBoth, True, SmInteractStyleAny, False);
}

/// Serves until the input ends.
void serve(const std::vector<IceListenObj>& listeners) {
    IceConn connection = nullptr;
    for (;;) {
        std::vector<pollfd> waiting{{STDIN_FILENO, POLLIN, 0}};
        for (IceListenObj listener : listeners)
            waiting.push_back({IceGetListenConnectionNumber(listener), POLLIN, 0});
        if (connection) waiting.push_back({IceConnectionNumber(connection), POLLIN, 0});
        if (::poll(waiting.data(), waiting.size(), -1) < 0) return;
        std::array<char, 64> line{};
        if (waiting[0].revents && ::read(STDIN_FILENO, line.data(), line.size()) <= 0) return;
        if (waiting[0].revents) logOut();
        for (std::size_t i = 0; i < listeners.size(); ++i)
            if (waiting[i + 1].revents & POLLIN) connection = accepted(listeners[i]);
        if (waiting.size() == listeners.size() + 2 && waiting.back().revents &&
            IceProcessMessages(connection, nullptr, nullptr) != IceProcessMessagesSuccess)
            connection = nullptr;
    }
}

}  // namespace

int main() {
    std::array<char, 256> failure{};
    char vendor[] = "velna";
    char release[] = "1";
    if (!SmsInitialize(vendor, release, newClient, nullptr, anyHost, failure.size(),
                       failure.data())) {
        std::fprintf(stderr, "%s\n", failure.data());
        return 1;
    }
    int count = 0;
    IceListenObj* listeners = nullptr;
    if (!IceListenForConnections(&count, &listeners, failure.size(), failure.data())) {
        std::fprintf(stderr, "%s\n", failure.data());
        return 1;
    }
    for (int i = 0; i < count; ++i) IceSetHostBasedAuthProc(listeners[i], anyHost);
    char* address = IceComposeNetworkIdList(count, listeners);
    tell(address);
    serve({listeners, listeners + count});
    return 0;
}
