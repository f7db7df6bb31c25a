// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

#include "core/limit_rule.h"
#include "display/control.h"

namespace hmonitor {

/// The bounds that a rule has.
enum class LimitKind { Above, Below, Outside };
LimitKind kindOf(const LimitRule& rule);

/// A rule as the texts and choices of the window.
struct LimitEntry {
    const figures::Figure* figure = nullptr;
    LimitKind kind = LimitKind::Above;
    std::string lowest, highest;  ///< the one that the kind does not use is ignored
    std::string holdsFor, release;
    LimitSeverity severity = LimitSeverity::Warning;
};
LimitEntry entryOf(const LimitRule& rule);

/// The fault of an entry; empty words if it has none.
display::Words faultOf(const LimitEntry& entry);

/// `rule` with the entry's values; the entry must have no fault. If that changes the rule, it gets
/// new lines in the file; its comment stays.
LimitRule ruleOf(const LimitEntry& entry, LimitRule rule);

/// Adapts an entry to another figure or kind: bounds that it lacked become the figure's good
/// values, or else the ends of its range.
void offerBounds(LimitEntry& entry);

}  // namespace hmonitor
