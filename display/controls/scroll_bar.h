// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "display/controls/control_kind.h"

namespace display {

/// A scroll bar. The value is clamped to its range; assigning another value fires onChange. While
/// the user drags the thumb, `thumb` moves and onScroll fires; the value follows when the thumb is
/// released.
class ScrollBar final : public KindOf<ScrollBar> {
 public:
    using KindOf::KindOf;
    bool interactive() const override { return true; }

    Firing<ScrollBar, int> value{*this};

    void range(int lowest, int highest, int page);
    /// The user drags the thumb to a position, or lets it go.
    void drag(int position);
    void dropThumb();
    /// Ends a drag without taking its position: the thumb goes back to the value.
    void loseThumb();

    Property<int> minimum{*this, 0}, maximum{*this, 100};
    Property<int> pageStep{*this, 10};
    Property<int> thumb{*this, 0};
    Property<bool> dragging{*this, false};
    Property<bool> vertical{*this, false};

    Event onChange, onScroll;

    template <class Each>
    void forEachProperty(Each each) {
        each("minimum", minimum), each("maximum", maximum), each("pageStep", pageStep);
        each("dragging", dragging), each("thumb", thumb), each("value", value);
        each("vertical", vertical);
    }

 private:
    friend Firing<ScrollBar, int>;
    void take(int wanted);
    int clamped(int wanted) const;
};

}  // namespace display
