// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/limits_reader.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "base/number_in_text.h"
#include "base/number_text.h"
#include "base/plain_text.h"
#include "core/text_lines.h"

namespace hmonitor {

namespace {

using base::trimmed;

/// What somebody wrote, without control characters: the sentence is shown.
std::string inQuotes(std::string_view text) {
    std::string shown(text);
    std::ranges::replace_if(
        shown, [](char byte) { return static_cast<unsigned char>(byte) < 0x20 || byte == 0x7f; },
        '?');
    return base::inQuotes(shown);
}

bool isComment(std::string_view line) {
    return line.empty() || line.front() == ';' || line.front() == '#';
}

/// What no figure and no time goes beyond.
constexpr double kMostNumber = 1e6;

std::optional<double> boundIn(std::string_view text) {
    const auto number = base::numberIn(text);
    if (!number || *number < -kMostNumber || *number > kMostNumber) return std::nullopt;
    return number;
}

}  // namespace

LimitsFile::Parsed LimitsReader::read(std::string_view text) {
    TextLines lines(text);
    while (!fault_) {
        const auto next = lines.next();
        if (!next) break;
        ++line_;
        line(*next);
    }
    endSection();
    if (fault_) return *fault_;
    file_.tail = std::move(comments_);
    return std::move(file_);
}

void LimitsReader::line(std::string_view text) {
    const std::string_view bare = trimmed(text);
    if (isComment(bare)) {
        comments_.emplace_back(text);
        return;
    }
    if (bare.front() == '[') {
        endSection();
        if (!fault_) beginSection(bare);
        if (rule_) rule_->lines.emplace_back(text);
        return;
    }
    const std::size_t sign = bare.find('=');
    if (sign == std::string_view::npos) {
        return wrong("hay que escribir \"clave = valor\"", "it takes \"key = value\"");
    }
    if (!rule_) {
        return wrong("falta la sección de la regla, como [portadora]",
                     "the rule's section is missing, such as [carrier]");
    }
    // A comment between two settings is the section's.
    std::ranges::move(comments_, std::back_inserter(rule_->lines));
    comments_.clear();
    rule_->lines.emplace_back(text);
    setting(trimmed(bare.substr(0, sign)), trimmed(bare.substr(sign + 1)));
}

void LimitsReader::beginSection(std::string_view text) {
    const std::string_view name = trimmed(text.substr(1, text.find(']') - 1));
    if (text.back() != ']' || name.empty() || text.find(']') + 1 != text.size()) {
        return wrong("una sección se escribe [nombre]", "a section is written [name]");
    }
    const bool twice = std::ranges::find(file_.rules, name, &LimitRule::name) != file_.rules.end();
    if (twice) {
        return wrong("la sección " + inQuotes(name) + " está dos veces",
                     "section " + inQuotes(name) + " stands there twice");
    }
    if (file_.rules.size() == LimitsFile::kMostRules) {
        const std::string most = base::wholeText(LimitsFile::kMostRules).str();
        return wrong("hay más de " + most + " reglas", "there are more than " + most + " rules");
    }
    if (file_.rules.empty()) keepHead();
    rule_.emplace();
    rule_->name = name;
    rule_->comment = std::move(comments_);
    comments_.clear();
    had_ = {};
    sectionLine_ = line_;
}

/// What stands above the first rule up to an empty line belongs to the file.
void LimitsReader::keepHead() {
    const auto last = std::find_if(comments_.rbegin(), comments_.rend(),
                                   [](const std::string& line) { return trimmed(line).empty(); });
    file_.head.assign(comments_.begin(), last.base());
    comments_.erase(comments_.begin(), last.base());
}

void LimitsReader::endSection() {
    if (!rule_ || fault_) return;
    const int here = line_;
    line_ = sectionLine_;
    if (!had_.figure) {
        wrong("falta figure en esta regla", "this rule lacks its figure");
    } else if (!had_.above && !had_.below && !had_.outside) {
        wrong("esta regla necesita above, below u outside",
              "this rule needs above, below or outside");
    } else if (rule_->good.lowest > rule_->good.highest) {
        wrong("el límite inferior es mayor que el superior",
              "the lower bound is above the upper one");
    }
    line_ = here;
    if (fault_) return;
    // Empty lines behind the last setting are the rule's; the next one's comments are not.
    auto empty = comments_.begin();
    while (empty != comments_.end() && trimmed(*empty).empty()) ++empty;
    std::move(comments_.begin(), empty, std::back_inserter(rule_->lines));
    comments_.erase(comments_.begin(), empty);
    file_.rules.push_back(std::move(*rule_));
    rule_.reset();
}

bool LimitsReader::once(bool& had, std::string_view key) {
    if (had) {
        wrong(inQuotes(key) + " está dos veces en la regla",
              inQuotes(key) + " stands twice in the rule");
    }
    const bool first = !had;
    had = true;
    return first;
}

void LimitsReader::setting(std::string_view key, std::string_view value) {
    if (key == "figure") return figure(value);
    if (key == "severity") return severity(value);
    if (bound(key, value) || time(key, value)) return;
    wrong(inQuotes(key) + " no es una clave de las reglas",
          inQuotes(key) + " is no setting of a rule");
}

void LimitsReader::figure(std::string_view value) {
    if (!once(had_.figure, "figure")) return;
    rule_->figure = figures::find(value);
    if (rule_->figure) return;
    wrong(inQuotes(value) + " no es ninguna medida", inQuotes(value) + " is no figure");
}

void LimitsReader::severity(std::string_view value) {
    if (!once(had_.severity, "severity")) return;
    if (value == "warning" || value == "alarm") {
        rule_->severity = value == "alarm" ? LimitSeverity::Alarm : LimitSeverity::Warning;
        return;
    }
    wrong("severity es warning o alarm, no " + inQuotes(value),
          "severity is warning or alarm, not " + inQuotes(value));
}

bool LimitsReader::bound(std::string_view key, std::string_view value) {
    const bool above = key == "above", below = key == "below", outside = key == "outside";
    if (!above && !below && !outside) return false;
    bool& had = above ? had_.above : below ? had_.below : had_.outside;
    if (!once(had, key)) return true;
    if (had_.outside && (had_.above || had_.below)) {
        wrong("outside no va con above ni below", "outside does not go with above or below");
        return true;
    }
    const std::size_t blank = outside ? value.find_first_of(" \t") : std::string_view::npos;
    const auto first = boundIn(value.substr(0, blank));
    const auto second =
        blank == std::string_view::npos ? std::nullopt : boundIn(value.substr(blank));
    if (!first || (outside && !second)) {
        wrong(std::string(key) + (outside ? " lleva dos números" : " lleva un número") + ", no " +
                  inQuotes(value),
              std::string(key) + (outside ? " takes two numbers" : " takes a number") + ", not " +
                  inQuotes(value));
        return true;
    }
    if (!above) rule_->good.lowest = static_cast<float>(*first);
    if (above) rule_->good.highest = static_cast<float>(*first);
    if (outside) rule_->good.highest = static_cast<float>(*second);
    return true;
}

bool LimitsReader::time(std::string_view key, std::string_view value) {
    const bool holds = key == "for";
    if (!holds && key != "release") return false;
    if (!once(holds ? had_.holdsFor : had_.release, key)) return true;
    const auto seconds = base::numberIn(value);
    if (!seconds || *seconds < 0 || *seconds > LimitRule::kLongestTime) {
        const std::string most = base::wholeText(int(LimitRule::kLongestTime)).str();
        wrong(std::string(key) + " lleva segundos, de 0 a " + most + ", no " + inQuotes(value),
              std::string(key) + " takes seconds, 0 to " + most + ", not " + inQuotes(value));
        return true;
    }
    (holds ? rule_->holdsFor : rule_->release) = *seconds;
    return true;
}

void LimitsReader::wrong(const std::string& spanish, const std::string& english) {
    if (fault_) return;
    const std::string number = base::wholeText(line_).str();
    const std::string name(LimitsFile::kFileName);
    fault_ = {name + ", línea " + number + ": " + spanish,
              name + ", line " + number + ": " + english};
}

}  // namespace hmonitor
