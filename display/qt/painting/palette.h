// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QPalette>

#include "display/colour.h"

namespace display::qt {

inline QColor qColour(Colour colour) {
    return {colour.red(), colour.green(), colour.blue()};
}

// The colours of the program, except those that the panels' logic sets.
inline constexpr QRgb kFaceplateTop = 0xff252a32;
inline constexpr QRgb kFaceplateBottom = 0xff181b20;
inline constexpr QRgb kFaceplateEdge = 0xff3d444e;
inline constexpr QRgb kFaceplateShade = 0xff0b0d10;
inline constexpr QRgb kWellTop = 0xff0c1014;
inline constexpr QRgb kWellBottom = 0xff050709;
inline constexpr QRgb kWellRim = 0xff2f363f;
inline constexpr QRgb kPlateTop = 0xffd9dee5;
inline constexpr QRgb kPlateBottom = 0xffbdc5cf;
/// An earlier value behind a bar.
inline constexpr QRgb kChartShadow = 0xff56606d;
/// Grid lines on white paper.
inline constexpr QRgb kPaperLine = 0xffbcc3cb;
inline constexpr QRgb kKeyTop = 0xff3a424d;
inline constexpr QRgb kKeyBottom = 0xff262c34;
inline constexpr QRgb kKeyEdge = 0xff0d0f12;
inline constexpr QRgb kKeyGlint = 0xff525c69;
inline constexpr QRgb kKeyText = 0xffd3dae3;
inline constexpr QRgb kKeyTextOff = 0xff959eab;
inline constexpr QRgb kLitTop = 0xffeff2f6;
inline constexpr QRgb kLitBottom = 0xffb7c0cb;
inline constexpr QRgb kLitText = 0xff171a1f;
inline constexpr QRgb kAmber = 0xfff5a50a;
/// What marks an alarm: a red on which dark words read as well.
inline constexpr QRgb kAlarm = 0xffff5a52;
/// The symbol on a lit start or pause key.
inline constexpr QRgb kRunMark = 0xff0a7a24;
inline constexpr QRgb kFocus = 0xffffc24a;
inline constexpr QRgb kText = 0xffe4e8ee;
inline constexpr QRgb kField = 0xff0e1216;
inline constexpr QRgb kAccent = 0xff2f7fb8;

/// The contrast ratio of two colours: 1 for equal ones, 21 for black and white (WCAG 2).
double contrastOf(const QColor& one, const QColor& other);
/// The contrast that text needs to be easily readable.
inline constexpr double kLegible = 4.5;
/// The colour, lightened until text in it has that contrast on the dark background.
QColor legibleOn(const QColor& ground, QColor colour);

/// The palette of ordinary widgets in dialogs.
QPalette housePalette();

}  // namespace display::qt
