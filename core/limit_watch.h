// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <optional>
#include <span>
#include <vector>

#include "core/limit_rule.h"

namespace hmonitor {

/// A figure that is beyond a limit.
struct LimitAlarm {
    enum class Side { Low, High };
    Side side = Side::High;
    LimitSeverity severity = LimitSeverity::Warning;
    const LimitRule* rule = nullptr;
};

/// Watches the figures by rules. A rule is on once its figure has been beyond its bounds for the
/// rule's time, without a break, and off again once it has been within them for the rule's release.
/// While a figure is not known, while a station sends no pilot (for figures of the pilot) or no RDS
/// (for those of RDS), and where readings stay away, nothing goes on or off, and times begin anew.
class LimitWatch {
 public:
    using Time = std::chrono::milliseconds;
    /// Readings that are further apart do not follow one another.
    static constexpr Time kLongestGap = std::chrono::seconds(2);

    /// All rules are off then.
    void watch(std::vector<LimitRule> rules);
    const std::vector<LimitRule>& rules() const { return rules_; }

    /// Readings with the states of all figures, in the registry's order. `now` never goes back.
    void take(const figures::Readings& readings,
              std::span<const figures::State, figures::kCount> states, Time now);
    /// Times begin anew; what is on stays on.
    void interrupt();
    /// All rules are off: another station is measured.
    void forget();

    /// The worst that holds for a figure, none where it is within its limits.
    std::optional<LimitAlarm> of(const figures::Figure& figure) const;

 private:
    struct Progress {
        bool on = false;
        LimitAlarm::Side side = LimitAlarm::Side::High;
        std::optional<Time> since;  ///< since when the figure says the opposite of `on`
    };
    static void take(const LimitRule& rule, Progress& progress, float value, Time now);

    std::vector<LimitRule> rules_;
    std::vector<Progress> progress_;
    std::optional<Time> last_;
};

}  // namespace hmonitor
