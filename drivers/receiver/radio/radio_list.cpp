// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/radio/radio_list.h"

#include "drivers/receiver/radio/soapy_library.h"

namespace hm16::receiver {
namespace {

std::string valueOf(const SoapySDRKwargs& arguments, const std::string& key) {
    for (std::size_t n = 0; n < arguments.size; ++n)
        if (key == arguments.keys[n]) return arguments.vals[n];
    return "";
}

ListedRadio radioOf(const SoapySDRKwargs& arguments) {
    ListedRadio radio;
    radio.driver = valueOf(arguments, "driver");
    radio.device = "driver=" + radio.driver;
    const std::string serial = valueOf(arguments, "serial");
    if (!serial.empty()) radio.device += ",serial=" + serial;
    radio.label = valueOf(arguments, "label");
    return radio;
}

}  // namespace

std::vector<ListedRadio> listRadios(const std::string& library, const std::string& driver) {
    const SoapyLibrary soapy(library);
    std::size_t count = 0;
    SoapySDRKwargs* const found = soapy.enumerate(nullptr, &count);
    std::vector<ListedRadio> radios;
    for (std::size_t n = 0; n < count; ++n) {
        const ListedRadio radio = radioOf(found[n]);
        // A sound card is offered as a radio too.
        const bool wanted = driver.empty() ? radio.driver != "audio" : radio.driver == driver;
        if (wanted) radios.push_back(radio);
    }
    soapy.clearList(found, count);
    return radios;
}

}  // namespace hm16::receiver
