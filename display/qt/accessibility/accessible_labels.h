// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAccessible>
#include <QString>
#include <QTimer>
#include <QWidget>
#include <memory>
#include <set>
#include <vector>

#include "display/control.h"

namespace display::qt {

class FormView;

/// What a form is called by assistive tools: its title, else the first words that it shows.
QString spokenName(const Form& form);

/// Lets a screen reader say what stands at the mark of a drawing, which its description tells: the
/// keyboard has moved it.
void tellMark(QWidget& drawing);

/// Exposes the painted controls of a form to assistive tools: each label, and each other control
/// that has a reading, with its name; measured ones also with their value. Changes are announced at
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

    /// Notes that a control of the form changed; the change is announced soon.
    void changed(const Control& control);

    /// How often changes were announced.
    int announcements() const { return announcements_; }

    /// Registers the interfaces of forms, options and drawings with Qt. Called once, when the
    /// desktop starts.
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
