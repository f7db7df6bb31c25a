// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/utf8.h"

#include <utf8.h>

#include <algorithm>
#include <iterator>

namespace base {

Character firstCharacter(std::string_view utf8) {
    if (const char first = utf8.front(); static_cast<unsigned char>(first) < 0x80) {
        return {static_cast<char32_t>(first), 1};
    }
    // Looked at before it is read: an exception for each odd byte makes files of the code page
    // slow.
    constexpr std::size_t kLongest = 4;
    const char* at = utf8.data();
    if (::utf8::find_invalid(at, at + std::min(utf8.size(), kLongest)) == at) return {};
    const char32_t number = ::utf8::unchecked::next(at);
    return {number, static_cast<std::size_t>(at - utf8.data())};
}

void appendCharacter(std::string& utf8, char32_t number) {
    ::utf8::append(number, std::back_inserter(utf8));
}

}  // namespace base
