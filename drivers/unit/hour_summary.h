// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "drivers/unit/readings.h"

namespace hm16 {

// A summary of one hour of a station: the nine figures of a line of the day's log.
class HourSummary {
 public:
    // Takes readings that held for `seconds`. `radiatedPower` is a fraction of the nominal power, 0
    // if unknown.
    void add(const Readings& readings, double radiatedPower, double seconds);

    // The measured time.
    double seconds() const { return seconds_; }
    double minutes() const { return seconds_ / 60; }

    // "HOUR F1 F2 ... F9 ": the hour without a leading zero, each field with one blank behind it.
    // Fields: highest modulation in percent, mean level of the first and of the second channel in
    // dB (power mean), mean stereo phase in degrees, mean radiated power, minutes measured, mean
    // of the peaks a minute, silences of 3 seconds, stretches of 3 seconds out of phase. "A"
    // stands for a figure that is absent.
    std::string line(int hour) const;

 private:
    // Counts periods of at least 3 seconds in which a condition held.
    class Stretches {
     public:
        void add(bool holds, double seconds);
        int count() const { return count_; }

     private:
        double lasting_ = 0;
        int count_ = 0;
    };

    double seconds_ = 0;
    float highestModulation_ = 0;
    double powerFirst_ = 0;
    double powerSecond_ = 0;
    double phase_ = 0;
    double radiated_ = 0;
    double peaks_ = 0;
    Stretches silences_;
    Stretches inversions_;
};

}  // namespace hm16
