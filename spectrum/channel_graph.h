// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "spectrum/class1.h"

namespace hmonitor {

/// The graph of a channel spectrum: dB below the carrier over kHz around it. With more than 25
/// columns only every second one is labelled.
Class1 channelGraph(display::Canvas& canvas, Int16 columns, Int16 stepKhz);

/// The columns and the step (kHz) of an empty graph.
inline constexpr int kUsualColumns = 17;
inline constexpr int kUsualStepKhz = 25;

}  // namespace hmonitor
