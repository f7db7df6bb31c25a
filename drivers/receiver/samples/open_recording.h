// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <utility>

#include "drivers/receiver/samples/sample_source.h"

namespace hm16::receiver {

// What to open, and what the user knows about it.
struct RecordingRequest {
    std::filesystem::path file;
    // "auto", "cu8", "cs8", "cs16", "cf32", "sigmf", "wav" (any sound file with I and Q) or
    // "composite" (a sound file whose first channel is the multiplex).
    std::string format = "auto";
    double rateHz = 0;    // 0: as the file says
    double centreHz = 0;  // 0: as the file says
};

// The sample rates that the chain accepts.
inline constexpr double kLowestBandRateHz = 200e3;
inline constexpr double kLowestCompositeRateHz = 120e3;
inline constexpr double kHighestRateHz = 25e6;

// The recording could be opened if a setting told what the file does not.
class MissingSetting : public SourceError {
 public:
    MissingSetting(std::string key, const std::string& sentence)
        : SourceError(sentence), key_(std::move(key)) {}
    const std::string& key() const { return key_; }

 private:
    std::string key_;
};

// Opens a recording. Throws SourceError with one sentence about what is wrong or missing.
std::unique_ptr<SampleSource> openRecording(const RecordingRequest& request);

}  // namespace hm16::receiver
