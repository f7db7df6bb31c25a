// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/radio/soapy_radio.h"

#include <SoapySDR/Constants.h>
#include <SoapySDR/Errors.h>
#include <SoapySDR/Formats.h>

#include <array>

namespace hm16::receiver {
namespace {

constexpr long kTimeoutMicroseconds = 20000;

// What drivers call the voltage that feeds an amplifier at the antenna.
constexpr std::array kBiasNames{"biastee", "bias_tee", "biasT_ctrl", "bias_tx"};

// Takes over a text that SoapySDR hands out.
std::string taken(const SoapyLibrary& library, char* text) {
    const std::string copy = text ? text : "";
    library.release(text);
    return copy;
}

}  // namespace

std::string radioName(const SoapyRequest& request) {
    return "The radio \"" + request.device + "\"";
}

SoapyRadio::SoapyRadio(const SoapyLibrary& library, const SoapyRequest& request)
    : library_(library), name_(radioName(request)) {
    device_ = library_.make(request.device.c_str());
    if (!device_) throw RadioAbsent(name_ + " cannot be opened: " + library_.lastError() + ".");
    try {
        set(request);
        setNamed(request);
        if (!tune(request.centreHz)) require(-1, "the frequency");
        startStream();
    } catch (const SourceError&) {
        close();
        throw;
    }
}

SoapyRadio::~SoapyRadio() {
    close();
}

void SoapyRadio::close() {
    if (stream_) {
        library_.deactivateStream(device_, stream_, 0, 0);
        library_.closeStream(device_, stream_);
    }
    if (device_) library_.unmake(device_);
    stream_ = nullptr;
    device_ = nullptr;
}

void SoapyRadio::require(int result, const char* what) const {
    if (result == 0) return;
    throw SourceError(name_ + " refuses " + what + ": " + library_.lastError() + ".");
}

void SoapyRadio::set(const SoapyRequest& request) {
    require(library_.setSampleRate(device_, SOAPY_SDR_RX, 0, request.rateHz), "the sample rate");
    // A radio takes the nearest rate that it has.
    rateHz_ = library_.getSampleRate(device_, SOAPY_SDR_RX, 0);
    if (!(rateHz_ > 0)) throw SourceError(name_ + " does not tell its sample rate.");
    if (request.bandwidthHz > 0)
        require(library_.setBandwidth(device_, SOAPY_SDR_RX, 0, request.bandwidthHz),
                "the bandwidth");
    if (request.correctionPpm) {
        if (!library_.hasCorrection(device_, SOAPY_SDR_RX, 0))
            throw SourceError(name_ +
                              " has no correction of its own; \"clock_ppm\" corrects the figures.");
        require(library_.setCorrection(device_, SOAPY_SDR_RX, 0, *request.correctionPpm),
                "the correction");
    }
    if (request.automaticGain) {
        // Not every radio has it; one that has not keeps its own gain.
        library_.setGainMode(device_, SOAPY_SDR_RX, 0, true);
    } else {
        library_.setGainMode(device_, SOAPY_SDR_RX, 0, false);
        require(library_.setGain(device_, SOAPY_SDR_RX, 0, request.gainDb), "the gain");
    }
}

// Drivers pass over names that they do not know without a word, so what was set is read back.
void SoapyRadio::setNamed(const SoapyRequest& request) {
    if (!request.antenna.empty()) {
        require(library_.setAntenna(device_, SOAPY_SDR_RX, 0, request.antenna.c_str()),
                "the antenna");
        if (taken(library_, library_.getAntenna(device_, SOAPY_SDR_RX, 0)) != request.antenna)
            throw SourceError(name_ + " has no antenna \"" + request.antenna + "\".");
    }
    if (!request.clockSource.empty()) {
        require(library_.setClockSource(device_, request.clockSource.c_str()), "the clock source");
        if (taken(library_, library_.getClockSource(device_)) != request.clockSource)
            throw SourceError(name_ + " has no clock source \"" + request.clockSource + "\".");
    }
    if (request.bias) switchBiasOn();
    for (const auto& [key, value] : request.settings) {
        if (!takes(key.c_str(), value))
            throw SourceError(name_ + " does not take the setting " + key + " = " + value + ".");
    }
}

void SoapyRadio::switchBiasOn() {
    for (const char* name : kBiasNames)
        if (takes(name, "true")) return;
    throw SourceError(name_ + " has no switch for a bias voltage.");
}

bool SoapyRadio::takes(const char* key, const std::string& value) {
    return library_.writeSetting(device_, key, value.c_str()) == 0 &&
           taken(library_, library_.readSetting(device_, key)) == value;
}

void SoapyRadio::startStream() {
    const std::size_t channel = 0;
    stream_ = library_.setupStream(device_, SOAPY_SDR_RX, SOAPY_SDR_CF32, &channel, 1, nullptr);
    if (!stream_) throw SourceError(name_ + " gives no samples: " + library_.lastError() + ".");
    require(library_.activateStream(device_, stream_, 0, 0, 0), "its stream");
}

bool SoapyRadio::tune(double centreHz) {
    if (library_.setFrequency(device_, SOAPY_SDR_RX, 0, centreHz, nullptr) != 0) return false;
    // A tuner takes the nearest frequency that it has.
    const double told = library_.getFrequency(device_, SOAPY_SDR_RX, 0);
    centreHz_ = told > 0 ? told : centreHz;
    return true;
}

SoapyRadio::Outcome SoapyRadio::read(std::span<Sample> into, std::size_t& count) {
    void* buffer = into.data();
    int flags = 0;
    long long nanoseconds = 0;
    const int got = library_.readStream(device_, stream_, &buffer, into.size(), &flags,
                                        &nanoseconds, kTimeoutMicroseconds);
    count = got > 0 ? static_cast<std::size_t>(got) : 0;
    if (got > 0) return Outcome::Samples;
    if (got == SOAPY_SDR_OVERFLOW) return Outcome::Lost;
    if (got == 0 || got == SOAPY_SDR_TIMEOUT) return Outcome::Nothing;
    throw SourceError(name_ + " has failed: " + library_.errorText(got) + ".");
}

}  // namespace hm16::receiver
