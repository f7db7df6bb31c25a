// SPDX-License-Identifier: GPL-3.0-or-later
#include "analyses/station_list.h"

#include <algorithm>
#include <utility>

#include "analyses/scan_channels.h"
#include "core/numbers.h"

namespace hmonitor {

namespace {

std::string trimmedName(std::string name) {
    const std::size_t last = name.find_last_not_of(' ');
    name.resize(last == std::string::npos ? 0 : last + 1);
    return name;
}

std::string padded(std::string_view text, std::size_t width) {
    return std::string(width - std::min(width, text.size()), ' ').append(text);
}

}  // namespace

bool isTunable(int hundredths) {
    constexpr int kTuningStep = 5;
    return hundredths >= kBandStart && hundredths <= kBandStop && hundredths % kTuningStep == 0;
}

void StationList::name(const MemoryBlock& presets) {
    constexpr double kHundredths = 10;
    presets_.clear();
    for (int memory = 1; memory <= MemoryBlock::kMemories; ++memory) {
        if (presets.isEmpty(memory)) continue;
        const double tuned = presets.frequency(memory).tuned();
        presets_.push_back(
            {toWhole(tuned * kHundredths), memory, trimmedName(presets.name(memory))});
    }
}

void StationList::add(int hundredths, int level) {
    HeardStation station{hundredths, level, 0, {}};
    const auto preset = std::ranges::find(presets_, hundredths, &Preset::hundredths);
    if (preset != presets_.end()) {
        station.memory = preset->memory;
        station.name = preset->name;
    }
    stations_.push_back(std::move(station));
}

void StationList::sort(Order order) {
    std::ranges::stable_sort(stations_, {}, &HeardStation::hundredths);
    if (order == Order::Level)
        std::ranges::stable_sort(stations_, std::ranges::greater{}, &HeardStation::level);
}

int StationList::rowOf(int hundredths) const {
    const auto found = std::ranges::find(stations_, hundredths, &HeardStation::hundredths);
    return found == stations_.end() ? -1 : static_cast<int>(found - stations_.begin());
}

std::string StationList::rowText(const HeardStation& station) {
    constexpr std::size_t kFrequency = 6;
    constexpr std::size_t kLevel = 5;
    const bool tenth = station.hundredths % 10 == 0;
    // The last digit of a half step stands behind the tenths of the others.
    std::string mhz(mask(tenth ? "0.0" : "0.00", station.hundredths / 100.).view());
    if (tenth) mhz += ' ';
    std::string text = padded(mhz, kFrequency) + padded(wholeText(station.level).view(), kLevel);
    return station.name.empty() ? text : text + "  " + station.name;
}

}  // namespace hmonitor
