// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/files.h"

namespace hmonitor {

/// The lines of `Hm-res.dat`.
enum class SwitchLine {
    Armed = 1,       ///< "1" while a frequency response is armed, else "0"
    PilotError = 2,  ///< error of the 19 kHz pilot in Hz at the moment of arming
    PilotLevel = 3,  ///< level of the pilot at the moment of arming
};

/// The switch of the frequency response. The file is always rewritten whole.
class ResponseSwitch {
 public:
    static constexpr std::string_view kFileName = "Hm-res.dat";

    static ResponseSwitch off();
    static ResponseSwitch armed(float pilotErrorHz, float pilotLevel);

    /// Reads up to line `last`, the last one that the caller uses.
    static FileResult<ResponseSwitch> read(const Files& files, SwitchLine last);

    /// The text of a line; empty behind the last one read.
    std::string_view line(SwitchLine which) const;
    /// `valueOf` that text.
    double value(SwitchLine which) const;

    std::optional<FileFault> write(const Files& files) const;

 private:
    explicit ResponseSwitch(std::vector<std::string> lines) : lines_(std::move(lines)) {}

    std::vector<std::string> lines_;
};

}  // namespace hmonitor
