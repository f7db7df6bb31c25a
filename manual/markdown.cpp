// SPDX-License-Identifier: GPL-3.0-or-later
#include "manual/markdown.h"

#include <md4c-html.h>

#include <algorithm>

namespace hmonitor {

namespace {

void append(const MD_CHAR* text, MD_SIZE size, void* html) {
    static_cast<std::string*>(html)->append(text, size);
}

}  // namespace

std::string htmlOfMarkdown(std::string_view markdown) {
    std::string html;
    md_html(markdown.data(), static_cast<MD_SIZE>(markdown.size()), append, &html,
            MD_FLAG_TABLES | MD_FLAG_NOHTML, 0);
    return html;
}

std::string_view firstHeading(std::string_view markdown) {
    std::size_t at = 0;
    while (at < markdown.size()) {
        const std::size_t end = std::min(markdown.find('\n', at), markdown.size());
        std::string_view line = markdown.substr(at, end - at);
        if (line.starts_with("# ")) {
            line.remove_prefix(2);
            if (line.ends_with('\r')) line.remove_suffix(1);
            return line;
        }
        at = end + 1;
    }
    return {};
}

}  // namespace hmonitor
