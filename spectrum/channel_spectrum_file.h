// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/files.h"
#include "core/int16.h"
#include "core/small_text.h"

namespace hmonitor {

/// The spectrum around one frequency, in the format of a ".spc" file: the number of points, the
/// step between them, where they begin, and a line for each.
struct ChannelSpectrum {
    /// The widest span in the finest step: 1000 kHz to each side, 1 kHz apart.
    static constexpr int kMostPoints = 2001;

    Int16 points;               ///< columns of the graph; 0: there is nothing to draw
    SmallText step;             ///< kHz, as it was typed
    double beforeFirstMhz = 0;  ///< one step below the first point
    /// The texts of the lines, at most `points` of them; fewer when the file ends early.
    std::vector<SmallText> values;

    Int16 stepKhz() const;
    /// The value of line i (from 1).
    Int16 value(int i) const;

    /// Never fails: a text that is no spectrum has no points. An empty line always ends the
    /// spectrum.
    static ChannelSpectrum parse(std::string_view bytes);
    /// The bytes of the file; `points` is the count of values.
    std::string text() const;

    /// "0979.spc" for 979, which is 97.9 MHz.
    static SmallText fileName(double frequency);
    /// The spectrum stored for a frequency in 100 kHz units.
    static FileResult<ChannelSpectrum> read(const Files& files, double frequency);
    std::optional<FileFault> write(const Files& files, double frequency) const;
};

}  // namespace hmonitor
