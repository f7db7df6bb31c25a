// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as a session: read, shown, drawn and written back.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <string>

#include "analyzer/analyzer_graphs.h"
#include "analyzer/place_text.h"
#include "analyzer/scan_rules.h"
#include "analyzer/session_bytes.h"
#include "analyzer/session_date.h"
#include "tests/fuzz/check.h"

namespace {

using namespace hmonitor;

void shown(const SessionInfo& info) {
    FUZZ_CHECK(info.Acquisitions >= 0);
    FUZZ_CHECK(std::isfinite(info.Created));
    FUZZ_CHECK(info.Comment.size() <= 3 * kLongestSessionText);
    const display::Date date = dateOfSerial(info.Created);
    FUZZ_CHECK(date.year >= 100 && date.year <= 9999);
    FUZZ_CHECK(date.month >= 1 && date.month <= 12 && date.hour >= 0 && date.hour <= 23);
    FUZZ_CHECK(!latitudeText(info.Latitude, "none").empty());
    FUZZ_CHECK(!longitudeText(info.Longitude, "none").empty());
    FUZZ_CHECK(!altitudeText(info.Altitude, "none").empty());
    (void)PlaceFields::of(info.Latitude).place();
    const ScanRange range = ScanRange::limited(info.StartMHz, info.StopMHz);
    if (!range.measures()) return;
    FUZZ_CHECK(range.first() >= -20 && range.last() <= 800 && range.first() <= range.last());
}

/// At most so many cells can be filled as the input has bytes; all others are empty.
void cellsShown(const Density& density, std::size_t filled, int sweeps) {
    static const Density kEmpty;
    const auto cells = density.cells();
    filled = std::min(filled, cells.size());
    const auto rest = cells.subspan(filled);
    FUZZ_CHECK(std::memcmp(rest.data(), kEmpty.cells().data(), rest.size_bytes()) == 0);
    FUZZ_CHECK(densityEntry(0, sweeps) == kNotSeen);
    for (const double cell : cells.first(filled)) {
        const int entry = densityEntry(cell, sweeps);
        FUZZ_CHECK(entry == kNotSeen || (entry >= 1 && entry <= 1280));
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    SessionInfo info;
    // Kept from input to input, half a megabyte each: reading clears them.
    static Density density, cells;
    const SessionCondition condition = readSession(bytes, info, density);
    shown(info);
    cellsShown(density, size / sizeof(double), std::max(info.Acquisitions, 1));

    // A whole session is written back unchanged; any other becomes a whole one, which then stays
    // unchanged.
    const std::string written = sessionBytes(info, density);
    if (condition == SessionCondition::Whole) FUZZ_CHECK(written == bytes);
    SessionInfo again;
    readSession(written, again, cells);
    FUZZ_CHECK(sessionBytes(again, cells) == written);
    return 0;
}
