// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/small_text.h"
#include "display/number_table.h"
#include "program/driver.h"
#include "program/program.h"

namespace display {
class Chart;
}

namespace hmonitor {

/// A frequency response as a chart shows it: one row for each measured test tone, in the order of
/// the tones.
class ResponseCurve {
 public:
    /// One test tone of the sequence that the transmitter sends.
    struct Tone {
        int hz;
        const char* label;
    };
    /// One row: its data and its label, which may be empty.
    struct Row {
        SmallText data;
        std::string_view label;
    };

    static constexpr int kTones = 8;

    /// The curve of measured pairs; a level of 0 dB has the value 15. Pairs may come in any order;
    /// those whose frequency is no test tone are dropped. Two pairs of one tone have a row each,
    /// the second one with the label.
    static ResponseCurve of(const ResponsePairs& pairs);

    /// The curve where nothing was measured: flat at 10, dashed, and marked as no measurement.
    static ResponseCurve empty();

    /// The number of pairs that have a frequency, whether or not it is a test tone.
    static int resultsIn(const ResponsePairs& pairs);

    const std::vector<Row>& rows() const { return rows_; }

    /// Writes the rows into a chart and sets its number of rows.
    void show(display::Chart& chart) const;

    /// The tool tip of a row of such a chart: the tone and its level in dB.
    static std::string tell(const display::Chart& chart, int row);
    /// The same for all rows, for a screen reader.
    static std::string tellAll(const display::Chart& chart);
    /// The measured tones of such a chart and their levels; nothing for an empty curve.
    static display::NumberTable numbers(const Program& program, const display::Chart& chart);

 private:
    bool measured_ = true;
    std::vector<Row> rows_;
};

}  // namespace hmonitor
