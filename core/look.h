// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "display/controls.h"

// The type and the colours that all windows of the rack share. Sizes are in twips; the rack is
// 12000 twips wide, and at its natural size ten twips are one pixel.
namespace hmonitor::look {

inline constexpr float kRackWidth = 12000;
inline constexpr float kMargin = 360;

inline constexpr display::Font kCaption{120, display::Weight::Normal};
inline constexpr display::Font kHeading{105, display::Weight::Normal, true};
inline constexpr display::Font kScale{105, display::Weight::Normal};
inline constexpr display::Font kUnit{110, display::Weight::Normal};
inline constexpr display::Font kReadout{250, display::Weight::Bold};
inline constexpr display::Font kSmallReadout{200, display::Weight::Bold};
inline constexpr display::Font kLamp{140, display::Weight::Bold};

inline constexpr display::Colour kCaptionColour{0xb8aca4};
inline constexpr display::Colour kScaleColour{0xd8d0cc};
inline constexpr display::Colour kUnitColour{0xa89c94};
/// Bars of charts, and the words over them.
inline constexpr display::Colour kSeriesRed{0x4444f4};
inline constexpr display::Colour kSeriesBlue{0xe4b064};
/// What a person should notice.
inline constexpr display::Colour kNoticeColour{0x0aa5f5};
/// The dark of unlit segments and needles' wells.
inline constexpr display::Colour kUnlit{0x1d1c20};

}  // namespace hmonitor::look
