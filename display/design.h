// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

#include "display/controls/appearance.h"
#include "display/controls/buttons.h"
#include "display/controls/containers.h"
#include "display/controls/labels.h"
#include "display/controls/shapes.h"

// A layout has one row for each control: place(control, box, what else it is given, in any order).
// A control is given only what its kind has: anything else does not compile.
namespace display {

/// The look of all texts of one sort. A layout gives the style a name.
struct TextStyle {
    Font font;
    Colour colour = kWhite;
    Align align = Align::Left;
    Surface surface = Surface::None;

    constexpr TextStyle in(Colour other) const { return {font, other, align, surface}; }
    constexpr TextStyle centred() const { return {font, colour, Align::Centre, surface}; }
    constexpr TextStyle right() const { return {font, colour, Align::Right, surface}; }
};

/// The look of all lines of one sort.
struct LineStyle {
    Colour colour = kWhite;
    float thickness = 1;  ///< in units of 15 twips
    Stroke stroke = Stroke::Plain;
};

/// The fill of a shape; with one colour it is plain.
struct Fill {
    Colour colour;
    Colour fadesFrom = colour;
    Outline outline = Outline::Rectangle;
};

/// The accessible name, the tool tip, or one text for both.
struct Says {
    Words words;
};
struct Tip {
    Words words;
};
struct SaysAndTip {
    Words words;
};
/// Makes a label show a measured value. The words are its accessible name, where its caption is
/// none.
struct Readout {
    Words words{};
};

/// Words on a control that shows a picture, in the language of the form.
struct Caption {
    constexpr explicit Caption(const char* any) : words{any, any} {}
    constexpr explicit Caption(const char* spanish, const char* english)
        : words{spanish, english} {}
    constexpr explicit Caption(const Words& both) : words(both) {}
    Words words;
};

/// Enter presses the default key of a form, Escape the cancel key.
enum class Role { Default, Cancel };

/// Hidden when the form is loaded.
struct Hidden {};

inline void give(Control& control, Panel* in) {
    control.container = in;
}
/// Sets the name of a picture, or the caption of any other control.
template <class C>
void give(C& control, std::string_view shown) {
    if constexpr (requires { control.picture; }) {
        control.picture = shown;
    } else {
        control.caption = shown;
    }
}
/// The same in the language of the form.
template <class C>
void give(C& control, const Words& shown) {
    give(control, wordsIn(control.form().language, shown));
}
template <class C>
void give(C& control, const Caption& caption) {
    control.caption = wordsIn(control.form().language, caption.words);
}
template <class C>
void give(C& control, const TextStyle& style) {
    control.font = style.font;
    control.colour = style.colour;
    control.align = style.align;
    if constexpr (requires { control.surface; }) control.surface = style.surface;
}
inline void give(Line& line, const LineStyle& style) {
    line.colour = style.colour;
    line.thickness = style.thickness;
    line.stroke = style.stroke;
}
inline void give(Shape& shape, const Fill& fill) {
    shape.colour = fill.colour;
    shape.fadesFrom = fill.fadesFrom;
    shape.outline = fill.outline;
}
template <class C>
void give(C& control, Surface surface) {
    control.surface = surface;
}
inline void give(Control& control, const Says& says) {
    control.says = says.words;
}
inline void give(Control& control, const Tip& tip) {
    control.tip = tip.words;
}
inline void give(Control& control, const SaysAndTip& both) {
    control.says = both.words;
    control.tip = both.words;
}
inline void give(Label& label, const Readout& readout) {
    label.says = readout.words;
    label.readout = true;
}
inline void give(Key& key, Role role) {
    (role == Role::Default ? key.isDefault : key.isCancel) = true;
}
inline void give(Control& control, Hidden) {
    control.visible = false;
}

/// Lays out one control: its place in the units of its container, and its other design values.
template <class C, class... Given>
C& place(C& control, const Box& box, const Given&... given) {
    control.left = box.left;
    control.top = box.top;
    control.width = box.width;
    control.height = box.height;
    ++control.timesPlaced;
    (give(control, given), ...);
    return control;
}
/// Lays out one line by its two ends.
template <class... Given>
Line& place(Line& line, float x1, float y1, float x2, float y2, const Given&... given) {
    line.from(x1, y1);
    line.to(x2, y2);
    ++line.timesPlaced;
    (give(line, given), ...);
    return line;
}

inline void tabAfter(int& last, Control& control) {
    control.tabIndex = ++last;
}
template <class Elements>
requires requires(Elements& elements) {
    elements.begin();
}
void tabAfter(int& last, Elements& elements) {
    for (Control& element : elements) tabAfter(last, element);
}
/// The Tab order of a form, from the first control on; a family stands for all its elements.
template <class... Controls>
void tabOrder(Controls&... controls) {
    int last = 0;
    (tabAfter(last, controls), ...);
}

}  // namespace display
