// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace base {

/// `text` without blanks, tabs and line ends around it.
inline std::string_view trimmed(std::string_view text) {
    constexpr std::string_view kBlank = " \t\r\n";
    const auto first = text.find_first_not_of(kBlank);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlank) - first + 1);
}

/// `text` in double quotes, as a sentence names what somebody wrote.
inline std::string inQuotes(std::string_view text) {
    std::string quoted(1, '"');
    quoted += text;
    quoted += '"';
    return quoted;
}

}  // namespace base
