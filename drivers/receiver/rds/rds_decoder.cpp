// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/rds/rds_decoder.h"

#include "drivers/receiver/rds/rds_code.h"

namespace hm16::receiver {
namespace {

constexpr std::uint32_t kRegisterMask = (1U << kRdsBlockBits) - 1;
constexpr unsigned kMostBadInRow = 12;
constexpr unsigned kBlocks = 4;

// A block of place C is sent with one of two offsets, by the group's version.
bool blockFits(std::uint32_t bits, unsigned place) {
    switch (place) {
        case 0:
            return rdsBlockIs(bits, RdsOffset::A);
        case 1:
            return rdsBlockIs(bits, RdsOffset::B);
        case 2:
            return rdsBlockIs(bits, RdsOffset::C) || rdsBlockIs(bits, RdsOffset::CPrime);
        default:
            return rdsBlockIs(bits, RdsOffset::D);
    }
}

}  // namespace

void RdsDecoder::bit(bool value) {
    register_ = (register_ << 1U | (value ? 1U : 0U)) & kRegisterMask;
    ++bits_;
    if (!synchronized_) {
        search();
        return;
    }
    if (++inBlock_ == kRdsBlockBits) takeBlock();
}

void RdsDecoder::search() {
    if (bits_ < kRdsBlockBits) return;
    for (unsigned place = 0; place < kBlocks; ++place) {
        if (!blockFits(register_, place)) continue;
        const unsigned before = (place + kBlocks - 1) % kBlocks;
        seenAt_[place] = bits_;
        // One fit in 256 bits comes by chance; two in their order and distance do not.
        if (seenAt_[before] == 0 || bits_ - seenAt_[before] != kRdsBlockBits) continue;
        synchronized_ = true;
        badInRow_ = 0;
        inBlock_ = 0;
        group_ = {};
        place_ = (place + 1) % kBlocks;
        good_ += 2;
        if (place == 0) group_[0] = static_cast<std::uint16_t>(register_ >> 10U);
        return;
    }
}

void RdsDecoder::takeBlock() {
    inBlock_ = 0;
    if (blockFits(register_, place_)) {
        ++good_;
        badInRow_ = 0;
        group_[place_] = static_cast<std::uint16_t>(register_ >> 10U);
    } else {
        ++bad_;
        group_[place_].reset();
        if (++badInRow_ > kMostBadInRow) {
            lose();
            return;
        }
    }
    if (++place_ < kBlocks) return;
    takeGroup();
    place_ = 0;
    group_ = {};
}

void RdsDecoder::takeGroup() {
    if (group_[0]) programme_ = group_[0];
    if (!group_[1] || !group_[3]) return;
    const unsigned type = *group_[1] >> 12U;
    if (type != 0) return;  // groups 0A and 0B carry the name
    const unsigned segment = *group_[1] & 3U;
    letters_[2 * segment] = static_cast<char>(*group_[3] >> 8U);
    letters_[2 * segment + 1] = static_cast<char>(*group_[3] & 0xFFU);
    segmentsSeen_ |= 1U << segment;
}

void RdsDecoder::lose() {
    synchronized_ = false;
    seenAt_ = {};
}

std::string RdsDecoder::name() const {
    constexpr unsigned kAll = (1U << kSegments) - 1;
    return segmentsSeen_ == kAll ? std::string(letters_.begin(), letters_.end()) : std::string();
}

}  // namespace hm16::receiver
