// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as the stored frequency response of a station.
#include <cstdint>
#include <string>

#include "analyses/response_curve.h"
#include "analyses/response_file.h"
#include "tests/fuzz/check.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace hmonitor;
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    const ResponsePairs pairs = ResponseFile::parse(bytes);
    const ResponsePairs again = ResponseFile::parse(ResponseFile::compose(pairs));
    FUZZ_CHECK(again.level == pairs.level);
    FUZZ_CHECK(again.frequency == pairs.frequency);

    const int results = ResponseCurve::resultsIn(pairs);
    FUZZ_CHECK(results >= 0 && results <= 8);
    const auto rows = ResponseCurve::of(pairs).rows();
    FUZZ_CHECK(rows.size() <= static_cast<std::size_t>(results));
    if (rows.empty()) return 0;
    // The last row always has its label, because nothing is written after it.
    FUZZ_CHECK(!rows.back().label.empty());
    for (const auto& row : rows) FUZZ_CHECK(!row.data.empty());
    return 0;
}
