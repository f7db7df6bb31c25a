// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <SoapySDR/Device.h>

#include <string>

#include "base/shared_object.h"
#include "drivers/receiver/samples/sample_source.h"

namespace hm16::receiver {

// The default file name of the library.
#if defined(_WIN32)
inline constexpr const char* kSoapyLibrary = "SoapySDR.dll";
#elif defined(__APPLE__)
inline constexpr const char* kSoapyLibrary = "libSoapySDR.0.8.dylib";
#else
inline constexpr const char* kSoapyLibrary = "libSoapySDR.so.0.8";
#endif

// SoapySDR cannot be loaded.
class NoSoapy : public SourceError {
 public:
    using SourceError::SourceError;
};

// The functions of SoapySDR's C interface (0.8) that a receiver needs, looked up at run time, so
// that everything else works without the library. The signatures are those of its header.
class SoapyLibrary {
 public:
    // Throws NoSoapy when the library or one of its functions is not there.
    explicit SoapyLibrary(const std::string& file);

    // Returned texts belong to the caller, who frees them with release().
    decltype(&SoapySDR_free) release = nullptr;
    decltype(&SoapySDR_errToStr) errorText = nullptr;

    decltype(&SoapySDRDevice_enumerate) enumerate = nullptr;
    decltype(&SoapySDRKwargsList_clear) clearList = nullptr;

    decltype(&SoapySDRDevice_makeStrArgs) make = nullptr;
    decltype(&SoapySDRDevice_unmake) unmake = nullptr;
    decltype(&SoapySDRDevice_lastError) lastError = nullptr;
    decltype(&SoapySDRDevice_setSampleRate) setSampleRate = nullptr;
    decltype(&SoapySDRDevice_getSampleRate) getSampleRate = nullptr;
    decltype(&SoapySDRDevice_setFrequency) setFrequency = nullptr;
    decltype(&SoapySDRDevice_getFrequency) getFrequency = nullptr;
    decltype(&SoapySDRDevice_setGain) setGain = nullptr;
    decltype(&SoapySDRDevice_setGainMode) setGainMode = nullptr;
    decltype(&SoapySDRDevice_setAntenna) setAntenna = nullptr;
    decltype(&SoapySDRDevice_getAntenna) getAntenna = nullptr;
    decltype(&SoapySDRDevice_setBandwidth) setBandwidth = nullptr;
    decltype(&SoapySDRDevice_setClockSource) setClockSource = nullptr;
    decltype(&SoapySDRDevice_getClockSource) getClockSource = nullptr;
    decltype(&SoapySDRDevice_hasFrequencyCorrection) hasCorrection = nullptr;
    decltype(&SoapySDRDevice_setFrequencyCorrection) setCorrection = nullptr;
    decltype(&SoapySDRDevice_writeSetting) writeSetting = nullptr;
    decltype(&SoapySDRDevice_readSetting) readSetting = nullptr;
    decltype(&SoapySDRDevice_setupStream) setupStream = nullptr;
    decltype(&SoapySDRDevice_closeStream) closeStream = nullptr;
    decltype(&SoapySDRDevice_activateStream) activateStream = nullptr;
    decltype(&SoapySDRDevice_deactivateStream) deactivateStream = nullptr;
    decltype(&SoapySDRDevice_readStream) readStream = nullptr;

 private:
    const base::SharedObject object_;
};

}  // namespace hm16::receiver
