// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

#include "analyses/scan_channels.h"

namespace hmonitor {

/// Which channel was really measured for each cell of the band chart. The legend alone does not
/// tell: some runs do not match it, and a stored scan is shown in the cells of the odd channels
/// whatever was measured.
class ScannedChannels {
 public:
    enum class What {
        Nothing,  ///< no level, or the 0 of a cleared cell
        Level,    ///< a level whose channel is not known
        Channel   ///< a level of a channel
    };
    struct Cell {
        What what = What::Nothing;
        int hundredths = 0;  ///< of a MHz
        friend bool operator==(const Cell&, const Cell&) = default;
    };

    void forget() { rows_.clear(); }
    void put(const ScanCell& at, const Cell& cell) {
        if (at.row < 1 || at.column < 1) return;
        const auto row = static_cast<std::size_t>(at.row - 1);
        const auto column = static_cast<std::size_t>(at.column - 1);
        if (rows_.size() <= row) rows_.resize(row + 1);
        if (rows_[row].size() <= column) rows_[row].resize(column + 1);
        rows_[row][column] = cell;
    }
    Cell at(const ScanCell& place) const {
        const auto row = static_cast<std::size_t>(place.row - 1);
        const auto column = static_cast<std::size_t>(place.column - 1);
        if (place.row < 1 || place.column < 1 || row >= rows_.size()) return {};
        return column < rows_[row].size() ? rows_[row][column] : Cell{};
    }
    static Cell channel(int hundredths) { return {What::Channel, hundredths}; }

 private:
    std::vector<std::vector<Cell>> rows_;
};

/// The channels on which a stored scan with that many lines was measured, if the number tells: none
/// where several choices of channels store as many. A unit that is measured point by point stores
/// the odd and the even run alike, from 87.5 MHz on; a sweep of the even channels begins at 87.4
/// MHz and has as many lines as one of the odd.
std::optional<ScanChannels> channelsOfLines(std::size_t lines, bool unitSweeps);

}  // namespace hmonitor
