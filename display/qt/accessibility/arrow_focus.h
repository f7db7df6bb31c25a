// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

namespace display::qt {

/// Moves the focus to the nearest control in the direction of an arrow key and in line with this
/// one: down is one row down. Where there is none, the focus stays. Returns false when the key is
/// no arrow.
bool moveFocusByArrow(const QWidget& from, int key);

}  // namespace display::qt
