// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/palette.h"

namespace display::qt {

QPalette housePalette() {
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(0x20, 0x24, 0x2b));
    palette.setColor(QPalette::WindowText, QColor(kText));
    palette.setColor(QPalette::Base, QColor(kField));
    palette.setColor(QPalette::AlternateBase, QColor(0x16, 0x1b, 0x21));
    palette.setColor(QPalette::Text, QColor(kText));
    palette.setColor(QPalette::PlaceholderText, QColor(kKeyTextOff));
    palette.setColor(QPalette::Button, QColor(0x31, 0x38, 0x42));
    palette.setColor(QPalette::ButtonText, QColor(kText));
    palette.setColor(QPalette::BrightText, Qt::white);
    palette.setColor(QPalette::ToolTipBase, QColor(0x2b, 0x31, 0x3a));
    palette.setColor(QPalette::ToolTipText, QColor(kText));
    palette.setColor(QPalette::Highlight, QColor(kAccent));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(0x6c, 0xb8, 0xea));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, QColor(kKeyTextOff));
    }
    return palette;
}

}  // namespace display::qt
