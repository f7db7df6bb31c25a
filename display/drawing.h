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
    /// Increases over the life of the drawing; the number of a map also increases with each of its
    /// cells.
    std::uint64_t number = 0;
};

/// The canvas of a picture box. It keeps the marks that are visible, in order: a box drops every
/// mark that it covers wholly, a stroke or a text replaces the same one before it, and the cells of
/// a map are one mark. So an hour of redraws, whole or small, does not make it grow.
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
    /// Clears it and resets the pens, but keeps the scale.
    void reset();

    /// Copies scale and marks of another drawing; later changes of that one do not show here.
    void take(const Drawing& other);

    const std::vector<Mark>& marks() const { return marks_; }
    /// Increases whenever marks were dropped: the screen then has to paint the whole drawing again.
    std::uint64_t rebuilt() const { return rebuilt_; }

 private:
    /// The common bounds of consecutive marks, by which a box sees that it covers none of them.
    struct Run {
        float latestLeft = 0;
        float earliestRight = 0;
    };

    void add(Mark mark);
    void noteInRun(std::size_t index);
    void dropCovered(const Mark& box);
    /// Drops an equal text or stroke that is already there.
    void dropSame(const Mark& drawn);
    bool coversAll(const Mark& box) const;
    void wipe();
    /// The map of that grid to which a cell may be added: no later mark overlaps the cell. Null if
    /// there is none.
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
