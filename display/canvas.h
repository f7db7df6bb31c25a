// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

#include "display/colour.h"

namespace display {

/// The small equal boxes of a map: cell (0, 0) has its upper left corner there, the others follow
/// in steps of the pitches.
struct CellGrid {
    float left = 0, top = 0;
    float pitchX = 1, pitchY = 1;
    int columns = 0, rows = 0;
    friend bool operator==(const CellGrid&, const CellGrid&) = default;
};

/// The drawing operations that a surface offers; the screen, paper and the test recorder each
/// implement them. Coordinates are floating-point units of the canvas's own scale, y downward.
/// Boxes include both corners, so that a box of no width is one column of pixels.
class Canvas {
 public:
    virtual ~Canvas() = default;

    /// The outer size with the frame, and the inner size without it, in units of the scale.
    virtual float outerWidth() const = 0;
    virtual float outerHeight() const = 0;
    virtual float scaleWidth() const = 0;
    virtual float scaleHeight() const = 0;

    virtual void box(float x1, float y1, float x2, float y2) = 0;
    virtual void line(float x1, float y1, float x2, float y2) = 0;
    /// Draws one cell of a map in the foreground colour. The default draws a box of no width and
    /// four fifths of the pitch high; a canvas that keeps its marks may instead store all cells of
    /// a grid as one picture, in which the cells touch each other.
    virtual void cell(const CellGrid& grid, int column, int row) {
        constexpr float kShare = 0.8f;
        const float x = grid.left + grid.pitchX * static_cast<float>(column);
        const auto y = static_cast<float>(row);
        box(x, grid.pitchY * y + grid.top, x, grid.top + grid.pitchY * (y + kShare));
    }
    /// Prints at (textX, textY), the upper left corner of the text.
    virtual void print(std::string_view text) = 0;

    Colour foreground = kBlack;
    /// Of cells that share a pixel where a map has more cells than pixels, the heaviest is shown.
    int cellWeight = 0;
    float textX = 0;
    float textY = 0;
    bool bold = false;
    std::string_view fontName = "MS Sans Serif";
    float fontPoints = 8.25f;
    int lineWidth = 1;
};

}  // namespace display
