// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

#include "core/small_text.h"

namespace hmonitor {

enum class HalfStep { No, Yes };

/// A frequency in the form of a memory record: 3 or 4 digits in units of 100 kHz ("875", "1025"),
/// or with a further "5" for 50 kHz more ("8755", "10255"). The two are told apart by size: the
/// band ends at 1080, so from 8755 on the last digit is the half step.
struct StoredFrequency {
    double frequency = 0;  ///< 100 kHz units, without the half step
    HalfStep half = HalfStep::No;

    /// With the half step: 875.5 is 87.55 MHz.
    double tuned() const { return half == HalfStep::Yes ? frequency + 0.5 : frequency; }

    friend bool operator==(const StoredFrequency&, const StoredFrequency&) = default;
};

StoredFrequency parseStoredFrequency(std::string_view text);

/// The text of a record: "875", or "8755" with the half step.
SmallText storedFrequencyText(const StoredFrequency& frequency);

}  // namespace hmonitor
