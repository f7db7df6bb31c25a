// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/cell_map.h"

#include <algorithm>
#include <cmath>

namespace display {

void CellMap::draw(int column, int row, Colour colour, int weight) {
    constexpr std::uint32_t kOpaque = 0xff000000;
    const auto at = static_cast<std::size_t>(row * grid.columns + column);
    std::uint32_t& cell = cells[at];
    weights[at] = weight;
    drawn_ += cell == 0;
    cell = kOpaque | static_cast<std::uint32_t>(colour.red()) << 16 |
           static_cast<std::uint32_t>(colour.green()) << 8 |
           static_cast<std::uint32_t>(colour.blue());
}

std::vector<std::uint32_t> CellMap::shrunk(int columns, int rows) const {
    const auto places = static_cast<std::size_t>(columns * rows);
    std::vector<std::uint32_t> shown(places);
    std::vector<int> heaviest(places);
    std::size_t at = 0;
    for (int row = 0; row < grid.rows; ++row) {
        const int line = row * rows / grid.rows * columns;
        for (int column = 0; column < grid.columns; ++column, ++at) {
            if (cells[at] == 0) continue;
            const auto place = static_cast<std::size_t>(line + column * columns / grid.columns);
            if (shown[place] != 0 && heaviest[place] > weights[at]) continue;
            shown[place] = cells[at];
            heaviest[place] = weights[at];
        }
    }
    return shown;
}

bool CellMap::eraseWithin(float x1, float y1, float x2, float y2) {
    // The first cell that begins inside the box, and the one after the last cell that ends inside
    // it.
    const auto first = [](float from, float start, float pitch, int count) {
        return std::clamp(static_cast<int>(std::ceil((from - start) / pitch)), 0, count);
    };
    const auto behind = [](float to, float start, float pitch, int count) {
        return std::clamp(static_cast<int>(std::floor((to - start) / pitch)), 0, count);
    };
    const int left = first(x1, grid.left, grid.pitchX, grid.columns);
    const int right = behind(x2, grid.left, grid.pitchX, grid.columns);
    const int top = first(y1, grid.top, grid.pitchY, grid.rows);
    const int bottom = behind(y2, grid.top, grid.pitchY, grid.rows);
    for (int row = top; row < bottom; ++row) {
        for (int column = left; column < right; ++column) {
            std::uint32_t& cell = cells[static_cast<std::size_t>(row * grid.columns + column)];
            drawn_ -= cell != 0;
            cell = 0;
        }
    }
    return drawn_ > 0;
}

}  // namespace display
