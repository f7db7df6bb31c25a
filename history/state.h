// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "base/figures.h"

namespace history {

using figures::State;

/// Nobody recorded: only a query returns this, it is never in a file.
inline constexpr State kNotRecorded{13};

inline constexpr std::size_t kFileStates = 13;

/// Milliseconds by state: for how long a figure was unknown for that reason. [0] is not used.
using Causes = std::array<std::uint32_t, kFileStates + 1>;

/// The reason that held longest, of equal ones the lower number; Known if there is none.
inline State longestCause(const Causes& causes) {
    std::size_t longest = 0;
    for (std::size_t i = 1; i < causes.size(); ++i) {
        if (causes[i] > (longest == 0 ? 0 : causes[longest])) longest = i;
    }
    return static_cast<State>(longest);
}

}  // namespace history
