// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "base/figures.h"

namespace hmonitor {

/// How bad it is that a figure is beyond a limit.
enum class LimitSeverity { Warning, Alarm };

/// One rule about one figure: which values are good, and for how long others must stand until that
/// is said.
struct LimitRule {
    /// Times in seconds, where a rule names none.
    static constexpr double kUsualTime = 5;
    static constexpr double kLongestTime = 3600;

    std::string name;
    const figures::Figure* figure = nullptr;
    /// In the figure's own unit; infinite for no bound.
    figures::Bounds good;
    double holdsFor = kUsualTime;  ///< seconds beyond the bounds until it is said
    double release = kUsualTime;   ///< seconds within the bounds until it is said no more
    LimitSeverity severity = LimitSeverity::Warning;

    /// What stands in the file above its section, and the section itself, line by line. A rule that
    /// was changed has no lines.
    std::vector<std::string> comment, lines;
};

/// Whether both say the same; what stands in the file does not count.
bool sameRule(const LimitRule& one, const LimitRule& other);

}  // namespace hmonitor
