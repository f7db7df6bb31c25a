// SPDX-License-Identifier: GPL-3.0-or-later
// Any text as the limits of the figures: rules that can be watched and a text that stands as it
// stood, or one sentence that names a line.
#include <cmath>
#include <cstdint>
#include <string>
#include <vector>

#include "core/code_page.h"
#include "core/limits_file.h"
#include "core/text_lines.h"
#include "tests/fuzz/check.h"

namespace {

using namespace hmonitor;

std::string wholeLines(std::string_view text) {
    constexpr std::string_view kMarkOfEditors = "\xef\xbb\xbf";
    if (text.starts_with(kMarkOfEditors)) text.remove_prefix(kMarkOfEditors.size());
    std::vector<std::string> lines;
    TextLines rest(text);
    while (const auto line = rest.next()) lines.emplace_back(*line);
    return joinLines(lines);
}

void checkFault(const LimitsFault& fault) {
    FUZZ_CHECK(fault.english.starts_with("limits.ini, line "));
    FUZZ_CHECK(fault.spanish.starts_with("limits.ini, "));
    const auto acts = [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7f; };
    for (const char c : fault.english) FUZZ_CHECK(!acts(c));
    for (const char c : fault.spanish) FUZZ_CHECK(!acts(c));
}

void checkRule(const LimitRule& rule) {
    FUZZ_CHECK(rule.figure != nullptr && !rule.name.empty());
    FUZZ_CHECK(rule.good.lowest <= rule.good.highest);
    FUZZ_CHECK(std::isfinite(rule.good.lowest) || std::isfinite(rule.good.highest));
    for (const double time : {rule.holdsFor, rule.release})
        FUZZ_CHECK(time >= 0 && time <= LimitRule::kLongestTime);
}

void checkRules(const LimitsFile& file) {
    FUZZ_CHECK(file.rules.size() <= LimitsFile::kMostRules);
    for (const LimitRule& rule : file.rules) checkRule(rule);
    // A rule that was changed is written anew, and reads the same.
    LimitsFile changed = file;
    for (LimitRule& rule : changed.rules) rule.lines.clear();
    const auto again = LimitsFile::parse(changed.text());
    const auto* rules = std::get_if<LimitsFile>(&again);
    FUZZ_CHECK(rules && rules->rules.size() == file.rules.size());
    for (std::size_t i = 0; i < file.rules.size(); ++i) {
        FUZZ_CHECK(rules->rules[i].name == file.rules[i].name);
        FUZZ_CHECK(rules->rules[i].figure == file.rules[i].figure);
        FUZZ_CHECK(rules->rules[i].severity == file.rules[i].severity);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // As it comes from the disk, a byte a character.
    const std::string text = utf8FromCodePage({reinterpret_cast<const char*>(data), size});
    const auto parsed = LimitsFile::parse(text);
    if (const auto* fault = std::get_if<LimitsFault>(&parsed)) {
        checkFault(*fault);
        return 0;
    }
    const auto& file = std::get<LimitsFile>(parsed);
    FUZZ_CHECK(file.text() == wholeLines(text));
    checkRules(file);
    return 0;
}
