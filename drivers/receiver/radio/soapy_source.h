// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>

#include "drivers/receiver/radio/soapy_library.h"
#include "drivers/receiver/samples/sample_source.h"

namespace hm16::receiver {

struct SoapyRequest {
    std::string library;
    std::string device;  // arguments as SoapySDR takes them, such as "driver=rtlsdr"
    double rateHz = 2.4e6;
    double centreHz = 98e6;
    bool automaticGain = true;
    double gainDb = 0;
};

// A live radio.
class SoapySource : public SampleSource {
 public:
    // Throws SourceError when SoapySDR or the radio is not there or refuses.
    explicit SoapySource(const SoapyRequest& request);
    ~SoapySource() override;

    double rateHz() const override { return rateHz_; }
    double centreHz() const override { return centreHz_; }
    std::size_t read(std::span<Sample> into) override;
    void rewind() override {}
    // Tunes so that `hz` stands a good way off the centre, where a radio's own offset lies.
    bool retune(double hz) override;
    bool live() const override { return true; }
    std::uint64_t badSamples() const override { return bad_; }

 private:
    void require(int result, const char* what) const;
    void close();
    void dropStale();

    std::string name_;
    SoapyLibrary library_;
    SoapyDevice* device_ = nullptr;
    SoapyStream* stream_ = nullptr;
    double rateHz_;
    double centreHz_;
    std::uint64_t bad_ = 0;
};

}  // namespace hm16::receiver
