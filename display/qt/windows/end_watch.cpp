// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/windows/end_watch.h"

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QEvent>
#include <QGuiApplication>
#include <QSessionManager>
#include <QSocketNotifier>
#include <QString>
#include <QThread>
#include <array>
#include <atomic>
#include <cerrno>

#include "display/qt/windows/qt_desktop.h"

namespace display::qt {

namespace {

constexpr std::array<int, 3> kSignals = {SIGTERM, SIGINT, SIGHUP};

/// What the signals' handler and the message handler reach: they are given nothing of ours.
std::array<int, 2> signalPipe = {-1, -1};
std::atomic<bool> signalHeard = false;
static_assert(std::atomic<bool>::is_always_lock_free);
QtDesktop* watchedDesktop = nullptr;
QtMessageHandler messagesBefore = nullptr;

extern "C" void heedSignal(int number) {
    const int before = errno;
    if (signalHeard.exchange(true)) {
        // Whoever asks twice does not want to wait: it takes its usual course when this returns.
        ::signal(number, SIG_DFL);
        ::raise(number);
    } else {
        const char any = 0;
        [[maybe_unused]] const auto written = ::write(signalPipe[1], &any, 1);
    }
    errno = before;
}

/// The window systems of Qt tell of a lost display by a message, and end the process right behind
/// it without a word to the program.
void heedMessage(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    if (messagesBefore) messagesBefore(type, context, message);
    if (!watchedDesktop || !message.contains(QLatin1String("connection broke"))) return;
    if (QThread::currentThread() == QCoreApplication::instance()->thread())
        watchedDesktop->displayLost();
}

}  // namespace

EndWatch::EndWatch(QtDesktop& desktop) : desktop_(desktop) {
    watchedDesktop = &desktop;
    messagesBefore = qInstallMessageHandler(heedMessage);
    hearSession();
    hearSignals();
}

EndWatch::~EndWatch() {
    for (const int number : kSignals) ::signal(number, SIG_DFL);
    qInstallMessageHandler(messagesBefore);
    watchedDesktop = nullptr;
    heard_.reset();
    for (int& end : signalPipe) {
        if (end >= 0) ::close(end);
        end = -1;
    }
}

void EndWatch::hearSignals() {
    if (::pipe2(signalPipe.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;
    heard_ = std::make_unique<QSocketNotifier>(signalPipe[0], QSocketNotifier::Read);
    connect(heard_.get(), &QSocketNotifier::activated, this, [this] {
        heard_->setEnabled(false);
        desktop_.wantEnd();
    });
    struct sigaction heed = {};
    heed.sa_handler = heedSignal;
    heed.sa_flags = SA_RESTART;
    ::sigemptyset(&heed.sa_mask);
    for (const int number : kSignals) {
        struct sigaction before = {};
        // What whoever started the program keeps from it, as nohup does, stays kept from it.
        const bool kept =
            ::sigaction(number, nullptr, &before) == 0 && before.sa_handler == SIG_IGN;
        if (!kept) ::sigaction(number, &heed, nullptr);
    }
}

void EndWatch::hearSession() {
    QCoreApplication::instance()->installEventFilter(this);
    // The session may still be kept from ending: the program ends when it is told to quit.
    connect(
        qGuiApp, &QGuiApplication::commitDataRequest, this,
        [this](QSessionManager&) {
            if (desktop_.onSaveWanted && !desktop_.ended()) desktop_.onSaveWanted();
        },
        Qt::DirectConnection);
}

bool EndWatch::eventFilter(QObject* watched, QEvent* event) {
    if (watched != QCoreApplication::instance() || event->type() != QEvent::Quit) return false;
    desktop_.wantEnd();
    return true;
}

}  // namespace display::qt
