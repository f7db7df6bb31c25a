// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace hmonitor {

/// Walks over the lines of a text in memory. A line ends with a line feed, with or without a
/// carriage return before it; the last one may have no end. All other bytes are kept.
class TextLines {
 public:
    /// `text` must outlive this.
    explicit TextLines(std::string_view text) : rest_(text) {}

    bool atEnd() const { return rest_.empty(); }
    /// The next line without its end, or none behind the last.
    std::optional<std::string_view> next();

 private:
    std::string_view rest_;
};

/// The lines, each closed by carriage return and line feed.
std::string joinLines(const std::vector<std::string>& lines);

}  // namespace hmonitor
