// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

#include "display/controls/control_kind.h"

namespace display {

/// A push button with a caption; & marks its access key. press() clicks it from code.
class Key final : public KindOf<Key> {
 public:
    using KindOf::KindOf;
    bool interactive() const override { return true; }
    void press() {
        if (onClick) onClick();
    }

    Text caption{*this};
    Property<Colour> colour{*this, kWhite};
    Property<bool> lit{*this, false};
    /// Enter presses the default key of a form; Escape presses the cancel key, the one that loses
    /// least.
    bool isDefault = false;
    bool isCancel = false;
    /// Keyboard shortcut that presses it wherever the focus is in its window, such as "Ctrl+X".
    std::string_view shortcut;

    Event onClick;

    template <class Each>
    void forEachProperty(Each each) {
        each("caption", caption), each("colour", colour), each("lit", lit);
        each("isDefault", isDefault), each("isCancel", isCancel), each("shortcut", shortcut);
    }
};

/// A box that is checked or not. Assigning another value fires onClick, just as a click does.
class CheckBox final : public KindOf<CheckBox> {
 public:
    using KindOf::KindOf;
    bool interactive() const override { return true; }

    Firing<CheckBox, bool> checked{*this};

    Text caption{*this};
    Event onClick;

    template <class Each>
    void forEachProperty(Each each) {
        each("checked", checked), each("caption", caption);
    }

 private:
    friend Firing<CheckBox, bool>;
    void take(bool on);
};

/// A radio button. The options in one container are a group: choosing one clears the others.
class Option final : public KindOf<Option> {
 public:
    using KindOf::KindOf;
    bool interactive() const override { return true; }

    /// Chooses it, for a click as for code; fires onClick if it was not chosen.
    void choose();

    Property<bool> chosen{*this, false};
    Text caption{*this};
    Event onClick;

    template <class Each>
    void forEachProperty(Each each) {
        each("chosen", chosen), each("caption", caption);
    }
};

}  // namespace display
