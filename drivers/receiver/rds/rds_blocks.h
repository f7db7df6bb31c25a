// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <utility>

#include "drivers/receiver/rds/rds_group.h"

namespace hm16::receiver {

// From bits to blocks and groups. A faulty block is decided once the next three have come, which
// show what is wrong: bits changed, or bits were lost or repeated. In the first case the next
// blocks are where they should be, and a short burst is corrected. In the second, two of them are
// elsewhere at the right distance, and decoding continues there. So a slip costs only the block in
// which it happened.
//
// Errors farther apart than a burst may look like another burst. Where blocks are lost, a
// correction that the bits' strengths do not support counts only if the same information came
// before, without a fault or with one wrong bit: broadcasters repeat nearly all of it.
class RdsBlocks {
 public:
    explicit RdsBlocks(std::function<void(const RdsGroup&)> onGroup)
        : onGroup_(std::move(onGroup)) {}

    // `strength`: how certain the bit is, in any unit; `seconds`: its time.
    void bit(bool value, float strength = 1, double seconds = 0);

    bool synchronized() const { return synchronized_; }
    std::uint64_t good() const { return good_; }
    std::uint64_t corrected() const { return corrected_; }
    std::uint64_t lost() const { return lost_; }
    std::uint64_t slips() const { return slips_; }

 private:
    // A bit, and the block that the 26 bits up to it form.
    struct Received {
        std::uint32_t block = 0;
        float strength = 0;
        double seconds = 0;
        std::uint8_t places = 0;  // places at which they are a faultless block, one bit each
    };
    struct Alignment {
        std::uint64_t end;  // of a block, counted in bits
        unsigned place;
    };

    static constexpr std::size_t kKept = 256;
    static constexpr std::size_t kRemembered = 256;  // groups: 22 seconds
    static constexpr unsigned kQuiet = 200;          // blocks without a lost one: four seconds

    const Received& at(std::uint64_t bit) const { return received_[bit % kKept]; }
    bool fits(std::uint64_t end, unsigned place) const;
    bool anyFits(int fromBlock, int toBlock) const;
    std::optional<Alignment> pairEndingAt(std::uint64_t end) const;
    std::optional<Alignment> elsewhere() const;
    void search();
    bool decide();
    void slipTo(const Alignment& to);
    RdsBlock faultlessAt(const Alignment& where) const;
    RdsBlock mended();
    bool possible(RdsOffset offset) const;
    // What the strengths of a block's bits say about a burst in it.
    enum class Support { Against, None, For };
    Support supportFor(std::uint32_t burst) const;
    bool cameBefore(std::uint16_t information) const;
    void remember(std::uint16_t information);
    void deliver(const RdsBlock& block);
    void lose();

    std::function<void(const RdsGroup&)> onGroup_;
    std::array<Received, kKept> received_{};
    std::uint64_t bits_ = 0;
    std::uint32_t register_ = 0;

    bool synchronized_ = false;
    Alignment next_{0, 0};  // the block to be decided next
    unsigned lostInRow_ = 0;
    unsigned sinceLost_ = kQuiet;  // blocks, at most kQuiet
    std::array<std::array<std::uint16_t, kRemembered>, kRdsBlocks> seen_{};  // sorted by place
    std::array<std::size_t, kRdsBlocks> seenCount_{};
    RdsGroup group_;
    std::uint64_t groups_ = 0;

    std::uint64_t good_ = 0;
    std::uint64_t corrected_ = 0;
    std::uint64_t lost_ = 0;
    std::uint64_t slips_ = 0;
};

}  // namespace hm16::receiver
