// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <vector>

#include "display/canvas.h"

namespace display {

/// The cells of a map, row by row from the top: 0xffrrggbb, or 0 where none was drawn.
struct CellMap {
    explicit CellMap(const CellGrid& its)
        : grid(its), cells(static_cast<std::size_t>(its.columns * its.rows)) {}

    void draw(int column, int row, Colour colour);
    /// Removes the cells that lie wholly inside a box; returns whether any cell is left.
    bool eraseWithin(float x1, float y1, float x2, float y2);

    CellGrid grid;
    std::vector<std::uint32_t> cells;

 private:
    int drawn_ = 0;  ///< cells that are not 0
};

}  // namespace display
