// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/rds/rds_code.h"

namespace hm16::receiver {
namespace {

constexpr std::size_t kSyndromes = 1024;

// No two bursts of up to five bits leave the same remainder.
constexpr std::array<std::uint32_t, kSyndromes> burstTable() {
    std::array<std::uint32_t, kSyndromes> table{};
    constexpr std::uint32_t kPatterns = 1U << static_cast<unsigned>(kRdsLongestBurst);
    for (std::uint32_t pattern = 1; pattern < kPatterns; pattern += 2) {
        for (int place = 0; place < kRdsBlockBits; ++place) {
            const std::uint32_t burst = pattern << static_cast<unsigned>(place);
            if (burst >> static_cast<unsigned>(kRdsBlockBits) != 0) continue;
            table[rdsRemainder(burst)] = burst;
        }
    }
    return table;
}

constexpr std::array<std::uint32_t, kSyndromes> kBursts = burstTable();

}  // namespace

std::uint32_t rdsBurst(std::uint32_t syndrome) {
    return syndrome < kSyndromes ? kBursts[syndrome] : 0;
}

}  // namespace hm16::receiver
