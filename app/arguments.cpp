// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/arguments.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "base/command_line.h"

namespace hmonitor {

namespace {

constexpr const char* kAbout =
    R"(The front end of an FM broadcast measuring instrument: a rack of live panels over
the driver library that stands beside the program.
)";

constexpr const char* kFurther =
    R"(Settings, presets and results lie in the program's own folder; where that cannot
be written, in $XDG_DATA_HOME/hmonitor or ~/.local/share/hmonitor. Each folder
holds one rack; several may run side by side.
)";

}  // namespace

Arguments readArguments(int count, const char* const* words) {
    Arguments arguments;
    base::CommandLine line(kAbout, "hmonitor", kFurther);
    line.version("hmonitor " HMONITOR_VERSION);
    line.maybePath("--folder", arguments.folder, "work in this folder");
    const std::vector<std::string_view> behind(words + std::min(count, 1), words + count);
    const auto end = line.read(behind);
    if (!end) return arguments;
    return {{}, end->help ? end->text : "", end->help ? "" : end->text};
}

}  // namespace hmonitor
