// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>

namespace hm16::receiver {

// The cyclic code of RDS blocks (IEC 62106): 16 bits of information and 10 check bits, to which an
// offset word is added that shows the block's place in its group.
inline constexpr std::uint32_t kRdsGenerator = 0x5B9;
inline constexpr int kRdsBlockBits = 26;

enum class RdsOffset { A, B, C, CPrime, D };
inline constexpr std::array<std::uint32_t, 5> kRdsOffsetWords{0x0FC, 0x198, 0x168, 0x350, 0x1B4};

// The remainder of `bits` (at most 26) divided by the generator polynomial.
constexpr std::uint32_t rdsRemainder(std::uint32_t bits) {
    for (int place = kRdsBlockBits - 1; place >= 10; --place)
        if (bits >> static_cast<unsigned>(place) & 1U)
            bits ^= kRdsGenerator << static_cast<unsigned>(place - 10);
    return bits;
}

// A block as it is sent.
constexpr std::uint32_t rdsBlock(std::uint16_t information, RdsOffset offset) {
    const std::uint32_t shifted = static_cast<std::uint32_t>(information) << 10U;
    return shifted | (rdsRemainder(shifted) ^ kRdsOffsetWords[static_cast<std::size_t>(offset)]);
}

// True when 26 received bits are a faultless block of this place.
constexpr bool rdsBlockIs(std::uint32_t bits, RdsOffset offset) {
    return rdsRemainder(bits) == kRdsOffsetWords[static_cast<std::size_t>(offset)];
}

// The longest burst of errors that the code locates unambiguously.
inline constexpr int kRdsLongestBurst = 5;

// The correction for a received block whose remainder differs by `syndrome`, if one burst of up to
// kRdsLongestBurst bits explains it; 0 if none does or the syndrome is 0.
std::uint32_t rdsBurst(std::uint32_t syndrome);

}  // namespace hm16::receiver
