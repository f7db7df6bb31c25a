// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as a file of lines, in and out of the code page.
#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "core/code_page.h"
#include "core/text_lines.h"
#include "tests/fuzz/check.h"

namespace {

using namespace hmonitor;

std::vector<std::string> linesOf(const std::string& bytes) {
    std::vector<std::string> lines;
    TextLines text(bytes);
    while (const auto line = text.next()) lines.emplace_back(*line);
    FUZZ_CHECK(text.atEnd());
    return lines;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    const std::vector<std::string> lines = linesOf(bytes);
    const auto feeds = std::count(bytes.begin(), bytes.end(), '\n');
    const bool hasTail = !bytes.empty() && bytes.back() != '\n';
    FUZZ_CHECK(lines.size() == static_cast<std::size_t>(feeds) + (hasTail ? 1 : 0));
    FUZZ_CHECK(linesOf(joinLines(lines)) == lines);
    FUZZ_CHECK(codePageFromUtf8(utf8FromCodePage(bytes)) == bytes);
    const std::string shown = utf8FromCodePage(codePageFromUtf8(bytes));
    FUZZ_CHECK(utf8FromCodePage(codePageFromUtf8(shown)) == shown);
    FUZZ_CHECK(foldedCase(foldedCase(bytes)) == foldedCase(bytes));
    return 0;
}
