// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/windows/desktop_motion.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QObject>
#include <QStringList>
#include <utility>

namespace display::qt {

namespace {

// What all desktops are to say in time, and what has been said for long.
const QString kAppearance = QStringLiteral("org.freedesktop.appearance");
const QString kInterface = QStringLiteral("org.gnome.desktop.interface");

}  // namespace

Motion motionIn(const SharedSettings& settings) {
    constexpr unsigned kReduced = 1;
    const bool reduced =
        settings.value(kAppearance).value(QStringLiteral("reduced-motion")).toUInt() == kReduced;
    const QVariant animations =
        settings.value(kInterface).value(QStringLiteral("enable-animations"), true);
    return reduced || !animations.toBool() ? Motion::Less : Motion::Usual;
}

void askForMotion(const QDBusConnection& bus, QObject& asker,
                  std::function<void(Motion)> answered) {
    qDBusRegisterMetaType<SharedSettings>();
    QDBusMessage question = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.portal.Desktop"),
        QStringLiteral("/org/freedesktop/portal/desktop"),
        QStringLiteral("org.freedesktop.portal.Settings"), QStringLiteral("ReadAll"));
    question << QStringList{kAppearance, kInterface};
    auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(question), &asker);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, &asker,
                     [answered = std::move(answered)](QDBusPendingCallWatcher* done) {
                         const QDBusPendingReply<SharedSettings> reply = *done;
                         done->deleteLater();
                         if (reply.isValid()) answered(motionIn(reply.value()));
                     });
}

void askSessionForMotion(QObject& asker, std::function<void(Motion)> answered) {
    // Without this Qt would start a bus of its own.
    if (qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS")) return;
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (bus.isConnected()) askForMotion(bus, asker, std::move(answered));
}

}  // namespace display::qt
