// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

namespace hm16::receiver {

// From bits to blocks and groups, far enough to show that the bit stream is right: block checks,
// programme identification, station name. Blocks with errors are counted and not used.
class RdsDecoder {
 public:
    void bit(bool value);

    bool synchronized() const { return synchronized_; }
    std::uint64_t goodBlocks() const { return good_; }
    std::uint64_t badBlocks() const { return bad_; }
    std::optional<std::uint16_t> programme() const { return programme_; }

    // Eight letters in the code of the broadcast; empty until all four pairs came.
    std::string name() const;

 private:
    static constexpr unsigned kSegments = 4;

    void search();
    void takeBlock();
    void takeGroup();
    void lose();

    std::uint32_t register_ = 0;
    std::uint64_t bits_ = 0;
    // Where in the stream a block of each place was last seen, for finding two in a row.
    std::array<std::uint64_t, 4> seenAt_{};
    bool synchronized_ = false;
    unsigned place_ = 0;    // of the block that is coming
    unsigned inBlock_ = 0;  // its bits so far
    unsigned badInRow_ = 0;
    std::array<std::optional<std::uint16_t>, 4> group_{};
    std::uint64_t good_ = 0;
    std::uint64_t bad_ = 0;
    std::optional<std::uint16_t> programme_;
    std::array<char, 8> letters_{};
    unsigned segmentsSeen_ = 0;
};

}  // namespace hm16::receiver
