// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

#include "display/drawing.h"

namespace hmonitor {

/// The canvas of a picture whose axis has more labels than there is room for: a text that would
/// touch the one before it on the same line is left out, and all are set at one size. Everything
/// else goes to the drawing as it comes.
class SparseLabels final : public display::Canvas {
 public:
    SparseLabels(display::Drawing& drawing, float points) : drawing_(drawing), points_(points) {}

    float outerWidth() const override { return drawing_.outerWidth(); }
    float outerHeight() const override { return drawing_.outerHeight(); }
    float scaleWidth() const override { return drawing_.scaleWidth(); }
    float scaleHeight() const override { return drawing_.scaleHeight(); }
    void box(float x1, float y1, float x2, float y2) override;
    void line(float x1, float y1, float x2, float y2) override;
    void print(std::string_view text) override;
    void cell(const display::CellGrid& grid, int column, int row) override;

 private:
    void takePens();

    display::Drawing& drawing_;
    float points_;
    float lastY_ = -1;
    float lastEnd_ = 0;
};

}  // namespace hmonitor
