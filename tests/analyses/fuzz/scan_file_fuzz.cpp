// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as the file of the last band scan.
#include <algorithm>
#include <cstdint>
#include <string>

#include "analyses/scan_file.h"
#include "core/code_page.h"
#include "core/numbers.h"
#include "tests/fuzz/check.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace hmonitor;
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    const auto lines = ScanFile::lines(bytes);
    const auto feeds = static_cast<std::size_t>(std::count(bytes.begin(), bytes.end(), '\n'));
    const std::size_t there = feeds + (!bytes.empty() && bytes.back() != '\n' ? 1 : 0);
    FUZZ_CHECK(lines.size() == std::min<std::size_t>(there, 103));
    std::string rest = bytes;
    ScanFile written;
    for (const std::string& line : lines) {
        FUZZ_CHECK(line.find('\n') == std::string::npos);
        const std::string raw = codePageFromUtf8(line);
        FUZZ_CHECK(rest.starts_with(raw));
        rest.erase(0, std::min(rest.find('\n'), rest.size() - 1) + 1);
        written.add(toWhole(valueOf(line)));
    }
    // Whatever level the scanner stores, it is read back without its sign.
    const auto back = ScanFile::lines(written.bytes());
    FUZZ_CHECK(back.size() == lines.size());
    for (std::size_t i = 0; i < back.size(); ++i) {
        const double stored = toWhole(valueOf(lines[i]));
        FUZZ_CHECK(valueOf(back[i]) == (stored < 0 ? -stored : stored));
    }
    return 0;
}
