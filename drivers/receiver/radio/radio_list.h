// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

namespace hm16::receiver {

// A radio that SoapySDR has found.
struct ListedRadio {
    std::string driver;
    std::string device;  // arguments by which it is opened
    std::string label;   // in its driver's words
};

// The connected radios, without sound cards; with a driver's name only those of that driver. Throws
// SourceError without SoapySDR.
std::vector<ListedRadio> listRadios(const std::string& library, const std::string& driver);

}  // namespace hm16::receiver
