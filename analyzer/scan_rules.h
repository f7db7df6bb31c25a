// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>

namespace hmonitor {

/// kHz between the points of a sweep.
inline constexpr int kScanStepKhz = 25;

/// The step index of a frequency in MHz: 0 is 88 MHz, 800 is 108 MHz. Halves to even.
std::int32_t scanIndex(float mhz);
/// The frequency of a step index in MHz.
double columnMhz(int index);
/// The frequency of an index in units of 100 kHz.
float scanFrequency(int index);

/// The frequencies of a scan.
struct ScanRange {
    float startMHz = 0;
    float stopMHz = 0;

    /// The range of a session, clamped: a start under 87.5 becomes 87.5; a stop of exactly 0
    /// becomes 108, under 89 becomes 89, over 108 becomes 108.
    static ScanRange limited(float startMHz, float stopMHz);

    /// False if an end is no number, the start is above 108, or the stop is below the start: then
    /// nothing is measured.
    bool measures() const;
    int first() const { return scanIndex(startMHz); }
    int last() const { return scanIndex(stopMHz); }
};

/// A level of the unit plus the field correction (dB), rounded down and clamped to 30 to 100.
int scanLevel(float raw, float correction);

/// The last sweep, in the format of the text file beside a session.
class SweepText {
 public:
    void begin() { levels_.clear(); }
    void add(int level);
    /// The file's bytes: the last index, the step, one step below the start in MHz, a line for each
    /// level, and an empty line.
    std::string bytes(const ScanRange& range) const;

 private:
    std::string levels_;
};

}  // namespace hmonitor
