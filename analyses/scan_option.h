// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>

#include "analyses/scan_channels.h"
#include "core/small_text.h"

namespace hmonitor {

/// How the band chart stands under one choice of channels.
struct ScanOption {
    ScanSpacing spacing;
    int firstLabel;                     ///< of row 1, hundredths of a MHz; each row is a MHz more
    const char* windowRow1;             ///< what stands under row 1 on the window instead
    int row1Column;                     ///< the column of that frequency
    int columns;                        ///< channels in a MHz
    std::array<const char*, 5> series;  ///< legend of columns 1 to 5; empty where hidden
    int startColumn;                    ///< filling begins behind this column of row 1
};

const ScanOption& scanOption(ScanSpacing spacing);

/// Where row 1 to 21 begins, as its label: "87.1".
SmallText rowMhz(const ScanOption& option, int row);

/// Legend of columns 6 to 10, which stand with all channels alone.
inline constexpr std::array<const char*, 5> kUpperSeries = {".5", ".6", ".7", ".8", ".9"};

inline constexpr int kScanRows = 21;

}  // namespace hmonitor
