// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "display/design.h"

// The type and the colours that all windows share. Sizes are in twips; the rack is 12000 twips
// wide, and at its natural size ten twips are one pixel.
namespace hmonitor::look {

inline constexpr float kRackWidth = 12000;
inline constexpr float kMargin = 360;
/// The strip at the top of a window, by which it is moved.
inline constexpr float kTitleStrip = 460;
inline constexpr float kWindowMargin = 150;
inline constexpr float kKeyHeight = 420;
/// The right end of a title that leaves room for a note beside it.
inline constexpr float kTitleWithNote = 3300;
/// The room of the station at the right end of the strip.
inline constexpr float kStationWidth = 3150;

inline constexpr display::Font kCaption{120, display::Weight::Normal};
inline constexpr display::Font kScale{105, display::Weight::Normal};
inline constexpr display::Font kUnit{110, display::Weight::Normal};
inline constexpr display::Font kReadout{250, display::Weight::Bold};
inline constexpr display::Font kSmallReadout{200, display::Weight::Bold};
inline constexpr display::Font kLamp{140, display::Weight::Bold};
inline constexpr display::Font kTitle{160, display::Weight::Bold};
inline constexpr display::Font kDialog{140, display::Weight::Normal};

inline constexpr display::Colour kCaptionColour{0xb8aca4};
inline constexpr display::Colour kScaleColour{0xd8d0cc};
inline constexpr display::Colour kUnitColour{0xa89c94};
/// The bars of charts, and the texts above them.
inline constexpr display::Colour kSeriesRed{0x4444f4};
inline constexpr display::Colour kSeriesBlue{0xe4b064};
/// The colour of warnings.
inline constexpr display::Colour kNoticeColour{0x0aa5f5};
/// The colour of unlit segments and of the wells of needles.
inline constexpr display::Colour kUnlit{0x1d1c20};

/// The title in the strip of a window of that width.
constexpr display::Box titleBox(float windowWidth) {
    return {240, 120, windowWidth - 480, 260};
}

// Names for what rows of layouts contain.
inline constexpr display::TextStyle kCaptionText{kCaption, kCaptionColour};
/// The text beside a control.
inline constexpr display::TextStyle kPlainText{kCaption, kScaleColour};
inline constexpr display::TextStyle kHeadingText{
    {105, display::Weight::Normal, true}, kCaptionColour, display::Align::Right};
inline constexpr display::TextStyle kScaleText{kScale, kScaleColour};
inline constexpr display::TextStyle kUnitText{kUnit, kUnitColour};
inline constexpr display::TextStyle kTitleText{kTitle, kScaleColour};
inline constexpr display::TextStyle kDialogText{kDialog};
inline constexpr display::TextStyle kReadoutText{kReadout, display::kCyan, display::Align::Right};
inline constexpr display::TextStyle kSmallReadoutText{kSmallReadout, display::kCyan};
/// The station of a window's run, at the end of its strip.
inline constexpr display::TextStyle kStationText{kCaption, kScaleColour, display::Align::Right};
/// The note of a window about its run, beside the title.
inline constexpr display::TextStyle kNoteText{kCaption, {0x4ac2ff}, display::Align::Right};

}  // namespace hmonitor::look
