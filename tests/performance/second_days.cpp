// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/performance/second_days.h"

#include <fstream>
#include <sstream>
#include <stdexcept>

#include "core/code_page.h"

namespace hmonitor::test {

namespace {

void appendUtf8(std::string& text, unsigned letter) {
    if (letter < 0x80) {
        text += static_cast<char>(letter);
    } else if (letter < 0x800) {
        text += static_cast<char>(0xC0 | letter >> 6);
        text += static_cast<char>(0x80 | (letter & 0x3F));
    } else {
        text += static_cast<char>(0xE0 | letter >> 12);
        text += static_cast<char>(0x80 | (letter >> 6 & 0x3F));
        text += static_cast<char>(0x80 | (letter & 0x3F));
    }
}

std::string plainText(const std::string& text) {
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\') {
            plain += text[i];
            continue;
        }
        const char kind = text.at(++i);
        const std::size_t digits = kind == 'x' ? 2 : kind == 'u' ? 4 : 0;
        if (digits > 0) {
            appendUtf8(plain,
                       static_cast<unsigned>(std::stoul(text.substr(i + 1, digits), nullptr, 16)));
            i += digits;
        } else {
            plain += kind == 't' ? '\t' : kind == 'r' ? '\r' : kind == 'n' ? '\n' : kind;
        }
    }
    return plain;
}

std::vector<std::string> partsOf(const std::string& line) {
    std::vector<std::string> parts;
    std::size_t from = 0;
    for (std::size_t tab = 0; tab != std::string::npos; from = tab + 1) {
        tab = line.find('\t', from);
        parts.push_back(plainText(line.substr(from, tab - from)));
    }
    return parts;
}

std::vector<SecondDay> readDays() {
    std::ifstream file(HMONITOR_SOURCE_DIR "/tests/performance/log_days.txt");
    std::vector<SecondDay> days;
    std::string line;
    while (std::getline(file, line)) {
        std::vector<std::string> parts = partsOf(line);
        const std::string word = parts.front();
        if (word == "day") {
            days.push_back({parts.at(1), codePageFromUtf8(parts.at(2)), {}});
        } else {
            parts.erase(parts.begin());
            days.back().texts[word] = std::move(parts);
        }
    }
    if (days.size() < 10) throw std::runtime_error("log_days.txt has too few days");
    return days;
}

}  // namespace

const std::vector<std::string>& SecondDay::of(const std::string& word) const {
    const auto found = texts.find(word);
    if (found == texts.end()) throw std::runtime_error("log_days.txt has no " + word);
    return found->second;
}

const std::vector<SecondDay>& secondDays() {
    static const std::vector<SecondDay> days = readDays();
    return days;
}

}  // namespace hmonitor::test
