// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "drivers/receiver/samples/sample_format.h"
#include "drivers/receiver/samples/sample_source.h"

namespace hm16::receiver {

// What is to be written.
struct RecordingPlan {
    // The ending decides the format: .cu8, .cs8, .cs16 or .cf32 bare samples, .sigmf-meta a pair of
    // files that states rate, centre and format, .wav or .flac a sound file with I and Q.
    std::filesystem::path file;
    SampleFormat format = SampleFormat::Cs16;  // of a SigMF pair
    double rateHz = 0;
    double centreHz = 0;
};

// Writes samples into a recording that openRecording() reads.
class RecordingWriter {
 public:
    // Throws SourceError if the ending is unknown or the file cannot be created.
    explicit RecordingWriter(const RecordingPlan& plan);
    ~RecordingWriter();

    // Values beyond full scale are clipped, except in floats. Throws SourceError if the disk is
    // full.
    void write(std::span<const Sample> samples);

    // Must be called at the end: only then is everything on the disk. Throws as write() does.
    void close();

    class Sink;

 private:
    std::unique_ptr<Sink> sink_;
};

// Samples as they lie in a file; the inverse of convert(). Complex formats only.
std::vector<std::byte> encoded(SampleFormat format, std::span<const Sample> samples);

}  // namespace hm16::receiver
