// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/text_lines.h"

namespace hmonitor {

std::optional<std::string_view> TextLines::next() {
    if (rest_.empty()) return std::nullopt;
    const std::size_t feed = rest_.find('\n');
    std::string_view line = rest_.substr(0, feed);
    rest_.remove_prefix(feed == std::string_view::npos ? rest_.size() : feed + 1);
    if (line.ends_with('\r')) line.remove_suffix(1);  // also where a torn file lost its line feed
    return line;
}

std::string joinLines(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) text.append(line).append("\r\n");
    return text;
}

}  // namespace hmonitor
