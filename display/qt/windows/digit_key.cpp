// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/windows/digit_key.h"

namespace display::qt {

namespace {

constexpr int kKeys = 10;

/// The scan code of the key of 1; the others follow it. 0 where codes tell no places.
quint32 firstCode(const QString& platform) {
    // X and Wayland give the code of the Linux kernel and 8, Windows that of the first PCs.
    if (platform == QLatin1String("xcb") || platform.startsWith(QLatin1String("wayland"))) {
        return 10;
    }
    return platform == QLatin1String("windows") ? 2 : 0;
}

std::optional<int> placeInRow(const QKeyEvent& event, const QString& platform) {
    const quint32 first = firstCode(platform);
    const quint32 code = event.nativeScanCode();
    if (first == 0 || code < first || code >= first + kKeys) return std::nullopt;
    return static_cast<int>(code - first) + 1;
}

std::optional<int> writtenDigit(const QKeyEvent& event) {
    if (event.key() < Qt::Key_0 || event.key() > Qt::Key_9) return std::nullopt;
    return event.key() == Qt::Key_0 ? kKeys : event.key() - Qt::Key_0;
}

}  // namespace

std::optional<DigitKey> digitKeyOf(const QKeyEvent& event, const QString& platform) {
    const Qt::KeyboardModifiers held =
        event.modifiers() & ~(Qt::KeypadModifier | Qt::GroupSwitchModifier);
    if ((held & ~Qt::ShiftModifier) != Qt::NoModifier) return std::nullopt;
    std::optional<int> place = placeInRow(event, platform);
    if (!place) place = writtenDigit(event);
    if (!place) return std::nullopt;
    return DigitKey{*place, held.testFlag(Qt::ShiftModifier)};
}

}  // namespace display::qt
