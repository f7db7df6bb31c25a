// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

#include "display/form.h"

namespace display {

/// What a person does with pointer and keyboard, for whoever stands before the screen: the Qt
/// desktop translates raw input into these calls, tests make them directly. Each posts one input;
/// the queue decides whether it comes through.
class Hand {
 public:
    explicit Hand(Desktop& desktop) : desktop_(desktop) {}

    // Keys made of pictures.
    void press(Picture& key);
    void release(Picture& key);
    void cancel(Picture& key);
    void click(Picture& key);
    void doubleClick(Control& control);

    // Handles: panels and pictures that a window is moved by.
    void mouseDown(Control& handle, Mouse at);
    void mouseMove(Control& handle, Mouse at);
    void mouseUp(Control& handle, Mouse at);

    void click(Key& key);
    void check(CheckBox& box, bool on);
    void choose(Option& option);
    void choose(Tabs& tabs, int tab);
    void select(ComboBox& box, int row);
    void select(ListBox& box, int row);

    /// Types characters one by one at the end, each through the field's own filter.
    void type(TextField& field, std::string_view characters);
    /// Replaces the text of the field, as an edit or a paste does.
    void edit(TextField& field, std::string_view text);
    void enter(TextField& field);

    void scroll(ScrollBar& bar, int steps);
    void page(ScrollBar& bar, int pages);
    void set(ScrollBar& bar, int value);
    void drag(ScrollBar& bar, int position);
    void drop(ScrollBar& bar);

    // The window itself.
    void enter(Form& form);
    void escape(Form& form);
    void close(Form& form);
    void unfold(Form& form);
    void help(Form& form);

 private:
    void post(Control& control, std::function<void()> act);
    void post(Form& form, std::function<void()> act);
    Desktop& desktop_;
};

}  // namespace display
