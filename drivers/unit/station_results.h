// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "drivers/unit/local_time.h"
#include "drivers/unit/readings.h"

namespace hm16 {

// The codes of HM_Reset.
enum class StoredResult { Noise = 1, Distortion = 2, Separation = 3 };

// What is kept of one frequency: the file KEY.dat of 24 lines, carriage return and line feed behind
// each. docs/driver.md lists the lines.
//
// Noise, separation and distortion of a broadcast can only be judged now and then: noise in the
// gaps of the programme, separation when one channel is alone, distortion on a steady tone. So the
// best that was ever measured is kept: lowest noise and distortion, highest separation. A reading
// of 0 means that nothing could be measured, and changes nothing.
class StationResults {
 public:
    explicit StationResults(double frequency);

    // Reads the file; one that is missing, torn or odd counts as missing line by line. What stands
    // in a file that cannot be read is joined as soon as it can be.
    static StationResults read(const std::filesystem::path& folder, double frequency);
    static StationResults parse(double frequency, std::string_view text);

    // Takes readings that held for `seconds`.
    void add(const Readings& readings, double seconds);

    void clear(StoredResult what);

    // The 24 lines; `now` is the date in two of them.
    std::string text(const LocalTime& now) const;

    // Writes the file to `folder`; returns a sentence on failure. A file that stands there and
    // still cannot be read is left as it is.
    std::optional<std::string> write(const std::filesystem::path& folder, const LocalTime& now);

    double frequency() const { return frequency_; }
    double seconds() const { return seconds_; }
    // Absent if nothing was measured yet, or it was cleared.
    std::optional<float> noiseLeft() const { return noiseLeft_; }
    std::optional<float> noiseRight() const { return noiseRight_; }
    std::optional<float> separationLeft() const { return separationLeft_; }
    std::optional<float> separationRight() const { return separationRight_; }
    std::optional<float> distortion() const { return distortion_; }
    const Readings& last() const { return last_; }
    float highestModulation() const { return highestModulation_; }
    float worstMultipath() const { return worstMultipath_; }
    float mostPeaks() const { return mostPeaks_; }

 private:
    // What was measured before; the last readings stay.
    void join(const StationResults& earlier);

    double frequency_;
    bool unread_ = false;  // the file was there and could not be read
    double seconds_ = 0;
    Readings last_;
    float highestModulation_ = 0;
    float worstMultipath_ = 0;
    float mostPeaks_ = 0;
    std::optional<float> noiseLeft_;
    std::optional<float> noiseRight_;
    std::optional<float> separationLeft_;
    std::optional<float> separationRight_;
    std::optional<float> distortion_;
};

}  // namespace hm16
