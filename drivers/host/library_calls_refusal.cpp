// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <cstdint>
#include <cstring>
#include <sstream>

#include "drivers/host/library_calls.h"

namespace hm16 {

// The words: the file, the reason and each missing function, a line each.
void writeRefusal(const LoadResult& result, CallPage& page) {
    page.values.wholes[0] = static_cast<std::int32_t>(result.refusal);
    page.values.wholes[1] = static_cast<std::int32_t>(result.fileFault);
    std::string words = result.file.string() + '\n' + result.reason;
    for (const auto& name : result.missing) words += '\n' + name;
    const std::size_t length = std::min(words.size(), sizeof page.text - 1);
    std::memcpy(page.text, words.data(), length);
    page.text[length] = '\0';
}

LoadResult readRefusal(const CallPage& page) {
    LoadResult result;
    result.refusal = static_cast<Refusal>(
        std::clamp(page.values.wholes[0], 0, static_cast<std::int32_t>(Refusal::Hangs)));
    result.fileFault = static_cast<FileFault>(
        std::clamp(page.values.wholes[1], 0, static_cast<std::int32_t>(FileFault::OthersMayWrite)));
    std::istringstream words(std::string(page.text, ::strnlen(page.text, sizeof page.text)));
    std::string line;
    if (std::getline(words, line)) result.file = line;
    std::getline(words, result.reason);
    while (std::getline(words, line)) result.missing.push_back(line);
    result.fault = refusalSentence(result);
    return result;
}

}  // namespace hm16
