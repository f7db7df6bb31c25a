// SPDX-License-Identifier: GPL-3.0-or-later
#include "analyzer/scan_rules.h"

#include <algorithm>
#include <cmath>

#include "analyzer/density.h"
#include "core/numbers.h"

namespace hmonitor {

namespace {

constexpr float kBandStart = 88.0f;
constexpr float kBandStop = 108.0f;
constexpr int kBandStartKhz = 88000;
constexpr float kLowestStart = 87.5f;
constexpr float kLowestStop = 89.0f;
constexpr float kStepMhz = static_cast<float>(kScanStepKhz) / 1000;

}  // namespace

std::int32_t scanIndex(float mhz) {
    return toWhole((mhz - kBandStart) * 1000 / kScanStepKhz);
}

double columnMhz(int index) {
    return (kBandStartKhz + index * kScanStepKhz) / 1000.;
}

float scanFrequency(int index) {
    // Computed from the number of the point, in quarters of a unit, so that rounding errors do not
    // add up.
    return static_cast<float>(kBandStartKhz + index * kScanStepKhz) / 100.0f;
}

ScanRange ScanRange::limited(float startMHz, float stopMHz) {
    if (startMHz < kLowestStart) startMHz = kLowestStart;
    if (stopMHz == 0) stopMHz = kBandStop;
    if (stopMHz < kLowestStop) stopMHz = kLowestStop;
    if (stopMHz > kBandStop) stopMHz = kBandStop;
    return {startMHz, stopMHz};
}

bool ScanRange::measures() const {
    return std::isfinite(startMHz) && std::isfinite(stopMHz) && startMHz >= kLowestStart &&
           startMHz <= kBandStop && first() <= last();
}

int scanLevel(float raw, float correction) {
    return std::clamp(floorWhole(correction + raw), std::int32_t{Density::kLowestLevel},
                      std::int32_t{Density::kHighestLevel});
}

void SweepText::add(int level) {
    levels_.append(shortText(level)).append("\r\n");
}

std::string SweepText::bytes(const ScanRange& range) const {
    std::string text = shortText(range.last()).str() + "\r\n";
    text.append(longText(kScanStepKhz)).append("\r\n");
    text.append(shortText(range.startMHz - kStepMhz)).append("\r\n");
    return text + levels_ + "\r\n";
}

}  // namespace hmonitor
