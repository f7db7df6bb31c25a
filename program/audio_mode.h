// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace hmonitor {

/// The two channels that the audio bars show.
enum class AudioMode { LeftRight, SumDifference };

}  // namespace hmonitor
