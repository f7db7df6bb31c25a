// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "core/files.h"
#include "core/limit_rule.h"

namespace hmonitor {

/// What is wrong in `limits.ini`: a sentence in both languages that names file and line.
struct LimitsFault {
    std::string spanish, english;
};

/// The limits of the figures, `limits.ini`: a section for each rule, comments between them.
struct LimitsFile {
    static constexpr std::string_view kFileName = "limits.ini";
    /// Where a file with a fault is kept when a new one takes its place.
    static constexpr std::string_view kFaultyName = "limits.faulty.ini";
    static constexpr std::size_t kMostRules = 60;

    /// Comments above the first rule's own, and below the last rule.
    std::vector<std::string> head, tail;
    std::vector<LimitRule> rules;

    /// The rules that hold without a file.
    static LimitsFile usual();

    using Parsed = std::variant<LimitsFile, LimitsFault>;
    /// `text` is UTF-8. A file with one fault gives no rules at all.
    static Parsed parse(std::string_view text);
    /// The file of the folder; where there is none, the usual rules.
    static Parsed read(const Files& files);

    /// The lines of rules that were not changed stand as they stood.
    std::string text() const;
    std::optional<FileFault> write(const Files& files) const;
};

/// A rule's lines in the file, without comments.
std::vector<std::string> linesOf(const LimitRule& rule);

/// The number of a bound or a time as the file has it.
std::string limitText(double value);

}  // namespace hmonitor
