// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as the stored results of a station.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string>

#include "drivers/unit/station_results.h"
#include "tests/fuzz/check.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using hm16::StationResults;
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    StationResults results = StationResults::parse(985, text);
    FUZZ_CHECK(results.seconds() >= 0 && std::isfinite(results.seconds()));
    hm16::Readings readings;
    readings.noiseLeft = -60;
    readings.peakModulation = 90;
    results.add(readings, 1);
    const hm16::LocalTime now{2026, 3, 4, 9, 5, 7};
    const std::string written = results.text(now);
    FUZZ_CHECK(std::ranges::count(written, '\n') == 24);
    FUZZ_CHECK(written.find("nan") == std::string::npos &&
               written.find("inf") == std::string::npos);
    // What was written is read again as it was, but for a noise that is rounded to 0: none.
    const std::string again = StationResults::parse(985, written).text(now);
    FUZZ_CHECK(StationResults::parse(985, again).text(now) == again);
    FUZZ_CHECK(StationResults::parse(985, written).seconds() == std::floor(results.seconds()));
    return 0;
}
