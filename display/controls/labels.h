// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "display/controls/appearance.h"
#include "display/controls/control_kind.h"

namespace display {

/// A text. It is painted and never takes the focus.
class Label final : public KindOf<Label> {
 public:
    using KindOf::KindOf;

    Text caption{*this};
    Property<Colour> colour{*this, kWhite};
    Property<Font> font{*this};
    Property<Align> align{*this, Align::Left};
    /// Painted behind the text.
    Property<Surface> surface{*this, Surface::None};
    Property<bool> wraps{*this, false};
    /// Shows a measured value: a screen reader gets the value, too, at most twice a second.
    bool readout = false;

    template <class Each>
    void forEachProperty(Each each) {
        each("caption", caption), each("colour", colour), each("font", font);
        each("align", align), each("surface", surface), each("wraps", wraps);
        each("readout", readout);
    }
};

}  // namespace display
