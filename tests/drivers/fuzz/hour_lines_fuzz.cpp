// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as a day's log into which the line of an hour is inserted.
#include <algorithm>
#include <cstdint>
#include <string>

#include "drivers/unit/day_log.h"
#include "tests/fuzz/check.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view log(reinterpret_cast<const char*>(data), size);
    const std::string line = "9 1 1 1 1 1 999999999 1 1 1 ";
    const std::string with = hm16::withHourLine(log, line);
    const auto lines = std::ranges::count(with, '\n');
    FUZZ_CHECK(lines >= 1 && lines <= 24);
    FUZZ_CHECK(with.ends_with("\r\n"));
    // Inserting into the result changes nothing more.
    FUZZ_CHECK(hm16::withHourLine(with, "24 none") == with);
    return 0;
}
