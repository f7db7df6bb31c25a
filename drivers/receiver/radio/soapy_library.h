// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>

namespace hm16::receiver {

struct SoapyDevice;
struct SoapyStream;

// The functions of SoapySDR's C interface (0.8) that a receiver needs, found in the library when
// the program runs: without it all else works. The signatures are those of its documentation.
class SoapyLibrary {
 public:
    // Throws SourceError when the library or one of its functions is not there.
    explicit SoapyLibrary(const std::string& file);
    ~SoapyLibrary();
    SoapyLibrary(const SoapyLibrary&) = delete;
    SoapyLibrary& operator=(const SoapyLibrary&) = delete;

    SoapyDevice* (*make)(const char* arguments) = nullptr;
    int (*unmake)(SoapyDevice*) = nullptr;
    const char* (*lastError)() = nullptr;
    int (*setSampleRate)(SoapyDevice*, int direction, std::size_t channel, double hz) = nullptr;
    double (*getSampleRate)(const SoapyDevice*, int direction, std::size_t channel) = nullptr;
    int (*setFrequency)(SoapyDevice*, int direction, std::size_t channel, double hz,
                        const void* arguments) = nullptr;
    int (*setGain)(SoapyDevice*, int direction, std::size_t channel, double db) = nullptr;
    int (*setGainMode)(SoapyDevice*, int direction, std::size_t channel, bool automatic) = nullptr;
    SoapyStream* (*setupStream)(SoapyDevice*, int direction, const char* format,
                                const std::size_t* channels, std::size_t count,
                                const void* arguments) = nullptr;
    int (*closeStream)(SoapyDevice*, SoapyStream*) = nullptr;
    int (*activateStream)(SoapyDevice*, SoapyStream*, int flags, long long nanoseconds,
                          std::size_t elements) = nullptr;
    int (*deactivateStream)(SoapyDevice*, SoapyStream*, int flags, long long nanoseconds) = nullptr;
    int (*readStream)(SoapyDevice*, SoapyStream*, void* const* buffers, std::size_t elements,
                      int* flags, long long* nanoseconds, long timeoutMicroseconds) = nullptr;

 private:
    void* handle_ = nullptr;
};

// What the C interface calls the receiving direction, a timeout and lost samples.
inline constexpr int kSoapyReceive = 1;
inline constexpr int kSoapyTimeout = -1;
inline constexpr int kSoapyOverflow = -4;

}  // namespace hm16::receiver
