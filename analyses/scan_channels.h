// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace hmonitor {

/// Which channels of the band a scan visits.
enum class ScanSpacing {
    Odd,      ///< every 200 kHz from 87.5 MHz on
    Even,     ///< every 200 kHz between those
    Quarter,  ///< every 250 kHz
    All       ///< every 100 kHz
};

/// Evenly spaced channels, in whole hundredths of a MHz; each is computed from its number, so that
/// rounding neither gains nor loses one.
struct ScanChannels {
    int first = 0;  ///< hundredths of a MHz
    int last = 0;   ///< the end, which is a channel if a step meets it
    int step = 0;

    int count() const { return last < first ? 0 : (last - first) / step + 1; }
    /// Channel 0 to count() - 1 in hundredths of a MHz, and as the driver takes it (tenths).
    int at(int channel) const { return first + channel * step; }
    float tenths(int channel) const { return static_cast<float>(at(channel)) / 10.f; }
};

inline constexpr int kBandStart = 8750;  ///< hundredths of a MHz
inline constexpr int kBandStop = 10800;

/// Hundredths of a MHz between channels.
int scanStep(ScanSpacing spacing);

/// The cells that a new run sets to "0".
ScanChannels clearedCells(ScanSpacing spacing);
/// The channels of a run on a unit that is measured point by point. It starts at 87.5 MHz also for
/// even channels: the run resets the start of the band that the option has set.
ScanChannels measuredChannels(ScanSpacing spacing);
/// The channels of a sweep that has reached `limit` (hundredths of a MHz, exclusive). An even sweep
/// begins at 87.4 MHz, unlike an even run on a unit that is measured point by point.
ScanChannels sweptChannels(ScanSpacing spacing, int limit);
/// The channels with which choosing an option fills the chart.
ScanChannels optionChannels(ScanSpacing spacing);
/// The channels of the lines of `scan.dat` when it is read: always the odd ones, whatever was
/// measured.
ScanChannels storedChannels();

/// A cell of the band chart: one row for each MHz; both count from 1.
struct ScanCell {
    int row = 1;
    int column = 0;
    friend bool operator==(const ScanCell&, const ScanCell&) = default;
};

/// Steps through the cells of the chart: to the next column, and from the last one to column 1 of
/// the next row.
class ScanWalk {
 public:
    /// The first cell is the one after `startColumn` of row 1.
    ScanWalk(int startColumn, int columns) : cell_{1, startColumn}, columns_(columns) {}

    ScanCell next() {
        if (++cell_.column > columns_) {
            cell_.column = 1;
            ++cell_.row;
        }
        return cell_;
    }

 private:
    ScanCell cell_;
    int columns_;
};

}  // namespace hmonitor
