// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/painting/print_queue.h"

#include <QLibrary>
#include <memory>
#include <string_view>

namespace display::qt {

namespace {

#ifdef Q_OS_UNIX

/// The CUPS client library. Qt's print plugin uses the same loaded copy, so that the last error of
/// a request is found in it. It is loaded at run time, so that the program also runs where it is
/// not installed.
class CupsLibrary {
 public:
    static const CupsLibrary& get() {
        static const CupsLibrary library;
        return library;
    }

    bool there() const {
        return server && setServer && port && connect && options && wait && close;
    }

    using Http = void;
    const char* (*server)() = nullptr;
    void (*setServer)(const char* server) = nullptr;
    int (*port)() = nullptr;
    int (*encryption)() = nullptr;
    Http* (*connect)(const char* host, int port, void* addresses, int family, int encryption,
                     int blocking, int milliseconds, int* cancel) = nullptr;
    int (*options)(Http*, const char* uri) = nullptr;
    int (*wait)(Http*, int milliseconds) = nullptr;
    void (*close)(Http*) = nullptr;
    int (*lastError)() = nullptr;
    const char* (*lastErrorString)() = nullptr;

 private:
    CupsLibrary() {
        if (!library_.load()) return;
        take(server, "cupsServer");
        take(setServer, "cupsSetServer");
        take(port, "ippPort");
        take(encryption, "cupsEncryption");
        take(connect, "httpConnect2");
        take(options, "httpOptions");
        take(wait, "httpWait");
        take(close, "httpClose");
        take(lastError, "cupsLastError");
        take(lastErrorString, "cupsLastErrorString");
    }
    template <class Function>
    void take(Function& function, const char* name) {
        function = reinterpret_cast<Function>(library_.resolve(name));
    }

    QLibrary library_{QStringLiteral("cups"), 2};
};

/// How long the user waits at most, once for the connection and once for the answer.
constexpr int kPatience = 1000;

#endif

}  // namespace

#ifdef Q_OS_UNIX

namespace {

PrintSystem ask(const CupsLibrary& cups) {
    constexpr int kAnyFamily = 0;
    constexpr int kBlocking = 1;
    const int encryption = cups.encryption ? cups.encryption() : 0;
    const std::unique_ptr<CupsLibrary::Http, void (*)(CupsLibrary::Http*)> http(
        cups.connect(cups.server(), cups.port(), nullptr, kAnyFamily, encryption, kBlocking,
                     kPatience, nullptr),
        cups.close);
    if (!http) return PrintSystem::Absent;
    if (cups.options(http.get(), "*") != 0) return PrintSystem::Silent;
    return cups.wait(http.get(), kPatience) > 0 ? PrintSystem::Answers : PrintSystem::Silent;
}

/// A socket on which nobody listens, so that requests fail at once.
constexpr const char* kNobody = "/nobody/listens";

}  // namespace

PrintSystem askPrintSystem() {
    const CupsLibrary& cups = CupsLibrary::get();
    if (!cups.there()) return PrintSystem::Absent;
    if (cups.server() == std::string_view(kNobody)) cups.setServer(nullptr);
    const PrintSystem answer = ask(cups);
    // All requests by Qt on this thread would wait for the silent server from now on.
    if (answer == PrintSystem::Silent) cups.setServer(kNobody);
    return answer;
}

std::string lastQueueFault() {
    const CupsLibrary& cups = CupsLibrary::get();
    // Status codes below this one mean success.
    constexpr int kFirstFault = 0x0100;
    if (!cups.lastError || !cups.lastErrorString || cups.lastError() < kFirstFault) return {};
    const char* words = cups.lastErrorString();
    return words && *words ? words : "?";
}

#else

PrintSystem askPrintSystem() {
    return PrintSystem::Answers;
}

std::string lastQueueFault() {
    return {};
}

#endif

}  // namespace display::qt
