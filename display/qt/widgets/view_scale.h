// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QWidget;

namespace display::qt {

class QtDesktop;
class Scale;

/// The scale of the window that a control's widget stands in: the rack's, times what its edges were
/// dragged to. The desktop's alone while it stands in none.
const Scale& viewScale(const QWidget& widget, const QtDesktop& desktop);

}  // namespace display::qt
