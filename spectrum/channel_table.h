// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "display/canvas.h"
#include "display/form.h"
#include "display/number_table.h"
#include "program/program.h"

namespace hmonitor {

/// The numbers of the shown channel spectrum, for copying them.
struct ShownSpectrum {
    int columns = 0;
    int stepKhz = 0;
    std::vector<std::string> below;  ///< dB below the carrier, without sign; empty: not measured

    /// Clears all values and sets the columns around the carrier.
    void begin(int itsColumns, int itsStepKhz);
    /// Sets the value of column i, from 1.
    void put(int i, std::string_view value);
    /// Offsets from the carrier in kHz, and levels in dB under it.
    display::NumberTable table(const Program& program, display::Language language) const;
    /// The same with the places of its bars on that canvas.
    display::NumberTable tableOn(display::Canvas& canvas, const Program& program,
                                 display::Language language) const;
};

}  // namespace hmonitor
