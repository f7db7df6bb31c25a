// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string_view>

#include "core/int16.h"
#include "core/small_text.h"
#include "display/canvas.h"
#include "display/control.h"

namespace hmonitor {

/// The kind of axes, and the units of the canvas.
enum class Kind : std::int16_t {
    Bare = 0,      ///< bars alone
    Offset = 1,    ///< kHz around the carrier against dB below it
    Band = 2,      ///< MHz from 88 on against dB over a microvolt
    SmallBand = 3  ///< as Band, on a canvas whose units are 17 times coarser
};

/// The graph of every bar spectrum. It draws a frame on a canvas and then single bars or slivers;
/// it keeps no values. Its owner sets the fields, calls GraphInit, and then GraphLine or GraphPixel
/// as values arrive. Nothing is checked: there must be a canvas, and at least one column and one
/// row.
class Class1 {
 public:
    /// Reads the size of the canvas and draws the empty graph.
    void GraphInit();
    /// Only reads it, for who asks where something stands that was drawn before.
    void takeGeometry();
    /// The middle of the upper end of the bar of GraphLine(x, y), in units of the canvas.
    display::Place topOfBar(int x, Int16 y) const;
    /// The middle of the cell of GraphPixel(x, y).
    display::Place middleOfCell(int x, int y) const;
    /// Draws the empty graph at the size read by GraphInit.
    void GraphClean();
    /// Draws the grid alone.
    void GraphRepaint();
    /// Draws a bar in column x (from 1), from row y below the top down to the foot. y is set to the
    /// bar's size, at most YUnits: the caller's variable changes.
    void GraphLine(Int16 x, Int16& y);
    /// Draws a sliver, 0.8 rows high, at column x and row y (both from 0).
    void GraphPixel(Int16 x, Int16 y, std::int32_t color);

    // Colours are decimal text.
    SmallText TraceColor;  ///< bars
    SmallText BackColor;
    SmallText TextColor;
    SmallText GridColor;
    // Canvas units.
    Int16 TopMargin;     ///< above row 0
    Int16 BottomMargin;  ///< below the bars
    Int16 LeftMargin;    ///< left of column 0
    Int16 YUnits;        ///< rows
    Int16 XColumns;
    Int16 BarGap;      ///< left gap of each bar
    Int16 SkipLabels;  ///< not 0: every second column has a label (kind Offset)
    Int16 XStep;       ///< kHz between columns (kind Offset)
    Kind GraphKind = Kind::Bare;
    display::Canvas* Canvas = nullptr;

 private:
    void fillBack();
    void drawUprights(float top, float bottom, float right);
    void drawBands(int count, float left, float right, float below, float above);
    void drawTicks();
    void drawSmallTicks();
    void labelOffset();
    void labelOffsetLevels();
    void labelOffsetColumns();
    void labelBand();
    void labelSmallBand();
    void labelBandLevels(float lift, float lastLift);
    void labelBandColumns(float left, float y);
    void printAt(float x, float y, std::string_view text);
    void ink(const SmallText& colour);
    int tickStep() const;

    Int16 YPixels;  ///< canvas units for a row
    Int16 XPixels;  ///< canvas units for a column
    Int16 CenterColumn;
    float MhzPerColumn = 0;
};

}  // namespace hmonitor
