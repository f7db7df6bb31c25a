// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

#include "core/limit_rule.h"
#include "display/control.h"

namespace hmonitor {

/// Which bounds a rule has.
enum class LimitKind { Above, Below, Outside };
LimitKind kindOf(const LimitRule& rule);

/// A rule as the user has it in fields.
struct LimitEntry {
    const figures::Figure* figure = nullptr;
    LimitKind kind = LimitKind::Above;
    std::string lowest, highest;  ///< the one that the kind does not use counts for nothing
    std::string holdsFor, release;
    LimitSeverity severity = LimitSeverity::Warning;
};
LimitEntry entryOf(const LimitRule& rule);

/// What is wrong with an entry; empty words for nothing.
display::Words faultOf(const LimitEntry& entry);

/// `rule` with what was entered, which has no fault. A rule that is changed by it gets lines of its
/// own in the file; its comment stays.
LimitRule ruleOf(const LimitEntry& entry, LimitRule rule);

/// The same entry for another figure or another kind: bounds that it had not are what is good for
/// the figure, or else the ends of its range.
void offerBounds(LimitEntry& entry);

}  // namespace hmonitor
