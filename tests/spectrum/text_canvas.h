// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "display/canvas.h"

namespace hmonitor::test {

/// A canvas that writes down what is drawn on it, one line a mark, so that a drawing can be read
/// and compared: "box ffffff 0.00 0.00 9600.00 6300.00", "text 000000 bold 40.00 60.00 |dB|".
class TextCanvas final : public display::Canvas {
 public:
    TextCanvas(float width, float height, float frame = 0)
        : width_(width), height_(height), frame_(frame) {}

    float outerWidth() const override { return width_; }
    float outerHeight() const override { return height_; }
    float scaleWidth() const override { return width_ - 2 * frame_; }
    float scaleHeight() const override { return height_ - 2 * frame_; }
    void box(float x1, float y1, float x2, float y2) override;
    void line(float x1, float y1, float x2, float y2) override;
    void print(std::string_view text) override;

    std::vector<std::string> marks;

    /// The marks that begin with a text, in order.
    std::vector<std::string> startingWith(std::string_view start) const;
    /// Only the texts, in order.
    std::vector<std::string> texts() const;
    std::string all() const;

 private:
    float width_;
    float height_;
    float frame_;
    std::vector<std::string> texts_;
};

}  // namespace hmonitor::test
