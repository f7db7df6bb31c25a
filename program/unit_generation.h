// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace hmonitor {

/// The first version of the unit that measures point by point again, with sweeps before it.
inline constexpr float kPointsAgain = 2.0f;

/// A unit of 1.7 up to 2 delivers whole sweeps as frames; any other is measured point by point.
inline bool givesFrames(float hardwareVersion) {
    return hardwareVersion >= 1.7f && hardwareVersion < kPointsAgain;
}

}  // namespace hmonitor
