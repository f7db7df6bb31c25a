// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "display/controls/control_kind.h"

namespace display {

/// A push key with a caption; & marks its letter. press() runs its click as a program does it.
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
    /// Enter presses the default key of a form, Escape the one that loses least.
    bool isDefault = false;
    bool isCancel = false;
    /// Keys that press it wherever the keyboard is in its window, such as "Ctrl+X".
    std::string_view shortcut;

    Event onClick;

    template <class Each>
    void forEachProperty(Each each) {
        each("caption", caption), each("colour", colour), each("lit", lit);
        each("isDefault", isDefault), each("isCancel", isCancel), each("shortcut", shortcut);
    }
};

/// A box that is checked or not. Assigning another value fires onClick, as a hand does.
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

/// One of a group (the options of one container): choosing it clears the others.
class Option final : public KindOf<Option> {
 public:
    using KindOf::KindOf;
    bool interactive() const override { return true; }

    /// Chooses it, by hand or by code; fires onClick if it was not chosen.
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
