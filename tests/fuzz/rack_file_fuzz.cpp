// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as what the program remembers of its window: a place on some screen, written so that it
// reads the same.
#include <cstdint>
#include <string_view>

#include "program/rack_file.h"
#include "tests/fuzz/check.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using hmonitor::RackFile;
    const RackFile file = RackFile::parse({reinterpret_cast<const char*>(data), size});
    for (const int pixels : {file.place.left, file.place.top, file.place.width})
        FUZZ_CHECK(pixels >= -100000 && pixels <= 100000);
    FUZZ_CHECK(RackFile::parse(file.text()).text() == file.text());
    return 0;
}
