// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QKeyEvent>
#include <QString>
#include <optional>

#include "display/form.h"

namespace display::qt {

/// The key of the row of digits that an event is of, by the key's place: a French keyboard writes
/// digits there with Shift alone. Where the platform (`QGuiApplication::platformName()`) tells no
/// places, and for keys elsewhere, it is the digit that the key writes. None for any other key, and
/// while Ctrl, Alt or Meta is held.
std::optional<DigitKey> digitKeyOf(const QKeyEvent& event, const QString& platform);

}  // namespace display::qt
