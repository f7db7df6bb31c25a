// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "display/controls/appearance.h"
#include "display/controls/control_kind.h"

namespace display {

/// One line of text that the user may edit.
class TextField final : public KindOf<TextField> {
 public:
    using KindOf::KindOf;
    bool interactive() const override { return true; }

    /// Sets the text as typing does: fires onChange if it differs.
    void edit(std::string_view text);

    /// Selects the whole text, so that the next typed character takes its place.
    void selectAll();
    /// True from selectAll() until the text changes.
    bool allSelected() const { return allSelected_; }

    /// Assigned by code; fires onChange when it differs, as typing does.
    class Value {
     public:
        explicit Value(TextField& field) : field_(field), text_(field) {}
        Value(const Value&) = delete;
        Value& operator=(const Value&) = delete;
        Value& operator=(std::string_view text) {
            field_.edit(text);
            return *this;
        }
        operator std::string_view() const { return text_; }
        const std::string& get() const { return text_.get(); }
        bool empty() const { return text_.empty(); }
        /// Fires nothing.
        void reset();
        friend bool operator==(const Value& a, std::string_view b) { return a.text_ == b; }

     private:
        friend class TextField;
        TextField& field_;
        Text text_;
    } text{*this};

    /// Counts the calls of selectAll(): a display that has seen fewer selects the text again.
    Property<int> selections{*this, 0};
    Property<bool> locked{*this, false};
    Property<int> maxLength{*this, 0};  ///< characters; 0 for no limit
    Property<Align> align{*this, Align::Left};
    Property<Colour> colour{*this, kWhite};
    Property<Font> font{*this};

    Event onChange;
    /// Filters each typed character: returns the character to insert, 0 to drop it.
    std::function<char32_t(char32_t)> onTyped;
    Event onEnter;

    template <class Each>
    void forEachProperty(Each each) {
        each("text", text), each("locked", locked), each("maxLength", maxLength);
        each("align", align), each("colour", colour), each("font", font);
    }

 private:
    bool allSelected_ = false;
};

}  // namespace display
