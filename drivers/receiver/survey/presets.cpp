// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/survey/presets.h"

#include "base/number_text.h"

#include <algorithm>
#include <cmath>

namespace hm16::receiver {
namespace {

constexpr std::size_t kBlock = 300;
constexpr std::size_t kRecord = 16;
constexpr std::size_t kName = 9;
constexpr std::size_t kFrequency = 5;

// Blanks behind, or cut where the field ends.
std::string field(std::string text, std::size_t size) {
    text.resize(size, ' ');
    return text;
}

// What is no plain letter has no place in the memories' code for certain.
std::string nameOf(const FoundStation& station) {
    std::string name =
        station.name.empty() ? base::decimalText(station.mhz, 2) + " MHz" : station.name;
    for (char& c : name)
        if (c < ' ' || c > '~') c = '.';
    return name;
}

// Units of 100 kHz; a half step has a digit more.
std::string frequencyOf(const FoundStation& station) {
    const long steps = std::lround(station.mhz * 20);
    return std::to_string(steps % 2 == 0 ? steps / 2 : steps * 5);
}

}  // namespace

std::string withPresets(std::string block, std::span<const FoundStation> stations) {
    if (block.size() < kBlock) block.resize(kBlock, ' ');
    for (std::size_t n = 0; n < kPresets; ++n) {
        std::string record = field("-", 1 + kName) + field("-", 1 + kFrequency);
        if (n < stations.size())
            record = "-" + field(nameOf(stations[n]), kName) + "-" +
                     field(frequencyOf(stations[n]), kFrequency);
        block.replace((n + 1) * kRecord, kRecord, record);
    }
    return block;
}

}  // namespace hm16::receiver
