// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "base/shared_object.h"
#include "drivers/hm16.h"

namespace hm16 {

// Looks up the nineteen functions in a shared object.
struct SymbolTable {
    HM16_Functions functions{};
    // Required functions that are missing, or whose names are data.
    std::vector<std::string> missing;
};

SymbolTable readSymbols(const base::SharedObject& object);

}  // namespace hm16
