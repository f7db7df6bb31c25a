// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/leftovers.h"
#include "base/number_text.h"

namespace base {

namespace {

constexpr std::string_view kStart = ".hmonitor-";
constexpr std::string_view kEnd = ".rewrite";

}  // namespace

std::string leftoverName(long process, int number) {
    std::string name(kStart);
    name += wholeText(process).view();
    name += '-';
    name += wholeText(number).view();
    name += kEnd;
    return name;
}

bool isLeftover(std::string_view fileName) {
    return fileName.starts_with(kStart) && fileName.ends_with(kEnd);
}

}  // namespace base
