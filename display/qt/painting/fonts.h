// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFont>
#include <QString>

#include "display/controls/appearance.h"

namespace display::qt {

/// The typeface of the panels, loaded from its files. Needs a QGuiApplication.
class Fonts {
 public:
    /// Looks for the files of B612 beside the program and where systems keep fonts. Without them
    /// the system's sans serif stands in, and one sentence on standard error says so.
    static const Fonts& get();

    /// A font of that height in logical pixels.
    QFont font(qreal pixels, Weight weight, bool spaced = false) const;

    /// The same letters, each as wide as the others.
    QFont fixedFont(qreal pixels) const;

    const QString& family() const { return family_; }
    bool found() const { return found_; }

 private:
    Fonts();
    QString family_;
    QString fixedFamily_;
    bool found_ = false;
};

}  // namespace display::qt
