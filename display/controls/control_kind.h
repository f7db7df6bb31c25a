// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "display/control.h"

namespace display {

/// A value whose assignment acts like the user's own input: the control decides what to make of it
/// and fires its event.
template <class Owner, class T>
class Firing {
 public:
    explicit Firing(Owner& owner) : owner_(owner), value_(owner) {}
    Firing(const Firing&) = delete;
    Firing& operator=(const Firing&) = delete;
    Firing& operator=(T wanted) {
        owner_.take(wanted);
        return *this;
    }
    operator T() const { return value_; }
    /// Fires nothing.
    void reset() { value_.reset(); }

 private:
    friend Owner;
    Owner& owner_;
    Property<T> value_;
};

/// Base of each kind of control. A kind lists its own properties once, in forEachProperty; loading
/// a form resets them by that list, and tests read it.
template <class Kind>
class KindOf : public Control {
 public:
    using Control::Control;
    void accept(ControlVisitor& visitor) final;

 protected:
    void resetKind() override;
};

}  // namespace display
