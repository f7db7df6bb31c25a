// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

namespace display::qt {

/// Knows whether the user works with the keyboard: focus rings are shown from the first key press
/// until the next press of the pointer.
class KeyboardWatch final : public QObject {
 public:
    KeyboardWatch();
    bool used() const { return used_; }

 protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
    void use(bool keyboard);
    bool used_ = false;
};

}  // namespace display::qt
