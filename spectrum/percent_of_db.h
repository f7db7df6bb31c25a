// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace hmonitor {

/// Modulation in percent for a level that many dB below the reference. The table has whole dB up to
/// 20 and ranges above; a value in no row gives 0.
float percentOfDb(float below);

}  // namespace hmonitor
