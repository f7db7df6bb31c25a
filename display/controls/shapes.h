// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "display/controls/control_kind.h"

namespace display {

/// How the ends of a line look.
enum class Stroke { Plain, Round, Segment };

/// A straight line between two points, in the units of its container.
class Line final : public KindOf<Line> {
 public:
    using KindOf::KindOf;

    /// The smallest box around both ends.
    Box boxInContainer() const override;

    void from(float x, float y) { x1 = x, y1 = y; }
    void to(float x, float y) { x2 = x, y2 = y; }

    Property<float> x1{*this}, y1{*this}, x2{*this}, y2{*this};
    Property<Colour> colour{*this, kWhite};
    /// Thickness in units of 15 twips.
    Property<float> thickness{*this, 1};
    Property<Stroke> stroke{*this, Stroke::Plain};

    template <class Each>
    void forEachProperty(Each each) {
        each("x1", x1), each("y1", y1), each("x2", x2), each("y2", y2);
        each("colour", colour), each("thickness", thickness), each("stroke", stroke);
    }
};

enum class Outline { Rectangle, Rounded, Oval };

/// A filled rectangle or oval in its box.
class Shape final : public KindOf<Shape> {
 public:
    using KindOf::KindOf;

    Property<Outline> outline{*this, Outline::Rectangle};
    Property<Colour> colour{*this, kBlack};
    /// The colour at the left edge; equal to `colour` for a plain fill.
    Property<Colour> fadesFrom{*this, kBlack};

    template <class Each>
    void forEachProperty(Each each) {
        each("outline", outline), each("colour", colour), each("fadesFrom", fadesFrom);
    }
};

}  // namespace display
