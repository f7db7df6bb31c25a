// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <vector>

namespace hmonitor {

/// How often each level was seen at each frequency: the first index counts steps of 25 kHz from
/// 88 MHz, the second whole dB from 30 dB over a microvolt.
class Density {
 public:
    static constexpr int kColumns = 801;
    static constexpr int kRows = 71;
    static constexpr int kCells = kColumns * kRows;
    static constexpr int kLowestLevel = 30;
    static constexpr int kHighestLevel = 100;

    double at(int column, int row) const { return cells_[index(column, row)]; }
    void set(int column, int row, double sweeps) { cells_[index(column, row)] = sweeps; }

    /// Counts a level (30 to 100) of one sweep. Levels outside the band are not counted.
    void count(int column, int level) {
        if (column < 0 || column >= kColumns) return;
        cells_[index(column, level - kLowestLevel)] += 1.0;
    }

    /// Empties the cells that the map shows. Column 800 and row 70 do not belong to the map and are
    /// kept on purpose.
    void clearShown();
    /// Empties every cell.
    void clear();

    /// All cells in the order in which a session keeps them: the column runs fastest.
    std::span<const double> cells() const { return cells_; }
    std::span<double> cells() { return cells_; }

 private:
    static constexpr std::size_t index(int column, int row) {
        return static_cast<std::size_t>(column) +
               std::size_t{kColumns} * static_cast<std::size_t>(row);
    }
    std::vector<double> cells_ = std::vector<double>(kCells);
};

}  // namespace hmonitor
