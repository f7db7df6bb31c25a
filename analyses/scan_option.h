// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>

#include "analyses/scan_channels.h"
#include "core/small_text.h"

namespace hmonitor {

/// The layout of the band chart for one choice of channels.
struct ScanOption {
    ScanSpacing spacing;
    int firstLabel;                     ///< of row 1, hundredths of a MHz; each row is a MHz more
    const char* windowRow1;             ///< the label under row 1 in the window instead
    int row1Column;                     ///< the column of that frequency
    int columns;                        ///< channels in a MHz
    std::array<const char*, 5> series;  ///< legend of columns 1 to 5; empty where hidden
    int startColumn;                    ///< filling begins behind this column of row 1
};

const ScanOption& scanOption(ScanSpacing spacing);

/// The label of a row, 1 to 21: the frequency at which it begins, "87.1".
SmallText rowMhz(const ScanOption& option, int row);

/// The legend of columns 6 to 10, visible only with all channels.
inline constexpr std::array<const char*, 5> kUpperSeries = {".5", ".6", ".7", ".8", ".9"};

inline constexpr int kScanRows = 21;

}  // namespace hmonitor
