// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/radio/soapy_library.h"

namespace hm16::receiver {
namespace {

base::SharedObject opened(const std::string& file) {
    std::string reason;
    base::SharedObject object = base::SharedObject::open(file, reason);
    if (!object) throw NoSoapy("SoapySDR cannot be loaded: " + reason + ".");
    return object;
}

}  // namespace

SoapyLibrary::SoapyLibrary(const std::string& file) : object_(opened(file)) {
    const auto take = [&](const char* name, auto& function) {
        if (!object_.take(name, function))
            throw NoSoapy(file + " has no function " + name + "; SoapySDR 0.8 is needed.");
    };
    take("SoapySDRDevice_makeStrArgs", make);
    take("SoapySDRDevice_unmake", unmake);
    take("SoapySDRDevice_lastError", lastError);
    take("SoapySDR_free", release);
    take("SoapySDR_errToStr", errorText);
    take("SoapySDRDevice_enumerate", enumerate);
    take("SoapySDRKwargsList_clear", clearList);
    take("SoapySDRDevice_setSampleRate", setSampleRate);
    take("SoapySDRDevice_getSampleRate", getSampleRate);
    take("SoapySDRDevice_setFrequency", setFrequency);
    take("SoapySDRDevice_getFrequency", getFrequency);
    take("SoapySDRDevice_setGain", setGain);
    take("SoapySDRDevice_setGainMode", setGainMode);
    take("SoapySDRDevice_setAntenna", setAntenna);
    take("SoapySDRDevice_getAntenna", getAntenna);
    take("SoapySDRDevice_setBandwidth", setBandwidth);
    take("SoapySDRDevice_setClockSource", setClockSource);
    take("SoapySDRDevice_getClockSource", getClockSource);
    take("SoapySDRDevice_hasFrequencyCorrection", hasCorrection);
    take("SoapySDRDevice_setFrequencyCorrection", setCorrection);
    take("SoapySDRDevice_writeSetting", writeSetting);
    take("SoapySDRDevice_readSetting", readSetting);
    take("SoapySDRDevice_setupStream", setupStream);
    take("SoapySDRDevice_closeStream", closeStream);
    take("SoapySDRDevice_activateStream", activateStream);
    take("SoapySDRDevice_deactivateStream", deactivateStream);
    take("SoapySDRDevice_readStream", readStream);
}

}  // namespace hm16::receiver
