// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdio>
#include <filesystem>
#include <memory>
#include <vector>

#include "drivers/receiver/samples/sample_format.h"
#include "drivers/receiver/samples/sample_source.h"

namespace hm16::receiver {

// What a file of bare samples does not tell about itself.
struct RawLayout {
    SampleFormat format = SampleFormat::Cu8;
    double rateHz = 0;
    double centreHz = 0;
    std::uint64_t headerBytes = 0;
};

// A file of bare samples. What is left of a sample that was cut at the end is not read.
class RawRecording : public SampleSource {
 public:
    // Throws SourceError when the file is missing, unreadable or holds no whole sample.
    RawRecording(const std::filesystem::path& file, const RawLayout& layout);

    Domain domain() const override;
    double rateHz() const override { return layout_.rateHz; }
    double centreHz() const override { return isReal(layout_.format) ? 0 : layout_.centreHz; }
    double converterStep() const override { return stepOf(layout_.format); }
    std::size_t read(std::span<Sample> into) override;
    void rewind() override;
    std::uint64_t length() const override { return length_; }
    std::uint64_t badSamples() const override { return bad_; }

 private:
    struct CloseFile {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };

    RawLayout layout_;
    std::unique_ptr<std::FILE, CloseFile> file_;
    std::vector<std::byte> bytes_;
    std::uint64_t length_ = 0;
    std::uint64_t bad_ = 0;
};

}  // namespace hm16::receiver
