// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace hmonitor {

/// Modulation in percent for a level so many dB below the reference. The table knows whole dB up
/// to 20 and ranges above; what stands in no row is 0.
float percentOfDb(float below);

}  // namespace hmonitor
