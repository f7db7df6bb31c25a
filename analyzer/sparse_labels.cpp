// SPDX-License-Identifier: GPL-3.0-or-later
#include "analyzer/sparse_labels.h"

#include <string_view>

namespace hmonitor {

namespace {

/// Widths of characters, in multiples of the font's height.
constexpr float kFigure = 0.64f;
constexpr float kPoint = 0.3f;
constexpr float kGap = 0.3f;

float widthOf(std::string_view text) {
    float width = 0;
    for (const char c : text) width += c == '.' ? kPoint : c == ' ' ? 0 : kFigure;
    return width;
}

}  // namespace

void SparseLabels::takePens() {
    drawing_.foreground = foreground;
    drawing_.bold = bold;
    drawing_.fontName = fontName;
    drawing_.fontPoints = points_;
    drawing_.lineWidth = lineWidth;
    drawing_.textX = textX;
    drawing_.textY = textY;
}

void SparseLabels::box(float x1, float y1, float x2, float y2) {
    takePens();
    drawing_.box(x1, y1, x2, y2);
}

void SparseLabels::line(float x1, float y1, float x2, float y2) {
    takePens();
    drawing_.line(x1, y1, x2, y2);
}

void SparseLabels::print(std::string_view text) {
    constexpr float kTwipsPerPoint = 20;
    const float height = points_ * kTwipsPerPoint / drawing_.unit();
    if (textY == lastY_ && textX < lastEnd_) return;
    lastY_ = textY;
    lastEnd_ = textX + height * (widthOf(text) + kGap);
    takePens();
    drawing_.print(text);
}

void SparseLabels::cell(const display::CellGrid& grid, int column, int row) {
    // Cells, of which there are tens of thousands, need only these two.
    drawing_.foreground = foreground;
    drawing_.cellWeight = cellWeight;
    drawing_.cell(grid, column, row);
}

}  // namespace hmonitor
