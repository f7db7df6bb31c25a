// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "display/form.h"
#include "display/number_table.h"
#include "program/program.h"

namespace hmonitor {

/// A channel spectrum that is shown, for whoever copies its numbers.
struct ShownSpectrum {
    int columns = 0;
    int stepKhz = 0;
    std::vector<std::string> below;  ///< dB below the carrier, without sign; empty: not measured

    /// Columns around the carrier, nothing measured yet.
    void begin(int itsColumns, int itsStepKhz);
    /// The value of column i, from 1.
    void put(int i, std::string_view value);
    /// Offsets from the carrier in kHz, and levels in dB under it.
    display::NumberTable table(const Program& program, display::Language language) const;
};

}  // namespace hmonitor
