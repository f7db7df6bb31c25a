// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/files.h"
#include "core/small_text.h"
#include "core/station_state.h"

namespace hmonitor {

/// The results file of one frequency (`0985.dat`), 24 lines that the driver library writes and the
/// program only reads. It is normal that the file is missing, unreadable or cut short: each line
/// that it lacks counts as not measured.
class ResultsFile {
 public:
    static constexpr int kLines = 24;

    /// Reads the file of a frequency in units of 100 kHz.
    static ResultsFile read(const Files& files, double frequency);
    /// Reads the file of that name.
    static ResultsFile readNamed(const Files& files, std::string_view name);

    bool isThere() const { return isThere_; }
    /// The text of line `n`, 1 to 24 (UTF-8), or none.
    std::optional<std::string_view> line(int n) const;

    /// Puts lines 18 to 22 into the five floors of the quality readouts; what is missing becomes
    /// "xx" for the noise floors and "0" for the others.
    void putFloors(StationState& state) const;

 private:
    bool isThere_ = false;
    std::vector<std::string> lines_;
};

}  // namespace hmonitor
