// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <string>

#include "drivers/host/call_page.h"

namespace hm16 {

// The last calls, so that whoever wrote a library sees what it was asked before it failed. Calls of
// one function in a row are one entry with their number; readings are a hundred a second, so they
// count together until something else is called.
class CallJournal {
 public:
    void begin(const CallValues& values);
    void end(const CallValues& values);

    // Oldest first, a line each: time of day, call, result, how long it took.
    std::string text() const;

 private:
    using Clock = std::chrono::system_clock;

    struct Entry {
        Call call = Call::None;
        float number = 0;
        std::array<std::int32_t, 4> wholes{};
        std::int32_t result = 0;
        std::uint32_t times = 0;
        bool returned = false;
        Clock::time_point begun;
        Clock::duration lasted{};
    };

    // The youngest entry of the function if nothing but readings came since.
    Entry* sameReading(Call call);
    static std::string line(const Entry& entry);

    static constexpr std::size_t kEntries = 128;
    std::array<Entry, kEntries> entries_;
    std::size_t count_ = 0;  // of all that ever came
    Entry* open_ = nullptr;
};

}  // namespace hm16
