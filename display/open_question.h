// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "display/save_question.h"

namespace display {

/// What the user is asked before a file is read.
struct OpenQuestion {
    std::string title;                      ///< of the dialog
    std::vector<SaveQuestion::Kind> kinds;  ///< those that can be read; empty for every file
};

}  // namespace display
