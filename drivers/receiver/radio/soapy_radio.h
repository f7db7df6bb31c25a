// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "drivers/receiver/radio/soapy_library.h"
#include "drivers/receiver/samples/sample_source.h"

namespace hm16::receiver {

// The settings for a radio; absent ones are left as the radio has them.
struct SoapyRequest {
    std::string library;
    std::string device;  // arguments as SoapySDR takes them, such as "driver=rtlsdr"
    double rateHz = 2.4e6;
    double centreHz = 98e6;
    bool automaticGain = true;
    double gainDb = 0;
    std::string antenna;
    double bandwidthHz = 0;
    std::string clockSource;
    bool bias = false;  // feeds the amplifier at the antenna
    std::optional<double> correctionPpm;
    std::vector<std::pair<std::string, std::string>> settings;  // the driver's own
};

// No such radio is plugged in, or another program has it.
class RadioAbsent : public SourceError {
 public:
    using SourceError::SourceError;
};

// An open radio that is sending, used by one thread. Every call may take as long as its driver
// likes, so others use it through RadioLoop.
class SoapyRadio {
 public:
    // Throws SourceError with the radio's own words when it refuses, RadioAbsent when it is not
    // there.
    SoapyRadio(const SoapyLibrary& library, const SoapyRequest& request);
    ~SoapyRadio();
    SoapyRadio(const SoapyRadio&) = delete;
    SoapyRadio& operator=(const SoapyRadio&) = delete;

    // The values that the radio reports.
    double rateHz() const { return rateHz_; }
    double centreHz() const { return centreHz_; }

    // False when the radio refuses.
    bool tune(double centreHz);

    enum class Outcome { Samples, Nothing, Lost };
    // Waits a short time for samples, and returns how many came: none, or after Lost none whose
    // position is known. Throws SourceError if the stream has failed.
    Outcome read(std::span<Sample> into, std::size_t& count);

 private:
    void require(int result, const char* what) const;
    void set(const SoapyRequest& request);
    void setNamed(const SoapyRequest& request);
    void switchBiasOn();
    bool takes(const char* key, const std::string& value);
    void startStream();
    void close();

    const SoapyLibrary& library_;
    std::string name_;
    SoapySDRDevice* device_ = nullptr;
    SoapySDRStream* stream_ = nullptr;
    double rateHz_ = 0;
    double centreHz_ = 0;
};

// The radio's name in messages.
std::string radioName(const SoapyRequest& request);

}  // namespace hm16::receiver
