// SPDX-License-Identifier: GPL-3.0-or-later
#include <array>
#include <charconv>

#include "base/leftovers.h"

namespace base {

namespace {

constexpr std::string_view kStart = ".hmonitor-";
constexpr std::string_view kEnd = ".rewrite";

void append(std::string& text, long number) {
    std::array<char, 20> digits;
    text.append(digits.data(),
                std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr);
}

}  // namespace

std::string leftoverName(long process, int number) {
    std::string name(kStart);
    append(name, process);
    name += '-';
    append(name, number);
    name += kEnd;
    return name;
}

bool isLeftover(std::string_view fileName) {
    return fileName.starts_with(kStart) && fileName.ends_with(kEnd);
}

}  // namespace base
