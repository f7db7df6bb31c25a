// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include "drivers/loader/library.h"

namespace hm16 {

// What is wrong with a library that was loaded.
struct HostTrouble {
    enum class Kind {
        Crashed,    // its process is gone
        Silent,     // a call has lasted for too long, and lasts on
        NotLoaded,  // it could not be loaded anew: see `refusal`
        Left,       // the program goes on without it, and is about to tune
    };
    Kind kind = Kind::Crashed;
    std::filesystem::path file;
    std::string function;  // the one that it worked on; empty: none, it went between two calls
    std::string how;       // of Crashed, in words of the system
    const LoadResult* refusal = nullptr;  // of NotLoaded
    std::string journal;                  // the last calls, a line each
};

// Who decides what becomes of it. May leave by an exception, which ends the library's process.
class HostWatch {
 public:
    enum class Next { StartAgain, GoWithout };

    virtual ~HostWatch() = default;

    // Returns what to do. Where a call lasts on, `over` tells whether it came back meanwhile; then
    // the answer is none.
    virtual std::optional<Next> decide(const HostTrouble& trouble,
                                       const std::function<bool()>& over) = 0;
};

}  // namespace hm16
