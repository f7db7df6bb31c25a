// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

namespace display::qt {

/// Knows whether a person uses the keyboard: keys wear the focus ring from the first key typed on,
/// until the pointer is pressed again.
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
