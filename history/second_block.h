// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "history/figure_columns.h"
#include "history/figure_second.h"

namespace history {

inline constexpr std::int64_t kMinute = 60;

// A block holds the seconds of one minute of one station, figure by figure. docs/history.md
// describes each byte.

/// Packs seconds of one minute; they must be in order and each must occur once.
std::string packSeconds(std::span<const Second> seconds, const FigureColumns& columns);

/// Reads a block without trusting it.
class SecondBlock {
 public:
    /// None if the block does not have the frame that `packSeconds` writes. `data` must outlive it.
    static std::optional<SecondBlock> open(std::string_view data);

    int size() const { return size_; }
    /// The second of the minute that is the i-th of the block, 0 to 59, rising.
    int offset(int i) const { return offsets_[static_cast<std::size_t>(i)]; }

    /// Reads one figure into `out`, which has room for size(). A figure that the block lacks is not
    /// measured. False if its column is damaged; `out` then holds gaps.
    bool column(const FileFigure& figure, std::span<FigureSecond> out) const;

 private:
    std::string_view data_;  // the columns
    int size_ = 0;
    std::array<std::uint8_t, kMinute> offsets_{};
};

/// All figures of a block's seconds; `minute` is its first second. A damaged column reads as gaps.
std::vector<Second> secondsOf(const SecondBlock& block, const FigureColumns& columns, int station,
                              std::int64_t minute, int epoch);

}  // namespace history
