// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "display/canvas.h"
#include "display/cell_map.h"
#include "display/control.h"

namespace display {

/// One mark of a drawing, in units of its scale.
struct Mark {
    enum class Kind : std::uint8_t { Filled, Stroke, Print, Cells };
    Kind kind = Kind::Filled;
    bool bold = false;
    int lineWidth = 1;
    Colour colour;
    float x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    float points = 0;
    std::string text;
    std::shared_ptr<CellMap> map;
    /// Counts up over the life of the drawing; that of a map also with each of its cells.
    std::uint64_t number = 0;
};

/// The canvas of a picture box: it keeps what it shows, in order, and no more. A box drops every
/// mark that it covers whole, a stroke or a text the same one before it, and the cells of a map are
/// one mark, so that an hour of redraws, whole or small, does not grow.
class Drawing final : public Canvas {
 public:
    explicit Drawing(Control& owner) : owner_(owner) {}

    float outerWidth() const override { return owner_.width / unit_; }
    float outerHeight() const override { return owner_.height / unit_; }
    float scaleWidth() const override { return outerWidth() - 2 * frame_; }
    float scaleHeight() const override { return outerHeight() - 2 * frame_; }

    void box(float x1, float y1, float x2, float y2) override;
    void line(float x1, float y1, float x2, float y2) override;
    void cell(const CellGrid& grid, int column, int row) override;
    void print(std::string_view text) override;

    /// Twips for one unit, and the frame's thickness in units.
    void scale(float unit, float frame);
    float unit() const { return unit_; }
    void clear();
    /// Clears it and puts the pens back, as before the first mark; the scale stays.
    void reset();

    /// Takes over scale and marks of another drawing, as a picture of it that stays as it is.
    void take(const Drawing& other);

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
    /// A text or a stroke that is drawn over itself stands there once.
    void dropSame(const Mark& drawn);
    bool coversAll(const Mark& box) const;
    void wipe();
    /// The map of that grid in which a cell may be drawn now: nothing that came later overlaps it.
    Mark* openMap(const CellGrid& grid, int column, int row);
    void eraseCells(const Mark& box);
    template <class Gone>
    void dropFrom(std::size_t first, Gone gone);

    Control& owner_;
    float unit_ = 1;
    float frame_ = 0;
    std::vector<Mark> marks_;
    std::vector<Run> runs_;
    std::size_t maps_ = 0;  ///< marks that are maps
    std::uint64_t next_ = 1;
    std::uint64_t rebuilt_ = 0;
};

}  // namespace display
