// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <functional>
#include <string_view>

#include "display/controls/lists.h"
#include "display/controls/pictures.h"
#include "display/controls/scroll_bar.h"
#include "display/controls/text_field.h"
#include "display/form.h"

namespace display {

class Plot;
enum class PlotKey;

/// A range of characters of a text, counted from 0: from the first to just before the second.
struct Span {
    std::size_t from = 0;
    std::size_t to = 0;
};

/// The user's input: what is done with pointer and keyboard. The Qt desktop translates raw events
/// into these calls, tests make them directly. Each call posts one input; the queue decides when it
/// is delivered.
class Hand {
 public:
    explicit Hand(Desktop& desktop) : desktop_(desktop) {}

    // Buttons that are pictures.
    void press(Picture& key);
    void release(Picture& key);
    void cancel(Picture& key);
    void click(Picture& key);
    void doubleClick(Control& control);

    // Handles: panels and pictures by which a window is moved.
    void mouseDown(Control& handle, Mouse at);
    void mouseMove(Control& handle, Mouse at);
    void mouseUp(Control& handle, Mouse at);
    /// The same with the position computed at delivery: until then the handle may have moved with
    /// its window.
    using Pointer = std::function<Mouse()>;
    void mouseDown(Control& handle, Pointer at);
    void mouseMove(Control& handle, Pointer at);
    void mouseUp(Control& handle, Pointer at);

    void click(Key& key);
    void check(CheckBox& box, bool on);
    void choose(Option& option);
    void choose(Tabs& tabs, int tab);
    void select(ComboBox& box, int row);
    void select(ListBox& box, int row);

    /// Types characters one by one at the end, or in place of a wholly selected text, each through
    /// the field's filter.
    void type(TextField& field, std::string_view characters);
    /// Replaces the span by typed or pasted characters, each through the field's filter; an empty
    /// text just deletes the span.
    void type(TextField& field, std::string_view characters, Span replaced);
    /// Replaces the text of the field, as an edit does.
    void edit(TextField& field, std::string_view text);
    void enter(TextField& field);

    void scroll(ScrollBar& bar, int steps);
    void page(ScrollBar& bar, int pages);
    void set(ScrollBar& bar, int value);
    void drag(ScrollBar& bar, int position);
    void drop(ScrollBar& bar);

    // Plots. Shares are of the shown range, 0 at its left end.
    void zoom(Plot& plot, double by, double at);
    void shift(Plot& plot, double share);
    void point(Plot& plot, std::size_t mark, double share);
    void press(Plot& plot, PlotKey key);

    // Actions on the window itself.
    void enter(Form& form);
    /// Presses the button that has this shortcut.
    void shortcut(Form& form, std::string_view keys);
    void escape(Form& form);
    void close(Form& form);
    void unfold(Form& form);
    void help(Form& form);
    void digit(Form& form, DigitKey key);

    // Drawings; see drawing_export.h.
    void copyPicture(Control& drawing);
    void copyNumbers(Control& drawing);
    void save(Control& drawing);
    /// Picks a number of the drawing by its row in the table.
    void pick(Control& drawing, std::size_t row);

 private:
    void post(Control& control, std::function<void()> act);
    void post(Form& form, std::function<void()> act);
    Desktop& desktop_;
};

}  // namespace display
