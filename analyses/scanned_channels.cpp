// SPDX-License-Identifier: GPL-3.0-or-later
#include "analyses/scanned_channels.h"

namespace hmonitor {

std::optional<ScanChannels> channelsOfLines(std::size_t lines, bool unitSweeps) {
    if (!unitSweeps) {
        const ScanChannels measured = measuredChannels(ScanSpacing::Odd);
        if (lines == static_cast<std::size_t>(measured.count())) return measured;
        return std::nullopt;
    }
    for (const ScanSpacing spacing : {ScanSpacing::All, ScanSpacing::Quarter}) {
        const ScanChannels swept = sweptChannels(spacing, kBandStop);
        if (lines == static_cast<std::size_t>(swept.count())) return swept;
    }
    return std::nullopt;
}

}  // namespace hmonitor
