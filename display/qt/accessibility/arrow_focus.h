// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

namespace display::qt {

/// An arrow key gives the keyboard to the nearest control that stands in line with this one, as
/// the eye goes over a grid of keys: down is one row down. Where none stands there it stays. False
/// when the key is no arrow.
bool moveFocusByArrow(const QWidget& from, int key);

}  // namespace display::qt
