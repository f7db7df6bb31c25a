// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/radio/soapy_source.h"

#include <cmath>

namespace hm16::receiver {
namespace {

constexpr long kTimeoutMicroseconds = 100000;
constexpr int kMostTimeouts = 20;  // two seconds without a sample: the radio has gone
constexpr int kMostOverflows = 1000;

}  // namespace

SoapySource::SoapySource(const SoapyRequest& request)
    : name_("The radio \"" + request.device + "\""),
      library_(request.library),
      rateHz_(request.rateHz),
      centreHz_(request.centreHz) {
    device_ = library_.make(request.device.c_str());
    if (!device_) throw SourceError(name_ + " cannot be opened: " + library_.lastError() + ".");
    try {
        require(library_.setSampleRate(device_, kSoapyReceive, 0, rateHz_), "the sample rate");
        // A radio takes the nearest rate that it has.
        rateHz_ = library_.getSampleRate(device_, kSoapyReceive, 0);
        if (!(rateHz_ > 0)) throw SourceError(name_ + " does not tell its sample rate.");
        require(library_.setFrequency(device_, kSoapyReceive, 0, centreHz_, nullptr),
                "the frequency");
        if (request.automaticGain) {
            // Not every radio has it; one that has not keeps its own gain.
            library_.setGainMode(device_, kSoapyReceive, 0, true);
        } else {
            require(library_.setGain(device_, kSoapyReceive, 0, request.gainDb), "the gain");
        }
        const std::size_t channel = 0;
        stream_ = library_.setupStream(device_, kSoapyReceive, "CF32", &channel, 1, nullptr);
        if (!stream_) throw SourceError(name_ + " gives no samples: " + library_.lastError() + ".");
        require(library_.activateStream(device_, stream_, 0, 0, 0), "its stream");
    } catch (const SourceError&) {
        close();
        throw;
    }
}

SoapySource::~SoapySource() {
    close();
}

void SoapySource::close() {
    if (stream_) {
        library_.deactivateStream(device_, stream_, 0, 0);
        library_.closeStream(device_, stream_);
        stream_ = nullptr;
    }
    if (device_) library_.unmake(device_);
    device_ = nullptr;
}

void SoapySource::require(int result, const char* what) const {
    if (result == 0) return;
    throw SourceError(name_ + " refuses " + what + ": " + library_.lastError() + ".");
}

std::size_t SoapySource::read(std::span<Sample> into) {
    std::size_t done = 0;
    int timeouts = 0;
    int overflows = 0;
    while (done < into.size()) {
        void* buffer = into.data() + done;
        int flags = 0;
        long long nanoseconds = 0;
        const int got = library_.readStream(device_, stream_, &buffer, into.size() - done, &flags,
                                            &nanoseconds, kTimeoutMicroseconds);
        if (got > 0) {
            done += static_cast<std::size_t>(got);
            timeouts = 0;
            overflows = 0;
            continue;
        }
        // Lost samples are a gap, behind which the next ones are good.
        if (got == kSoapyOverflow && ++overflows < kMostOverflows) continue;
        if ((got == kSoapyTimeout || got == 0) && ++timeouts < kMostTimeouts) continue;
        throw SourceError(name_ + (got == kSoapyTimeout || got == 0
                                       ? " has stopped sending."
                                       : " has failed with error " + std::to_string(got) + "."));
    }
    for (Sample& sample : into) {
        if (std::isfinite(sample.real()) && std::isfinite(sample.imag())) continue;
        sample = Sample();
        ++bad_;
    }
    return done;
}

bool SoapySource::retune(double hz) {
    const double centre = hz - rateHz_ / 8;
    if (library_.setFrequency(device_, kSoapyReceive, 0, centre, nullptr) != 0) return false;
    centreHz_ = centre;
    return true;
}

}  // namespace hm16::receiver
