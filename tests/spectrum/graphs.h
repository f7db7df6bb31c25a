// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "spectrum/class1.h"

namespace hmonitor::test {

/// The graph of the analyses panel's thumbnail.
Class1 bareGraph(display::Canvas& canvas);
/// The band at full size, 800 columns.
Class1 bandGraph(display::Canvas& canvas);
/// The band on a canvas 17 times coarser.
Class1 smallBandGraph(display::Canvas& canvas);

}  // namespace hmonitor::test
