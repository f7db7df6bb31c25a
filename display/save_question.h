// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace display {

/// The question where to save a file: it proposes a name and the kinds of file that can be written;
/// the ending of the name decides the kind.
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

/// The kind whose ending the path has, whatever the case; null for none of them.
const SaveQuestion::Kind* kindOf(std::string_view path,
                                 const std::vector<SaveQuestion::Kind>& kinds);
/// The path, with the ending of `chosen` appended if it has none of the kinds' endings.
std::string withEnding(std::string_view path, const std::vector<SaveQuestion::Kind>& kinds,
                       const SaveQuestion::Kind& chosen);

}  // namespace display
