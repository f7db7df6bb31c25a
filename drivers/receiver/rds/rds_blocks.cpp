// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/rds/rds_blocks.h"

#include <algorithm>
#include <bit>

#include "drivers/receiver/rds/rds_code.h"

namespace hm16::receiver {
namespace {

constexpr std::uint32_t kBlockMask = (1U << static_cast<unsigned>(kRdsBlockBits)) - 1;
constexpr unsigned kMostLostInRow = 45;  // a second
constexpr std::uint64_t kBlockLength = kRdsBlockBits;

// Blocks behind the one that is decided.
constexpr int kAhead = 3;
constexpr int kBehind = 2;

// A block of place C is sent with one of two offsets, by the group's version.
constexpr std::array<std::array<RdsOffset, 2>, kRdsBlocks> kOffsetsOf{
    {{RdsOffset::A, RdsOffset::A},
     {RdsOffset::B, RdsOffset::B},
     {RdsOffset::C, RdsOffset::CPrime},
     {RdsOffset::D, RdsOffset::D}}};

std::uint8_t placesOf(std::uint32_t block) {
    const std::uint32_t remainder = rdsRemainder(block);
    unsigned places = 0;
    for (unsigned place = 0; place < kRdsBlocks; ++place)
        for (const RdsOffset offset : kOffsetsOf[place])
            if (remainder == kRdsOffsetWords[static_cast<std::size_t>(offset)])
                places |= 1U << place;
    return static_cast<std::uint8_t>(places);
}

unsigned placeAfter(unsigned place, int blocks) {
    return static_cast<unsigned>(static_cast<int>(place) + 2 * static_cast<int>(kRdsBlocks) +
                                 blocks) %
           kRdsBlocks;
}

std::uint16_t informationOf(std::uint32_t block) {
    return static_cast<std::uint16_t>(block >> 10U);
}

}  // namespace

void RdsBlocks::bit(bool value, float strength, double seconds) {
    register_ = (register_ << 1U | (value ? 1U : 0U)) & kBlockMask;
    ++bits_;
    received_[bits_ % kKept] = {register_, strength, seconds,
                                bits_ < kBlockLength ? std::uint8_t{0} : placesOf(register_)};
    if (!synchronized_) search();
    while (synchronized_ && bits_ >= next_.end && decide()) continue;
}

bool RdsBlocks::fits(std::uint64_t end, unsigned place) const {
    return (at(end).places >> place & 1U) != 0;
}

// Whether one of the blocks from `fromBlock` to `toBlock` beside the next one stands where it
// should.
bool RdsBlocks::anyFits(int fromBlock, int toBlock) const {
    for (int block = fromBlock; block <= toBlock; ++block) {
        const std::uint64_t end =
            next_.end + static_cast<std::uint64_t>(block) * kBlockLength;  // wraps back below 0
        if (block != 0 && fits(end, placeAfter(next_.place, block))) return true;
    }
    return false;
}

// One faultless block in 200 bits comes by chance; two in their order and distance do not. Gives
// the first of the two.
std::optional<RdsBlocks::Alignment> RdsBlocks::pairEndingAt(std::uint64_t end) const {
    for (int apart = 1; apart <= kAhead; ++apart) {
        const std::uint64_t length = static_cast<std::uint64_t>(apart) * kBlockLength;
        if (end < length + kBlockLength) break;
        for (unsigned place = 0; place < kRdsBlocks; ++place)
            if (fits(end, place) && fits(end - length, placeAfter(place, -apart)))
                return Alignment{end - length, placeAfter(place, -apart)};
    }
    return std::nullopt;
}

void RdsBlocks::search() {
    const auto found = pairEndingAt(bits_);
    if (!found) return;
    synchronized_ = true;
    lostInRow_ = 0;
    group_ = {};
    next_ = *found;
}

// The first pair in the bits of the next block and of those behind it that stands elsewhere than it
// should.
std::optional<RdsBlocks::Alignment> RdsBlocks::elsewhere() const {
    std::optional<Alignment> first;
    for (std::uint64_t end = next_.end + 1; end <= bits_; ++end) {
        const auto found = pairEndingAt(end);
        if (!found || found->end + kBlockLength <= next_.end) continue;
        // What the group's second block rules out would be ruled out there again, for ever.
        if (found->place == next_.place && !possible(faultlessAt(*found).offset)) continue;
        if (!first || found->end < first->end) first = found;
    }
    return first;
}

// False when more bits must come first.
bool RdsBlocks::decide() {
    if (fits(next_.end, next_.place) && possible(faultlessAt(next_).offset)) {
        deliver(faultlessAt(next_));
        return true;
    }
    if (bits_ < next_.end + kAhead * kBlockLength) return false;
    const auto found = anyFits(1, kAhead - 1) ? std::nullopt : elsewhere();
    if (found) {
        slipTo(*found);
    } else {
        deliver(mended());
    }
    return true;
}

// Blocks between are lost, whether too many bits came or too few.
void RdsBlocks::slipTo(const Alignment& to) {
    ++slips_;
    while (next_.place != to.place) deliver(RdsBlock());
    next_ = to;
}

RdsBlock RdsBlocks::faultlessAt(const Alignment& where) const {
    const std::uint32_t block = at(where.end).block;
    const auto& offsets = kOffsetsOf[where.place];
    return {RdsBlockState::Good, informationOf(block), 0,
            rdsBlockIs(block, offsets[0]) ? offsets[0] : offsets[1]};
}

// The second block tells the group's version, and that the third's offset. One burst of five bits
// makes a block of the one out of one of the other.
bool RdsBlocks::possible(RdsOffset offset) const {
    constexpr unsigned kVersionBit = 11;
    const RdsBlock& second = group_.blocks[1];
    if (next_.place != 2 || second.state != RdsBlockState::Good) return true;
    return (offset == RdsOffset::CPrime) == ((second.information >> kVersionBit & 1U) != 0);
}

RdsBlock RdsBlocks::mended() {
    // Where no block around this one is faultless, it may well stand elsewhere; and any third
    // stretch of 26 bits is a burst away from some block.
    if (!anyFits(-kBehind, kAhead - 1)) return {};
    const std::uint32_t block = at(next_.end).block;
    for (const RdsOffset offset : kOffsetsOf[next_.place]) {
        const std::uint32_t burst =
            rdsBurst(rdsRemainder(block) ^ kRdsOffsetWords[static_cast<std::size_t>(offset)]);
        if (burst == 0 || !possible(offset)) continue;
        const Support support = supportFor(burst);
        if (support == Support::Against) continue;
        const auto length = std::bit_width(burst) - std::countr_zero(burst);
        const std::uint16_t information = informationOf(block ^ burst);
        const bool doubtful = sinceLost_ < kQuiet && support == Support::None;
        if (doubtful && !cameBefore(information)) {
            if (length == 1) remember(information);
            continue;
        }
        return {RdsBlockState::Corrected, information, static_cast<std::uint8_t>(length), offset};
    }
    return {};
}

// Noise turns round what is weak. A burst of strong bits beside weaker ones that stay is no
// explanation, unless all are strong: then the errors were sent.
RdsBlocks::Support RdsBlocks::supportFor(std::uint32_t burst) const {
    constexpr float kWeak = 0.5F;  // against the middle one of all
    std::array<float, kRdsBlockBits> strengths{};
    float strongest = 0;
    float weakestKept = 0;
    bool anyKept = false;
    for (int place = 0; place < kRdsBlockBits; ++place) {
        const float strength = at(next_.end - static_cast<std::uint64_t>(place)).strength;
        strengths[static_cast<std::size_t>(place)] = strength;
        if ((burst >> static_cast<unsigned>(place) & 1U) != 0) {
            strongest = std::max(strongest, strength);
        } else if (!anyKept || strength < weakestKept) {
            weakestKept = strength;
            anyKept = true;
        }
    }
    const auto middle = strengths.begin() + kRdsBlockBits / 2;
    std::nth_element(strengths.begin(), middle, strengths.end());
    if (strongest <= kWeak * *middle) return Support::For;
    const bool strong = weakestKept >= kWeak * *middle || strongest <= 2 * weakestKept;
    return strong ? Support::None : Support::Against;
}

bool RdsBlocks::cameBefore(std::uint16_t information) const {
    const auto& all = seen_[next_.place];
    const std::size_t count = std::min(seenCount_[next_.place], all.size());
    return std::find(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(count), information) !=
           all.begin() + static_cast<std::ptrdiff_t>(count);
}

void RdsBlocks::remember(std::uint16_t information) {
    std::size_t& count = seenCount_[next_.place];
    seen_[next_.place][count++ % kRemembered] = information;
}

void RdsBlocks::deliver(const RdsBlock& block) {
    sinceLost_ = block.state == RdsBlockState::Lost ? 0 : std::min(sinceLost_ + 1, kQuiet);
    if (block.state == RdsBlockState::Good) remember(block.information);
    lostInRow_ = block.state == RdsBlockState::Lost ? lostInRow_ + 1 : 0;
    if (block.state == RdsBlockState::Good) ++good_;
    if (block.state == RdsBlockState::Corrected) ++corrected_;
    if (block.state == RdsBlockState::Lost) ++lost_;
    group_.blocks[next_.place] = block;
    if (next_.place + 1 == kRdsBlocks) {
        group_.number = groups_++;
        group_.endSeconds = at(next_.end).seconds;
        onGroup_(group_);
        group_ = {};
    }
    next_ = {next_.end + kBlockLength, placeAfter(next_.place, 1)};
    if (lostInRow_ > kMostLostInRow) lose();
}

void RdsBlocks::lose() {
    synchronized_ = false;
    group_ = {};
    // What was seen so far has been decided.
    for (Received& received : received_) received.places = 0;
}

}  // namespace hm16::receiver
