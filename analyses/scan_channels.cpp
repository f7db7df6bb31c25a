// SPDX-License-Identifier: GPL-3.0-or-later
#include "analyses/scan_channels.h"

namespace hmonitor {

namespace {

constexpr int kTenth = 10;  // 100 kHz, in hundredths of a MHz

bool startsBelowBand(ScanSpacing spacing) {
    return spacing == ScanSpacing::Even || spacing == ScanSpacing::All;
}

}  // namespace

int scanStep(ScanSpacing spacing) {
    switch (spacing) {
        case ScanSpacing::All:
            return kTenth;
        case ScanSpacing::Quarter:
            return 25;
        case ScanSpacing::Odd:
        case ScanSpacing::Even:
            break;
    }
    return 20;
}

ScanChannels clearedCells(ScanSpacing spacing) {
    return {8710, kBandStop, scanStep(spacing)};
}

ScanChannels measuredChannels(ScanSpacing spacing) {
    return {kBandStart, kBandStop, scanStep(spacing)};
}

ScanChannels sweptChannels(ScanSpacing spacing, int limit) {
    const int first = spacing == ScanSpacing::Even ? 8740 : kBandStart;
    return {first, limit - kTenth, scanStep(spacing)};
}

ScanChannels optionChannels(ScanSpacing spacing) {
    const int first = startsBelowBand(spacing) ? 8700 : kBandStart;
    return {first, kBandStop - kTenth, scanStep(spacing)};
}

ScanChannels storedChannels() {
    // Up to but not including 108 MHz.
    return {kBandStart, kBandStop - 1, scanStep(ScanSpacing::Odd)};
}

}  // namespace hmonitor
