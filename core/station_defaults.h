// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

#include "core/files.h"
#include "core/small_text.h"

namespace hmonitor {

/// The on-air figures of `normal.hm`, as `Form_D` shows them. The program never writes the file;
/// people edit it, and an edit shows within a minute.
struct StationDefaults {
    static constexpr std::string_view kFileName = "normal.hm";

    SmallText Text1;  ///< radiated power: the first five characters of line 5
    SmallText Text2;  ///< maximum modulation: the whole part of line 1
    SmallText Text3;  ///< three-second silences: the whole part of line 8
    SmallText Text4;  ///< inverted phase: the whole part of line 9

    static FileResult<StationDefaults> read(const Files& files);
};

}  // namespace hmonitor
