// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <span>
#include <vector>

#include "drivers/receiver/samples/sample_format.h"
#include "drivers/receiver/samples/sample_source.h"

namespace hm16::receiver {

// A stretch of a file that was received at one frequency.
struct RawSegment {
    std::uint64_t start = 0;  // number of its first sample, without headers
    double centreHz = 0;
    std::uint64_t headerBytes = 0;  // header bytes before its first sample
};

// What a file of bare samples does not tell about itself.
struct RawLayout {
    SampleFormat format = SampleFormat::Cu8;
    double rateHz = 0;
    std::vector<RawSegment> segments;  // sorted by start; if empty, the file is one segment
};

// A file of bare samples. An incomplete sample at the end is ignored. If segments were received at
// several frequencies, one of them plays, and tuning chooses it.
class RawRecording : public SampleSource {
 public:
    // Throws SourceError if the file is missing, unreadable or without a whole sample.
    RawRecording(const std::filesystem::path& file, const RawLayout& layout);

    Domain domain() const override;
    double rateHz() const override { return rateHz_; }
    double centreHz() const override;
    double converterStep() const override { return stepOf(format_); }
    std::size_t read(std::span<Sample> into) override;
    void rewind() override { seek(0); }
    bool tunable() const override { return parts_.size() > 1; }
    // True if another segment plays now.
    bool retune(double hz) override;
    std::uint64_t length() const override { return parts_[playing_].length; }
    std::uint64_t badSamples() const override { return bad_; }

 private:
    struct CloseFile {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };
    struct Part {
        double centreHz = 0;
        std::uint64_t firstByte = 0;
        std::uint64_t length = 0;  // samples
        std::uint64_t at = 0;      // of them, that come next
    };

    void divide(const RawLayout& layout, std::uint64_t bytes);
    void seek(std::uint64_t sample);
    bool covers(const Part& part, double hz) const;

    SampleFormat format_;
    double rateHz_;
    std::vector<Part> parts_;
    std::size_t playing_ = 0;
    std::unique_ptr<std::FILE, CloseFile> file_;
    std::vector<std::byte> bytes_;
    std::uint64_t bad_ = 0;
};

}  // namespace hm16::receiver
