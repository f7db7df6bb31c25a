// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAccessible>
#include <QTimer>
#include <memory>
#include <set>
#include <vector>

#include "display/control.h"

namespace display::qt {

class FormView;

/// What a screen reader finds of what a form's surface paints: each label, and each other control
/// that has a reading, with its name; the measured ones with their value too. Changes are told at
/// most twice a second.
class AccessibleLabels {
 public:
    explicit AccessibleLabels(FormView& view);
    ~AccessibleLabels();
    AccessibleLabels(const AccessibleLabels&) = delete;
    AccessibleLabels& operator=(const AccessibleLabels&) = delete;

    int count() const { return static_cast<int>(ids_.size()); }
    QAccessibleInterface* at(int index) const;
    int indexOf(const QAccessibleInterface* child) const;

    /// A control of the form shows something else than before.
    void changed(const Control& control);

    /// How often changes were told.
    int announcements() const { return announcements_; }

    /// Makes forms findable for assistive tools; once, when the desktop starts.
    static void install();

 private:
    void announce();

    std::vector<const Control*> controls_;
    std::vector<QAccessible::Id> ids_;
    std::set<int> toAnnounce_;
    QTimer timer_;
    int announcements_ = 0;
};

}  // namespace display::qt
