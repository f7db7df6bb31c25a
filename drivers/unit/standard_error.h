// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace hm16 {

// `text` as one line that a terminal prints and never obeys: control characters, and bytes that are
// no UTF-8, stand as "\x1b". Texts of files and radios may hold anything.
std::string printable(std::string_view text);

// Says a sentence to whoever started the program: one line, printable.
void sayOnStandardError(std::string_view sentence);

}  // namespace hm16
