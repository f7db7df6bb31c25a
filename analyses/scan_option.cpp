// SPDX-License-Identifier: GPL-3.0-or-later
#include "analyses/scan_option.h"

#include "core/numbers.h"

namespace hmonitor {

namespace {

// Row 1 begins below the band, so it has a label of its own in the window. The odd channels are
// labelled from 87.1 on, all others from 87.0 on; with all channels the scan begins in column 1 of
// row 1 as with the even ones, though the label there says 87.5.
constexpr std::array<ScanOption, 4> kOptions = {{
    {ScanSpacing::Odd, 8710, "     87.5", 3, 5, {".1", ".3", ".5", ".7", ".9"}, 2},
    {ScanSpacing::Even, 8700, "     87.6", 4, 5, {".0", ".2", ".4", ".6", ".8"}, 0},
    {ScanSpacing::Quarter, 8700, "     87.5", 3, 4, {".0", ".25", ".5", ".75", ""}, 2},
    {ScanSpacing::All, 8700, "     87.5", 6, 10, {".0", ".1", ".2", ".3", ".4"}, 0},
}};

}  // namespace

const ScanOption& scanOption(ScanSpacing spacing) {
    return kOptions[static_cast<std::size_t>(spacing)];
}

SmallText rowMhz(const ScanOption& option, int row) {
    return mask("0.0", (option.firstLabel + (row - 1) * 100) / 100.);
}

}  // namespace hmonitor
