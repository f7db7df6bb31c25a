// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/station_defaults.h"

#include "core/code_page.h"
#include "core/numbers.h"

namespace hmonitor {

FileResult<StationDefaults> StationDefaults::read(const Files& files) {
    constexpr int kLines = 9;
    constexpr std::size_t kPowerCharacters = 5;
    const auto lines = files.readLines(kFileName, kLines);
    if (!lines) return lines.fault();
    const auto line = [&](int n) { return std::string_view((*lines)[std::size_t(n - 1)]); };
    const auto whole = [&](int n) { return shortText(floorWhole(valueOf(line(n)))); };

    StationDefaults defaults;
    defaults.Text1 = utf8FromCodePage(line(5).substr(0, kPowerCharacters));
    defaults.Text2 = whole(1);
    defaults.Text3 = whole(8);
    defaults.Text4 = whole(9);
    return defaults;
}

}  // namespace hmonitor
