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

/// A row of evenly spaced channels. In whole hundredths of a MHz, and every channel worked out from
/// its number, so that rounding neither gains nor loses one.
struct ScanChannels {
    int first = 0;  ///< hundredths of a MHz
    int last = 0;   ///< the end, itself a channel where a step falls on it
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

/// The cells that a new run writes "0" into.
ScanChannels clearedCells(ScanSpacing spacing);
/// The channels of a run that is measured one by one. It starts at 87.5 MHz for even channels too:
/// the run sets the start of the band back whatever the option had set.
ScanChannels measuredChannels(ScanSpacing spacing);
/// The channels of a sweep that has come up to `limit` (hundredths of a MHz, its own channel left
/// out). An even sweep begins at 87.4 MHz, unlike an even run that is measured one by one.
ScanChannels sweptChannels(ScanSpacing spacing, int limit);
/// The channels that choosing an option fills the chart with.
ScanChannels optionChannels(ScanSpacing spacing);
/// The lines of `scan.dat` that are read back, as channels: the odd ones, whatever wrote the file.
ScanChannels storedChannels();

/// A cell of the band chart: one row a MHz; both count from 1.
struct ScanCell {
    int row = 1;
    int column = 0;
    friend bool operator==(const ScanCell&, const ScanCell&) = default;
};

/// Walks over the cells of the chart: to the next column, and past the last one to column 1 of the
/// next row.
class ScanWalk {
 public:
    /// The walk's first cell is the one behind `startColumn` of row 1.
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
