// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFont>
#include <QString>

#include "display/controls/appearance.h"

namespace display::qt {

/// The fonts of the panels, loaded from their files. Needs a QGuiApplication.
class Fonts {
 public:
    /// Looks for the B612 files beside the program and in the system's font folders. Without them
    /// it uses the system's sans serif and writes one sentence to standard error.
    static const Fonts& get();

    /// A font of that height in logical pixels.
    QFont font(qreal pixels, Weight weight, bool spaced = false) const;

    /// The fixed-pitch font of that height.
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
