// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>

namespace hm16::receiver {

struct SoapyDevice;
struct SoapyStream;

// The library's file where nobody says otherwise.
#if defined(_WIN32)
inline constexpr const char* kSoapyLibrary = "SoapySDR.dll";
#elif defined(__APPLE__)
inline constexpr const char* kSoapyLibrary = "libSoapySDR.0.8.dylib";
#else
inline constexpr const char* kSoapyLibrary = "libSoapySDR.so.0.8";
#endif

// Pairs of names and values, as SoapySDR lays them out.
struct SoapyArguments {
    std::size_t size;
    char** keys;
    char** values;
};

// The functions of SoapySDR's C interface (0.8) that a receiver needs, found in the library when
// the program runs: without it all else works. The signatures are those of its documentation.
class SoapyLibrary {
 public:
    // Throws SourceError when the library or one of its functions is not there.
    explicit SoapyLibrary(const std::string& file);
    ~SoapyLibrary();
    SoapyLibrary(const SoapyLibrary&) = delete;
    SoapyLibrary& operator=(const SoapyLibrary&) = delete;

    // Texts that are handed out belong to the caller, who gives them back with release().
    void (*release)(void*) = nullptr;
    const char* (*errorText)(int error) = nullptr;

    SoapyArguments* (*enumerate)(const SoapyArguments* filter, std::size_t* count) = nullptr;
    void (*clearList)(SoapyArguments*, std::size_t count) = nullptr;

    SoapyDevice* (*make)(const char* arguments) = nullptr;
    int (*unmake)(SoapyDevice*) = nullptr;
    const char* (*lastError)() = nullptr;
    int (*setSampleRate)(SoapyDevice*, int direction, std::size_t channel, double hz) = nullptr;
    double (*getSampleRate)(const SoapyDevice*, int direction, std::size_t channel) = nullptr;
    int (*setFrequency)(SoapyDevice*, int direction, std::size_t channel, double hz,
                        const SoapyArguments* arguments) = nullptr;
    double (*getFrequency)(const SoapyDevice*, int direction, std::size_t channel) = nullptr;
    int (*setGain)(SoapyDevice*, int direction, std::size_t channel, double db) = nullptr;
    int (*setGainMode)(SoapyDevice*, int direction, std::size_t channel, bool automatic) = nullptr;
    int (*setAntenna)(SoapyDevice*, int direction, std::size_t channel, const char*) = nullptr;
    char* (*getAntenna)(const SoapyDevice*, int direction, std::size_t channel) = nullptr;
    int (*setBandwidth)(SoapyDevice*, int direction, std::size_t channel, double hz) = nullptr;
    int (*setClockSource)(SoapyDevice*, const char*) = nullptr;
    char* (*getClockSource)(const SoapyDevice*) = nullptr;
    bool (*hasCorrection)(const SoapyDevice*, int direction, std::size_t channel) = nullptr;
    int (*setCorrection)(SoapyDevice*, int direction, std::size_t channel, double ppm) = nullptr;
    int (*writeSetting)(SoapyDevice*, const char* key, const char* value) = nullptr;
    char* (*readSetting)(const SoapyDevice*, const char* key) = nullptr;
    SoapyStream* (*setupStream)(SoapyDevice*, int direction, const char* format,
                                const std::size_t* channels, std::size_t count,
                                const SoapyArguments* arguments) = nullptr;
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
