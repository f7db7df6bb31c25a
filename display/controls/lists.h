// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "display/controls/control_kind.h"

namespace display {

/// The rows of a combo or list box and the selected one (-1: none).
class ListModel {
 public:
    explicit ListModel(Revised& owner) : owner_(owner) {}
    void clear();
    void reset() { clear(); }
    void add(std::string_view row);
    const std::vector<std::string>& rows() const { return rows_; }
    int selected() const { return selected_; }
    std::string_view text() const;
    bool setSelected(int row);  ///< true when it changed

 private:
    Revised& owner_;
    std::vector<std::string> rows_;
    int selected_ = -1;
};

/// A list that opens when clicked; select() fires onClick, for a click as for code. -1 leaves no
/// row selected, and that is no click.
class ComboBox final : public KindOf<ComboBox> {
 public:
    using KindOf::KindOf;
    bool interactive() const override { return true; }
    void select(int row);

    ListModel list{*this};
    /// Choosing the row that is already chosen fires onClick too.
    bool firesAgain = false;
    Event onClick;

    template <class Each>
    void forEachProperty(Each each) {
        each("list", list), each("firesAgain", firesAgain);
    }
};

/// A list that is always open; select() as a ComboBox has it.
class ListBox final : public KindOf<ListBox> {
 public:
    using KindOf::KindOf;
    bool interactive() const override { return true; }
    void select(int row);

    ListModel list{*this};
    /// Uses a fixed-pitch font, so that columns separated by blanks line up.
    Property<bool> fixedPitch{*this, false};
    Event onClick, onDoubleClick;

    template <class Each>
    void forEachProperty(Each each) {
        each("list", list), each("fixedPitch", fixedPitch);
    }
};

}  // namespace display
