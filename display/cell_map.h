// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <vector>

#include "display/canvas.h"

namespace display {

/// The cells of a map, row by row from the top: 0xffrrggbb, or 0 where none was drawn.
struct CellMap {
    explicit CellMap(const CellGrid& its)
        : grid(its),
          cells(static_cast<std::size_t>(its.columns * its.rows)),
          weights(cells.size()) {}

    void draw(int column, int row, Colour colour, int weight);
    /// The cells as they fit into that many columns and rows, at least one and at most those of the
    /// grid. Each cell lies in one place of these; of the drawn ones in a place the heaviest is
    /// shown, of equals the last.
    std::vector<std::uint32_t> shrunk(int columns, int rows) const;
    /// Removes the cells that lie wholly inside a box; returns whether any cell is left.
    bool eraseWithin(float x1, float y1, float x2, float y2);

    CellGrid grid;
    std::vector<std::uint32_t> cells;
    std::vector<int> weights;  ///< of the cells, where one was drawn

 private:
    int drawn_ = 0;  ///< cells that are not 0
};

}  // namespace display
