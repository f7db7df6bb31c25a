// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "display/canvas.h"
#include "display/control.h"

namespace display {

/// One mark of a drawing, in units of its scale.
struct Mark {
    enum class Kind : std::uint8_t { Filled, Stroke, Print };
    Kind kind = Kind::Filled;
    bool bold = false;
    int lineWidth = 1;
    Colour colour;
    float x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    float points = 0;
    std::string text;
    std::uint64_t number = 0;  ///< counts up over the life of the drawing
};

/// The canvas of a picture box: it keeps what it shows, in order, and no more. A box drops every
/// mark that it covers whole, so that an hour of redraws does not grow.
class Drawing final : public Canvas {
 public:
    explicit Drawing(Control& owner) : owner_(owner) {}

    float outerWidth() const override { return owner_.width / unit_; }
    float outerHeight() const override { return owner_.height / unit_; }
    float scaleWidth() const override { return outerWidth() - 2 * frame_; }
    float scaleHeight() const override { return outerHeight() - 2 * frame_; }

    void box(float x1, float y1, float x2, float y2) override;
    void line(float x1, float y1, float x2, float y2) override;
    void print(std::string_view text) override;

    /// Twips for one unit, and the frame's thickness in units.
    void scale(float unit, float frame);
    float unit() const { return unit_; }
    void clear();
    /// Clears it and puts the pens back, as before the first mark; the scale stays.
    void reset();

    const std::vector<Mark>& marks() const { return marks_; }
    /// Counts up whenever marks were dropped, so that a screen knows to paint anew.
    std::uint64_t rebuilt() const { return rebuilt_; }

 private:
    /// Marks that follow each other, as far as a box has to know that it covers none of them.
    struct Run {
        float latestLeft = 0;
        float earliestRight = 0;
    };

    void add(Mark mark);
    void noteInRun(std::size_t index);
    void dropCovered(const Mark& box);
    /// A text that is printed over itself stands there once.
    void dropSame(const Mark& print);
    template <class Gone>
    void dropFrom(std::size_t first, Gone gone);

    Control& owner_;
    float unit_ = 1;
    float frame_ = 0;
    std::vector<Mark> marks_;
    std::vector<Run> runs_;
    std::uint64_t next_ = 1;
    std::uint64_t rebuilt_ = 0;
};

}  // namespace display
