// SPDX-License-Identifier: GPL-3.0-or-later
#include "analyses/response_curve.h"

#include <array>
#include <cstdint>

#include "core/numbers.h"
#include "display/chart.h"
#include "program/language.h"
#include "program/station_line.h"

namespace hmonitor {

namespace {

constexpr std::array<ResponseCurve::Tone, ResponseCurve::kTones> kTestTones = {{
    {30, "30"},
    {125, "125"},
    {400, "400"},
    {1000, "1K"},
    {4000, "4K"},
    {8000, "8K"},
    {12000, "12K"},
    {15000, "15K"},
}};

// Only here are the two highest tones in lower case. That is intended: it tells an empty curve from
// a measured one at a glance.
constexpr std::array<const char*, ResponseCurve::kTones> kEmptyLabels = {"30", "125", "400", "1K",
                                                                         "4K", "8K",  "12k", "15k"};

constexpr display::Words kNotMeasured{"sin medir", "not measured"};

/// The chart's value of 0 dB.
constexpr double kZeroDbRow = 15;

SmallText dataOf(std::int32_t tenthsOfDb) {
    // Computed in tenths up to the last step: a sum of two rounded numbers would show its error in
    // the text.
    return shortText((tenthsOfDb + 10 * kZeroDbRow) / 10);
}

}  // namespace

int ResponseCurve::resultsIn(const ResponsePairs& pairs) {
    int results = 0;
    for (const std::int32_t frequency : pairs.frequency) results += frequency != 0;
    return results;
}

ResponseCurve ResponseCurve::of(const ResponsePairs& pairs) {
    ResponseCurve curve;
    for (const Tone& tone : kTestTones) {
        for (std::size_t pair = 0; pair < pairs.frequency.size(); ++pair) {
            if (pairs.frequency[pair] != tone.hz) continue;
            // If a tone was measured twice, its label belongs to the row written last.
            if (!curve.rows_.empty() && curve.rows_.back().label == tone.label)
                curve.rows_.back().label = {};
            curve.rows_.push_back({dataOf(pairs.level[pair]), tone.label});
        }
    }
    return curve;
}

ResponseCurve ResponseCurve::empty() {
    ResponseCurve curve;
    curve.measured_ = false;
    for (const char* label : kEmptyLabels) curve.rows_.push_back({"10", label});
    return curve;
}

void ResponseCurve::show(display::Chart& chart) const {
    chart.column = 1;
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        chart.row = static_cast<int>(i) + 1;
        chart.data(rows_[i].data);
        // A row without a label loses the label that it had before.
        chart.rowLabel(rows_[i].label);
    }
    chart.rowCount(static_cast<int>(rows_.size()));
    chart.dashed = !measured_;
    chart.note = measured_ ? std::string_view() : wordsIn(chart.form().language, kNotMeasured);
}

std::string ResponseCurve::tell(const display::Chart& chart, int row) {
    const std::string tone = std::string(chart.rowLabelAt(row)) + " Hz: ";
    if (!chart.note.empty()) return tone + std::string(chart.note.get());
    const double level = valueOf(chart.dataAt(row, 1)) - kZeroDbRow;
    return tone + mask("0.0", level).str() + " dB";
}

std::string ResponseCurve::tellAll(const display::Chart& chart) {
    if (!chart.note.empty()) return std::string(chart.note.get());
    std::string all;
    for (int row = 1; row <= chart.rowCount(); ++row)
        all += (row > 1 ? ", " : "") + tell(chart, row);
    return all;
}

display::NumberTable ResponseCurve::numbers(const Program& program, const display::Chart& chart) {
    const display::Language language = chart.form().language;
    display::NumberTable table = tableOfStation(
        program, wordsIn(language, {"Respuesta a frecuencia", "Frequency Response"}));
    table.columns = {{std::string(wordsIn(language, {"Tono", "Tone"})), "Hz"},
                     {std::string(wordsIn(language, {"Nivel", "Level"})), "dB"}};
    if (!chart.note.empty()) return table;
    for (int row = 1; row <= chart.rowCount(); ++row) {
        table.spots.push_back({static_cast<std::size_t>(row - 1), 1, static_cast<double>(row),
                               valueOf(chart.dataAt(row, 1))});
    }
    std::string hz;
    for (int row = chart.rowCount(); row >= 1; --row) {
        // If a tone was measured twice, the label belongs to the second row.
        for (const Tone& tone : kTestTones)
            if (chart.rowLabelAt(row) == tone.label) hz = wholeText(tone.hz).str();
        const double tenths = 10 * (valueOf(chart.dataAt(row, 1)) - kZeroDbRow);
        table.rows.insert(table.rows.begin(), {hz, shortText(toWhole(tenths) / 10.).str()});
    }
    return table;
}

}  // namespace hmonitor
