// SPDX-License-Identifier: GPL-3.0-or-later
// A session manager for tests. It prints where it listens, as SESSION_MANAGER wants it, then does
// what its lines tell: "save" asks its clients to save before the end of the session, "cancel"
// takes that end back, "die" ends them. It prints what they answer.
#include <X11/ICE/ICElib.h>
#include <X11/SM/SMlib.h>
#include <poll.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <string>
#include <vector>

namespace {

std::vector<SmsConn> clients;

void tell(const std::string& line) {
    std::cout << line << std::endl;
}

Status registered(SmsConn client, SmPointer, char* previousId) {
    if (previousId) std::free(previousId);
    char id[] = "2-one-client-of-a-test";
    SmsRegisterClientReply(client, id);
    tell("registered");
    // The protocol demands that a client is asked to save once when it registers.
    SmsSaveYourself(client, SmSaveLocal, False, SmInteractStyleNone, False);
    return True;
}

void interact(SmsConn, SmPointer, int) {}
void interactDone(SmsConn, SmPointer, Bool) {}
void saveRequest(SmsConn, SmPointer, int, Bool, int, Bool, Bool) {}
void phaseTwo(SmsConn, SmPointer) {}
void saved(SmsConn client, SmPointer, Bool) {
    SmsSaveComplete(client);
    tell("saved");
}
void closed(SmsConn, SmPointer, int, char**) {
    tell("closed");
}
void setProperties(SmsConn, SmPointer, int, SmProp**) {}
void deleteProperties(SmsConn, SmPointer, int, char**) {}
void getProperties(SmsConn, SmPointer) {}

Status newClient(SmsConn client, SmPointer, unsigned long* mask, SmsCallbacks* calls, char**) {
    clients.push_back(client);
    *mask = SmsRegisterClientProcMask | SmsInteractRequestProcMask | SmsInteractDoneProcMask |
            SmsSaveYourselfRequestProcMask | SmsSaveYourselfP2RequestProcMask |
            SmsSaveYourselfDoneProcMask | SmsCloseConnectionProcMask | SmsSetPropertiesProcMask |
            SmsDeletePropertiesProcMask | SmsGetPropertiesProcMask;
    std::memset(calls, 0, sizeof *calls);
    calls->register_client.callback = registered;
    calls->interact_request.callback = interact;
    calls->interact_done.callback = interactDone;
    calls->save_yourself_request.callback = saveRequest;
    calls->save_yourself_phase2_request.callback = phaseTwo;
    calls->save_yourself_done.callback = saved;
    calls->close_connection.callback = closed;
    calls->set_properties.callback = setProperties;
    calls->delete_properties.callback = deleteProperties;
    calls->get_properties.callback = getProperties;
    return True;
}

Bool anybody(char*) {
    return True;
}

void obey(const std::string& order) {
    for (SmsConn client : clients) {
        if (order == "save") SmsSaveYourself(client, SmSaveBoth, True, SmInteractStyleNone, False);
        if (order == "cancel") SmsShutdownCancelled(client);
        if (order == "die") SmsDie(client);
    }
}

}  // namespace

int main() {
    char wrong[256] = "";
    IceListenObj* listening = nullptr;
    int count = 0;
    // A client that disconnects must not end this process.
    IceSetIOErrorHandler([](IceConn) {});
    if (!SmsInitialize("test", "1", newClient, nullptr, anybody, sizeof wrong, wrong) ||
        !IceListenForConnections(&count, &listening, sizeof wrong, wrong)) {
        std::cerr << wrong << '\n';
        return 1;
    }
    for (int i = 0; i < count; ++i) IceSetHostBasedAuthProc(listening[i], anybody);
    tell(IceComposeNetworkIdList(count, listening));
    std::vector<IceConn> connections;
    for (;;) {
        std::vector<pollfd> waiting{{0, POLLIN, 0}};
        for (int i = 0; i < count; ++i)
            waiting.push_back({IceGetListenConnectionNumber(listening[i]), POLLIN, 0});
        for (IceConn connection : connections)
            waiting.push_back({IceConnectionNumber(connection), POLLIN, 0});
        if (::poll(waiting.data(), waiting.size(), -1) < 0) return 1;
        if (waiting[0].revents) {
            std::string order;
            if (!std::getline(std::cin, order)) return 0;
            obey(order);
        }
        for (std::size_t i = connections.size(); i-- > 0;) {
            if (!waiting[1 + static_cast<std::size_t>(count) + i].revents) continue;
            if (IceProcessMessages(connections[i], nullptr, nullptr) != IceProcessMessagesSuccess) {
                connections.erase(connections.begin() + static_cast<std::ptrdiff_t>(i));
                tell("gone");
            }
        }
        for (int i = 0; i < count; ++i) {
            if (!waiting[1 + static_cast<std::size_t>(i)].revents) continue;
            IceAcceptStatus status;
            if (IceConn connection = IceAcceptConnection(listening[i], &status))
                connections.push_back(connection);
        }
    }
}
