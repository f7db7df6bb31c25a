// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>

#include "drivers/receiver/rds/rds_code.h"

namespace hm16::receiver {

// How a block was received.
enum class RdsBlockState : std::uint8_t {
    Lost,       // unusable
    Good,       // its check holds
    Corrected,  // its check holds after a burst of up to five bits was corrected
};

struct RdsBlock {
    RdsBlockState state = RdsBlockState::Lost;
    std::uint16_t information = 0;   // 0 of a lost one
    std::uint8_t correctedBits = 0;  // how long the burst was
    RdsOffset offset = RdsOffset::A;

    bool operator==(const RdsBlock&) const = default;
};

inline constexpr unsigned kRdsBlocks = 4;

// One group as received, its blocks in the order of sending; it is not interpreted here.
struct RdsGroup {
    std::uint64_t number = 0;  // groups since the tuning; a jump is a loss in the reader
    double endSeconds = 0;     // the signal's time at its last bit, since the tuning
    std::array<RdsBlock, kRdsBlocks> blocks{};

    // True when every block can be used.
    bool whole() const {
        for (const RdsBlock& block : blocks)
            if (block.state == RdsBlockState::Lost) return false;
        return true;
    }

    bool operator==(const RdsGroup&) const = default;
};

}  // namespace hm16::receiver
