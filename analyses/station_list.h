// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "core/memory_block.h"

namespace hmonitor {

/// A channel of the band as it was heard last.
struct HeardStation {
    int hundredths = 0;  ///< of a MHz
    int level = 0;       ///< dB over a microvolt
    int memory = 0;      ///< the first preset on that frequency; 0 for none
    std::string name;    ///< of that preset
};

/// The channels of a scan as rows of a list, with the names of the presets.
class StationList {
 public:
    enum class Order {
        Frequency,  ///< from the lower end of the band
        Level       ///< the strongest first; of equal ones the lower frequency
    };

    /// The presets by which channels are named; without them they have no names.
    void name(const MemoryBlock& presets);
    void clear() { stations_.clear(); }
    void add(int hundredths, int level);
    void sort(Order order);

    const std::vector<HeardStation>& stations() const { return stations_; }
    /// The row of a channel, -1 if it was not heard.
    int rowOf(int hundredths) const;
    /// "102.55   67 RADIO UNO" in columns of fixed pitch.
    static std::string rowText(const HeardStation& station);

 private:
    struct Preset {
        int hundredths;
        int memory;
        std::string name;
    };
    std::vector<Preset> presets_;
    std::vector<HeardStation> stations_;
};

/// Whether the tuning bar of the rack reaches a channel, in hundredths of a MHz.
bool isTunable(int hundredths);

}  // namespace hmonitor
