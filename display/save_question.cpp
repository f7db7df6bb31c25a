// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/save_question.h"

#include <algorithm>

namespace display {

namespace {

char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

}  // namespace

const SaveQuestion::Kind* kindOf(std::string_view path,
                                 const std::vector<SaveQuestion::Kind>& kinds) {
    const std::string_view name = path.substr(path.find_last_of('/') + 1);
    const std::size_t point = name.find_last_of('.');
    // In a name like ".png" the ending is the name: it has no ending.
    if (point == std::string_view::npos || point == 0) return nullptr;
    const auto found = std::ranges::find_if(kinds, [&](const SaveQuestion::Kind& kind) {
        return std::ranges::equal(name.substr(point + 1), kind.ending, {}, lower, lower);
    });
    return found == kinds.end() ? nullptr : &*found;
}

std::string withEnding(std::string_view path, const std::vector<SaveQuestion::Kind>& kinds,
                       const SaveQuestion::Kind& chosen) {
    std::string named(path);
    return kindOf(path, kinds) ? named : named + "." + chosen.ending;
}

}  // namespace display
