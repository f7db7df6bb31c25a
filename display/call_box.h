// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "display/desktop.h"

namespace display {

/// The box that stands while a call of the program does not come back: nothing but this box and
/// paint goes on meanwhile, no timer and no input.
class CallBox {
 public:
    virtual ~CallBox() = default;

    /// Shows the box with these keys until one is pressed or `over` tells that nobody needs an
    /// answer any more. Enter presses the first key. Escape and the window's close press a key that
    /// stands alone, and else none: each of several gives something up, and waiting gives up least.
    /// Answers which key, from 0; none when it is over.
    virtual std::optional<std::size_t> standWhile(const MessageBox& box,
                                                  const std::vector<std::string>& keys,
                                                  const std::function<bool()>& over) = 0;
};

}  // namespace display
