// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/painting/palette.h"

#include <algorithm>
#include <cmath>

namespace display::qt {

namespace {

double linear(double share) {
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& colour) {
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

}  // namespace

double contrastOf(const QColor& one, const QColor& other) {
    const auto [dark, light] = std::minmax({luminance(one), luminance(other)});
    return (light + 0.05) / (dark + 0.05);
}

QColor legibleOn(const QColor& ground, QColor colour) {
    constexpr int kStep = 8;
    const auto lighter = [](int part) { return std::min(part + kStep, 255); };
    while (contrastOf(colour, ground) < kLegible && colour != QColor(Qt::white)) {
        colour.setRgb(lighter(colour.red()), lighter(colour.green()), lighter(colour.blue()));
    }
    return colour;
}

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
