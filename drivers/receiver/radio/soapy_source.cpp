// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/radio/soapy_source.h"

#include <chrono>
#include <cmath>
#include <vector>

namespace hm16::receiver {
namespace {

constexpr long kTimeoutMicroseconds = 100000;
// A radio that is this much late with its samples has gone.
constexpr auto kPatience = std::chrono::seconds(1);

// A radio's buffers are emptied within this time, so many samples at once; what comes later is new.
constexpr auto kEmptying = std::chrono::milliseconds(50);
constexpr std::size_t kStaleSamples = 16384;

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
    using Clock = std::chrono::steady_clock;
    const std::chrono::duration<double> onAir(static_cast<double>(into.size()) / rateHz_);
    const auto latest =
        Clock::now() + std::chrono::duration_cast<Clock::duration>(onAir) + kPatience;
    std::size_t done = 0;
    while (done < into.size()) {
        void* buffer = into.data() + done;
        int flags = 0;
        long long nanoseconds = 0;
        const int got = library_.readStream(device_, stream_, &buffer, into.size() - done, &flags,
                                            &nanoseconds, kTimeoutMicroseconds);
        // Lost samples are a gap, behind which the next ones are good.
        const bool gap = got == 0 || got == kSoapyTimeout || got == kSoapyOverflow;
        if (got > 0) {
            done += static_cast<std::size_t>(got);
        } else if (!gap) {
            throw SourceError(name_ + " has failed with error " + std::to_string(got) + ".");
        }
        if (done < into.size() && Clock::now() > latest)
            throw SourceError(name_ + " has stopped sending.");
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
    dropStale();
    return true;
}

// What the radio's buffers held before it was tuned belongs to another frequency.
void SoapySource::dropStale() {
    const auto latest = std::chrono::steady_clock::now() + kEmptying;
    std::vector<Sample> stale(kStaleSamples);
    while (std::chrono::steady_clock::now() < latest) {
        void* buffer = stale.data();
        int flags = 0;
        long long nanoseconds = 0;
        const int got =
            library_.readStream(device_, stream_, &buffer, stale.size(), &flags, &nanoseconds, 0);
        // A radio that has failed says so again to the next reader.
        if (got <= 0 && got != kSoapyOverflow) return;
    }
}

}  // namespace hm16::receiver
