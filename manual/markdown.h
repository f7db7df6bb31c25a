// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace hmonitor {

/// Markdown with tables as HTML without a head. Both UTF-8. HTML in the text stays text.
std::string htmlOfMarkdown(std::string_view markdown);

/// The first heading of the text, "" for none.
std::string_view firstHeading(std::string_view markdown);

}  // namespace hmonitor
