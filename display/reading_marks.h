// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "display/control.h"
#include "display/number_table.h"

namespace display {

/// Two marks by which a reader takes numbers off a drawing: one that follows the pointer or the
/// arrow keys, and a fixed one from which the difference is told. They know the drawing by its
/// numbers alone (`Control::numbers`) and change nothing of it. Places are in the units of the
/// drawing's container, from its upper left corner.
class ReadingMarks {
 public:
    explicit ReadingMarks(const Control& drawing) : drawing_(drawing) {}

    enum class Step { Left, Right, Up, Down, FarLeft, FarRight, First, Last };

    /// Whether there is a number to be read.
    bool any();

    /// Goes to the nearest number, first by its distance sideways.
    void point(Place at);
    /// Goes one number on, or ten with a far step; Up and Down go between numbers above one
    /// another. Without a mark, to the first number. False if there is no number in that direction.
    bool step(Step step);
    /// Fixes a second mark where the moving one stands; removes it where it already stands there.
    void fix();
    /// Takes the moving mark away; the fixed one stays.
    void leave() { at_.reset(); }
    void clear();
    /// Whether a mark was put, even if its number is gone by now.
    bool placed() const { return at_ || fixed_; }

    /// The places of the marks; none without a mark, or if its number is gone.
    std::optional<Place> at();
    std::optional<Place> fixedAt();
    /// The row of the moving mark in the table.
    std::optional<std::size_t> row();
    /// The table's numbers of both marks and their difference, a line each; empty without a moving
    /// mark.
    std::vector<std::string> lines();

 private:
    using Spot = NumberTable::Spot;
    void refresh();
    Place placeOf(const Spot& spot) const { return drawing_.placeOf(spot.x, spot.y); }
    /// The spot of a mark in the table as it is now. If a drawing goes on, its marks stay at the
    /// same place sideways and in the same column.
    const Spot* spotOf(const std::optional<Spot>& mark) const;
    std::optional<Place> shown(const std::optional<Spot>& mark);
    const Spot* beside(const Spot& from, bool toTheRight) const;
    const Spot* over(const Spot& from, bool upward) const;
    const Spot* outermost(bool last) const;
    bool go(const Spot* to);

    const Control& drawing_;
    NumberTable table_;
    std::optional<std::uint64_t> read_;  ///< revision of the drawing whose numbers these are
    std::optional<Spot> at_, fixed_;
};

}  // namespace display
