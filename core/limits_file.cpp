// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/limits_file.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "base/number_text.h"
#include "core/code_page.h"
#include "core/limits_reader.h"
#include "core/text_lines.h"

namespace hmonitor {

namespace {

constexpr double kNoBound = std::numeric_limits<double>::infinity();

LimitRule usualRule(const char* name, const char* figure, double lowest, double highest,
                    double holdsFor, double release, LimitSeverity severity) {
    LimitRule rule;
    rule.name = name;
    rule.figure = figures::find(figure);
    rule.good = {static_cast<float>(lowest), static_cast<float>(highest)};
    rule.holdsFor = holdsFor;
    rule.release = release;
    rule.severity = severity;
    return rule;
}

}  // namespace

LimitsFile LimitsFile::usual() {
    LimitsFile file;
    file.head = {
        "; Limits of the figures, a section for each rule; docs/formats.md says what may stand "
        "here.",
        ""};
    // A peak of the programme is over at once, so that it counts when it comes and is shown for a
    // while; what stands still is judged after a while.
    file.rules = {
        usualRule("deviation", "deviation_peak", -kNoBound, 77, 0, 10, LimitSeverity::Alarm),
        usualRule("pilot level", "pilot_level", 8, 10, 5, 5, LimitSeverity::Warning),
        usualRule("pilot frequency", "pilot_error", -2, 2, 5, 5, LimitSeverity::Warning),
        usualRule("carrier", "carrier_error", -1000, 1000, 5, 5, LimitSeverity::Alarm),
        usualRule("RDS frequency", "rds_error", -6, 6, 5, 5, LimitSeverity::Warning)};
    return file;
}

std::string limitText(double value) {
    return base::decimalText(value, 3);
}

std::vector<std::string> linesOf(const LimitRule& rule) {
    const bool low = std::isfinite(rule.good.lowest), high = std::isfinite(rule.good.highest);
    std::vector<std::string> lines{"[" + rule.name + "]",
                                   "figure = " + std::string(rule.figure->key)};
    if (low && high) {
        lines.push_back("outside = " + limitText(rule.good.lowest) + " " +
                        limitText(rule.good.highest));
    } else if (low) {
        lines.push_back("below = " + limitText(rule.good.lowest));
    } else {
        lines.push_back("above = " + limitText(rule.good.highest));
    }
    lines.push_back("for = " + limitText(rule.holdsFor));
    lines.push_back("release = " + limitText(rule.release));
    lines.push_back(rule.severity == LimitSeverity::Alarm ? "severity = alarm"
                                                          : "severity = warning");
    lines.emplace_back();
    return lines;
}

std::string LimitsFile::text() const {
    std::vector<std::string> lines = head;
    for (const LimitRule& rule : rules) {
        lines.insert(lines.end(), rule.comment.begin(), rule.comment.end());
        const std::vector<std::string> its = rule.lines.empty() ? linesOf(rule) : rule.lines;
        lines.insert(lines.end(), its.begin(), its.end());
    }
    lines.insert(lines.end(), tail.begin(), tail.end());
    return joinLines(lines);
}

LimitsFile::Parsed LimitsFile::parse(std::string_view text) {
    return LimitsReader().read(text);
}

LimitsFile::Parsed LimitsFile::read(const Files& files) {
    if (!files.exists(kFileName)) return usual();
    const auto bytes = files.read(kFileName);
    if (!bytes) {
        const std::string name(kFileName);
        return LimitsFault{name + " no se puede leer", bytes.fault().sentence};
    }
    // With such a mark some editors say that a text is UTF-8.
    constexpr std::string_view kMark = "\xef\xbb\xbf";
    if (bytes->starts_with(kMark)) return parse(std::string_view(*bytes).substr(kMark.size()));
    return parse(utf8FromCodePage(*bytes));
}

std::optional<FileFault> LimitsFile::write(const Files& files) const {
    return files.rewrite(kFileName, codePageFromUtf8(text()));
}

}  // namespace hmonitor
