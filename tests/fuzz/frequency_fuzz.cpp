// SPDX-License-Identifier: GPL-3.0-or-later
// Any text as a number and as the frequency of a memory record.
#include <cmath>
#include <cstdint>
#include <string>

#include "core/numbers.h"
#include "core/stored_frequency.h"
#include "tests/fuzz/check.h"

namespace {

using namespace hmonitor;

void checkValue(const std::string& text) {
    const double value = valueOf(text);
    FUZZ_CHECK(std::isfinite(value));
    FUZZ_CHECK(!(value == 0 && std::signbit(value)));
    FUZZ_CHECK(valueOf(" " + text) == value);
    FUZZ_CHECK(valueOf(text + "x") == value);
    if (std::fabs(value) < 1e15) {
        const double again = valueOf(shortText(value));
        FUZZ_CHECK(std::fabs(again - value) <= std::fabs(value) * 1e-14 + 1e-28);
        FUZZ_CHECK(valueOf(longText(value)) == again);
        FUZZ_CHECK(std::fabs(valueOf(mask("0.00", value)) - value) <=
                   0.00500001 + std::fabs(value) * 1e-14);
    }
    const SmallText shown = mask("0.0", value);
    FUZZ_CHECK(!(shown == "-0.0"));
    FUZZ_CHECK(!shown.empty());
}

void checkFrequency(const std::string& text) {
    const StoredFrequency stored = parseStoredFrequency(text);
    const double value = valueOf(text);
    FUZZ_CHECK((stored.half == HalfStep::Yes) == (value >= 8755));
    if (stored.half == HalfStep::Yes) {
        FUZZ_CHECK(std::floor(stored.frequency) == stored.frequency);
        if (value > 99999) return;  // more than a record holds; tenths are no longer exact
        FUZZ_CHECK(stored.frequency * 10 <= value && value < stored.frequency * 10 + 10);
    } else {
        FUZZ_CHECK(stored.frequency == value);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    checkValue(text);
    checkFrequency(text);
    return 0;
}
