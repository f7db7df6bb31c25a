// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMap>
#include <QString>
#include <QVariantMap>
#include <functional>

class QDBusConnection;
class QObject;

namespace display::qt {

/// How much the user of the desktop wants to see move.
enum class Motion { Usual, Less };

/// The settings that desktops share with programs: by their group, then by their name.
using SharedSettings = QMap<QString, QVariantMap>;

/// What they say of motion; usual motion where they say nothing.
Motion motionIn(const SharedSettings& settings);

/// Asks the desktop on its bus. `answered` is called later, once, unless `asker` has gone; never
/// where nobody answers.
void askForMotion(const QDBusConnection& bus, QObject& asker, std::function<void(Motion)> answered);
/// The same on the bus of the session, where the session names one.
void askSessionForMotion(QObject& asker, std::function<void(Motion)> answered);

}  // namespace display::qt
