// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/response_switch.h"

#include <utility>

#include "core/numbers.h"
#include "core/text_lines.h"

namespace hmonitor {

ResponseSwitch ResponseSwitch::off() {
    return ResponseSwitch({"0", "0", "0"});
}

ResponseSwitch ResponseSwitch::armed(float pilotErrorHz, float pilotLevel) {
    // The two figures are written in different formats; both are read alike.
    return ResponseSwitch({"1", shortText(pilotErrorHz).str(), printText(pilotLevel).str()});
}

FileResult<ResponseSwitch> ResponseSwitch::read(const Files& files, SwitchLine last) {
    auto lines = files.readLines(kFileName, static_cast<int>(last));
    if (!lines) return lines.fault();
    return ResponseSwitch(std::move(*lines));
}

std::string_view ResponseSwitch::line(SwitchLine which) const {
    const auto index = static_cast<std::size_t>(which) - 1;
    return index < lines_.size() ? std::string_view(lines_[index]) : "";
}

double ResponseSwitch::value(SwitchLine which) const {
    return valueOf(line(which));
}

std::optional<FileFault> ResponseSwitch::write(const Files& files) const {
    return files.rewrite(kFileName, joinLines(lines_));
}

}  // namespace hmonitor
