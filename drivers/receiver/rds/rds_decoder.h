// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>

#include "drivers/receiver/rds/rds_blocks.h"

namespace hm16::receiver {

// From bits to groups, and the parts of them that prove that the bits are right: block checks,
// programme identification, station name.
class RdsDecoder {
 public:
    // `onGroup` sees every group, lost blocks and all.
    explicit RdsDecoder(std::function<void(const RdsGroup&)> onGroup = {})
        : blocks_([this](const RdsGroup& group) { takeGroup(group); }),
          onGroup_(std::move(onGroup)) {}
    RdsDecoder(const RdsDecoder&) = delete;
    RdsDecoder& operator=(const RdsDecoder&) = delete;

    // `strength`: how certain the bit is, in any unit; `seconds`: its time.
    void bit(bool value, float strength = 1, double seconds = 0) {
        blocks_.bit(value, strength, seconds);
    }

    bool synchronized() const { return blocks_.synchronized(); }
    std::uint64_t goodBlocks() const { return blocks_.good(); }
    std::uint64_t correctedBlocks() const { return blocks_.corrected(); }
    std::uint64_t badBlocks() const { return blocks_.lost(); }

    // The identification that two faultless blocks in a row have given.
    std::optional<std::uint16_t> programme() const { return programme_; }

    // Eight letters in the broadcast's code, from faultless blocks; empty until all four pairs
    // came.
    std::string name() const;

 private:
    static constexpr unsigned kSegments = 4;

    void takeGroup(const RdsGroup& group);
    void takeProgramme(const RdsBlock& block);

    RdsBlocks blocks_;
    std::function<void(const RdsGroup&)> onGroup_;
    std::optional<std::uint16_t> named_;  // by the latest block
    std::optional<std::uint16_t> programme_;
    std::array<char, 2 * kSegments> letters_{};
    unsigned segmentsSeen_ = 0;  // a bit each
};

}  // namespace hm16::receiver
