// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QWidget>
#include <memory>
#include <string>
#include <string_view>

#include "display/control.h"

namespace display::qt {

class QtDesktop;

/// The Qt widget of an interactive control: it gets the pointer, the keyboard and the focus.
class ControlWidget {
 public:
    virtual ~ControlWidget() = default;
    virtual QWidget& widget() = 0;
    /// Copies the control's state into the widget after a change.
    virtual void sync() = 0;
    /// The part of the control's box that the widget covers.
    virtual QRect within(const QRect& box) const { return box; }
};

/// Converts between UTF-8 and QString.
inline QString qText(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
/// Escapes ampersands for widgets that take one for the mark of an access key.
inline QString plainWords(std::string_view text) {
    return qText(text).replace(QLatin1Char('&'), QLatin1String("&&"));
}
inline std::string utf8(const QString& text) {
    const QByteArray bytes = text.toUtf8();
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

}  // namespace display::qt
