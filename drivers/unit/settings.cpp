// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/unit/settings.h"

#include <algorithm>
#include <cmath>
#include <system_error>
#include <utility>

#include "base/number_in_text.h"
#include "base/number_text.h"
#include "base/plain_text.h"
#include "base/read_file.h"
#include "base/utf8_path.h"
#include "drivers/unit/standard_error.h"

namespace hm16 {

namespace {

std::string lowered(std::string_view text) {
    std::string result(text);
    for (char& c : result) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return result;
}

}  // namespace

Settings Settings::read(const std::filesystem::path& file) {
    std::error_code error;
    if (!std::filesystem::exists(file, error) && !error) return parse("", base::utf8Of(file));
    const auto read = base::readFile(file);
    Settings settings = parse(read.bytes, base::utf8Of(file));
    if (!read)
        settings.faults_.push_back(base::utf8Of(file) + ": the settings file cannot be read.");
    return settings;
}

Settings Settings::parse(std::string_view text, std::string name) {
    Settings settings;
    settings.name_ = std::move(name);
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
    std::string section;
    for (int number = 1; !text.empty(); ++number) {
        const auto end = text.find('\n');
        settings.takeLine(base::trimmed(text.substr(0, end)), number, section);
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
    return settings;
}

void Settings::takeLine(std::string_view line, int number, std::string& section) {
    if (line.empty() || line.front() == ';' || line.front() == '#') return;
    const std::string where = name_ + ", line " + std::to_string(number) + ": ";
    if (line.front() == '[') {
        if (line.back() != ']') {
            faults_.push_back(where + base::inQuotes(line) + " lacks its closing bracket.");
        }
        const std::string word = lowered(base::trimmed(line.substr(1, line.find(']') - 1)));
        section = word.empty() ? "" : word + ".";
        return;
    }
    const auto equals = line.find('=');
    const std::string key = lowered(base::trimmed(line.substr(0, equals)));
    if (equals == std::string_view::npos || key.empty()) {
        faults_.push_back(where + base::inQuotes(line) + " is no setting; write key = value.");
        return;
    }
    const Entry entry{std::string(base::trimmed(line.substr(equals + 1))), number, false};
    if (!entries_.emplace(section + key, entry).second) {
        faults_.push_back(where + section + key + " is set a second time.");
    }
}

Settings::Entry* Settings::find(std::string_view key) {
    const auto found = entries_.find(key);
    if (found == entries_.end()) return nullptr;
    found->second.asked = true;
    return &found->second;
}

bool Settings::has(std::string_view key) const {
    return entries_.find(key) != entries_.end();
}

void Settings::addFault(std::string_view key, std::string_view wrong) {
    const auto found = entries_.find(key);
    std::string sentence = name_;
    if (found != entries_.end()) sentence += ", line " + std::to_string(found->second.line);
    faults_.push_back(sentence + ": " + std::string(key) + " " + std::string(wrong));
}

double Settings::number(std::string_view key, double fallback, double low, double high) {
    return within(key, base::numberIn, fallback, low, high);
}

double Settings::scaled(std::string_view key, double fallback, double low, double high) {
    return within(key, base::scaledNumberIn, fallback, low, high);
}

double Settings::within(std::string_view key, std::optional<double> (*numberOf)(std::string_view),
                        double fallback, double low, double high) {
    const Entry* entry = find(key);
    if (entry == nullptr) return fallback;
    const auto value = numberOf(entry->value);
    if (value && *value >= low && *value <= high) return *value;
    addFault(key, "is " + base::inQuotes(entry->value) + ", but must be a number from " +
                      base::decimalText(low, 6) + " to " + base::decimalText(high, 6) + ".");
    return fallback;
}

long Settings::whole(std::string_view key, long fallback, long low, long high) {
    const Entry* entry = find(key);
    if (entry == nullptr) return fallback;
    const auto value = base::numberIn(entry->value);
    if (value && *value == std::floor(*value) && *value >= static_cast<double>(low) &&
        *value <= static_cast<double>(high)) {
        return static_cast<long>(*value);
    }
    addFault(key, "is " + base::inQuotes(entry->value) + ", but must be a whole number from " +
                      std::to_string(low) + " to " + std::to_string(high) + ".");
    return fallback;
}

std::string Settings::text(std::string_view key, std::string_view fallback) {
    const Entry* entry = find(key);
    return entry != nullptr ? entry->value : std::string(fallback);
}

std::size_t Settings::choice(std::string_view key, std::initializer_list<std::string_view> words,
                             std::size_t fallback) {
    const Entry* entry = find(key);
    if (entry == nullptr) return fallback;
    const auto found = std::find(words.begin(), words.end(), lowered(entry->value));
    if (found != words.end()) return static_cast<std::size_t>(found - words.begin());
    std::string list;
    for (const auto word : words) list += (list.empty() ? "" : ", ") + std::string(word);
    addFault(key, "is " + base::inQuotes(entry->value) + ", but must be one of: " + list + ".");
    return fallback;
}

std::vector<std::string> Settings::faults() const {
    std::vector<std::string> all = faults_;
    std::vector<std::pair<int, std::string>> unknown;
    for (const auto& [key, entry] : entries_) {
        if (!entry.asked) unknown.emplace_back(entry.line, key);
    }
    std::sort(unknown.begin(), unknown.end());
    for (const auto& [line, key] : unknown) {
        all.push_back(name_ + ", line " + std::to_string(line) + ": " + key +
                      " is no setting of this library.");
    }
    for (std::string& fault : all) fault = printable(fault);
    return all;
}

}  // namespace hm16
