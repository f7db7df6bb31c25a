// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace display {

/// What the user is asked before a file is written: its place, its name and, by the ending, what is
/// written there.
struct SaveQuestion {
    /// One kind of file that can be written.
    struct Kind {
        std::string words;   ///< "Picture"
        std::string ending;  ///< "png"
    };
    std::string title;        ///< of the dialog
    std::string stem;         ///< the proposed name, without an ending
    std::vector<Kind> kinds;  ///< at least one; the first is the proposed one
};

/// Which of the kinds a path ends with, whatever the case; null for none of them.
const SaveQuestion::Kind* kindOf(std::string_view path,
                                 const std::vector<SaveQuestion::Kind>& kinds);
/// The path itself where its ending is one of the kinds, else with the ending of `chosen` behind
/// it.
std::string withEnding(std::string_view path, const std::vector<SaveQuestion::Kind>& kinds,
                       const SaveQuestion::Kind& chosen);

}  // namespace display
