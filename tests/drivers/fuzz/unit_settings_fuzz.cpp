// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as hm-16.ini: each setting stays in its range, and no fault carries a byte to the
// terminal that would act there.
#include <algorithm>
#include <cstdint>
#include <string>

#include "drivers/simulated/options.h"
#include "tests/fuzz/check.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    hm16::Settings settings = hm16::Settings::parse(text, "hm-16.ini");
    const hm16::simulated::Options options = hm16::simulated::readOptions(settings);
    FUZZ_CHECK(options.version >= 0 && options.version <= 9.9f);
    FUZZ_CHECK(options.pace >= 0.1 && options.pace <= 10000);
    FUZZ_CHECK(options.levelStep >= 0 && options.levelStep <= 10);
    FUZZ_CHECK(options.silentAfter >= 0 && options.silentAfter <= 1e6);
    FUZZ_CHECK(options.superFailsAfter >= 0 && options.superFailsAfter <= 1000000);
    FUZZ_CHECK(options.garbageEvery >= 1 && options.responsePairs >= 0 &&
               options.responsePairs <= 8);
    const double scaled = settings.scaled("pace", 1, 0, 5);
    FUZZ_CHECK(scaled >= 0 && scaled <= 5);
    for (const std::string& fault : settings.faults()) {
        const auto acts = [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7f; };
        FUZZ_CHECK(std::ranges::none_of(fault, acts));
    }
    return 0;
}
