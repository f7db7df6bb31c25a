// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/radio/soapy_library.h"

#include "drivers/receiver/samples/sample_source.h"

#if defined(_WIN32)
#include <windows.h>
#else
#include <dlfcn.h>
#endif

namespace hm16::receiver {
namespace {

#if defined(_WIN32)
void* openShared(const std::string& file, std::string& reason) {
    void* handle = reinterpret_cast<void*>(LoadLibraryA(file.c_str()));
    if (!handle) reason = "error " + std::to_string(GetLastError());
    return handle;
}
void closeShared(void* handle) {
    FreeLibrary(static_cast<HMODULE>(handle));
}
void* functionIn(void* handle, const char* name) {
    return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(handle), name));
}
#else
void* openShared(const std::string& file, std::string& reason) {
    void* handle = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!handle) reason = dlerror();
    return handle;
}
void closeShared(void* handle) {
    dlclose(handle);
}
void* functionIn(void* handle, const char* name) {
    return dlsym(handle, name);
}
#endif

template <typename Function>
void take(void* handle, const std::string& file, const char* name, Function& function) {
    void* found = functionIn(handle, name);
    if (!found) {
        closeShared(handle);
        throw SourceError(file + " has no function " + name + "; SoapySDR 0.8 is needed.");
    }
    function = reinterpret_cast<Function>(found);
}

}  // namespace

SoapyLibrary::SoapyLibrary(const std::string& file) {
    std::string reason;
    handle_ = openShared(file, reason);
    if (!handle_) throw SourceError("SoapySDR cannot be loaded: " + reason + ".");
    take(handle_, file, "SoapySDRDevice_makeStrArgs", make);
    take(handle_, file, "SoapySDRDevice_unmake", unmake);
    take(handle_, file, "SoapySDRDevice_lastError", lastError);
    take(handle_, file, "SoapySDR_free", release);
    take(handle_, file, "SoapySDR_errToStr", errorText);
    take(handle_, file, "SoapySDRDevice_enumerate", enumerate);
    take(handle_, file, "SoapySDRKwargsList_clear", clearList);
    take(handle_, file, "SoapySDRDevice_setSampleRate", setSampleRate);
    take(handle_, file, "SoapySDRDevice_getSampleRate", getSampleRate);
    take(handle_, file, "SoapySDRDevice_setFrequency", setFrequency);
    take(handle_, file, "SoapySDRDevice_getFrequency", getFrequency);
    take(handle_, file, "SoapySDRDevice_setGain", setGain);
    take(handle_, file, "SoapySDRDevice_setGainMode", setGainMode);
    take(handle_, file, "SoapySDRDevice_setAntenna", setAntenna);
    take(handle_, file, "SoapySDRDevice_getAntenna", getAntenna);
    take(handle_, file, "SoapySDRDevice_setBandwidth", setBandwidth);
    take(handle_, file, "SoapySDRDevice_setClockSource", setClockSource);
    take(handle_, file, "SoapySDRDevice_getClockSource", getClockSource);
    take(handle_, file, "SoapySDRDevice_hasFrequencyCorrection", hasCorrection);
    take(handle_, file, "SoapySDRDevice_setFrequencyCorrection", setCorrection);
    take(handle_, file, "SoapySDRDevice_writeSetting", writeSetting);
    take(handle_, file, "SoapySDRDevice_readSetting", readSetting);
    take(handle_, file, "SoapySDRDevice_setupStream", setupStream);
    take(handle_, file, "SoapySDRDevice_closeStream", closeStream);
    take(handle_, file, "SoapySDRDevice_activateStream", activateStream);
    take(handle_, file, "SoapySDRDevice_deactivateStream", deactivateStream);
    take(handle_, file, "SoapySDRDevice_readStream", readStream);
}

SoapyLibrary::~SoapyLibrary() {
    closeShared(handle_);
}

}  // namespace hm16::receiver
