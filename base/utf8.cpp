// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/utf8.h"

#include <utf8.h>

#include <iterator>

namespace base {

Character firstCharacter(std::string_view utf8) {
    if (const char first = utf8.front(); static_cast<unsigned char>(first) < 0x80) {
        return {static_cast<char32_t>(first), 1};
    }
    try {
        const char* at = utf8.data();
        const char32_t number = ::utf8::next(at, utf8.data() + utf8.size());
        return {number, static_cast<std::size_t>(at - utf8.data())};
    } catch (const ::utf8::exception&) {
        return {};
    }
}

void appendCharacter(std::string& utf8, char32_t number) {
    ::utf8::append(number, std::back_inserter(utf8));
}

}  // namespace base
