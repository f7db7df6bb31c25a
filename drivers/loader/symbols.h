// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "base/shared_object.h"
#include "drivers/hm16.h"

namespace hm16 {

// The nineteen functions as a shared object has them.
struct SymbolTable {
    HM16_Functions functions{};
    // Required functions that are not there, or are data under a function's name.
    std::vector<std::string> missing;
};

SymbolTable readSymbols(const base::SharedObject& object);

}  // namespace hm16
