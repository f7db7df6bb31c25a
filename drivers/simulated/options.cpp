// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/simulated/options.h"

#include "base/plain_text.h"

#include <string>
#include <string_view>

namespace hm16::simulated {

namespace {

// The whole number at `place` of "YYYY-MM-DD HH:MM:SS", nothing where it is none.
std::optional<int> partOf(std::string_view text, std::size_t place, std::size_t length) {
    int value = 0;
    for (const char c : text.substr(place, length)) {
        if (c < '0' || c > '9') return std::nullopt;
        value = value * 10 + (c - '0');
    }
    return value;
}

constexpr int kLastYear = 2199;

std::optional<LocalTime> timeIn(std::string_view text) {
    constexpr std::string_view kShape = "0000-00-00 00:00:00";
    if (text.size() != kShape.size()) return std::nullopt;
    for (const std::size_t mark : {4, 7, 10, 13, 16}) {
        if (text[mark] != kShape[mark]) return std::nullopt;
    }
    const auto year = partOf(text, 0, 4), month = partOf(text, 5, 2), day = partOf(text, 8, 2);
    const auto hour = partOf(text, 11, 2), minute = partOf(text, 14, 2),
               second = partOf(text, 17, 2);
    if (!year || !month || !day || !hour || !minute || !second) return std::nullopt;
    const LocalTime time{*year, *month, *day, *hour, *minute, *second};
    // The system counts nanoseconds to 2262.
    if (*year < 1970 || *year > kLastYear || localTimeAt(momentOf(time)) != time)
        return std::nullopt;
    return time;
}

}  // namespace

Options readOptions(Settings& settings) {
    Options options;
    options.version = static_cast<float>(settings.number("version", options.version, 0, 9.9));
    options.seed = static_cast<std::uint64_t>(settings.whole("seed", 16, 0, 2147483647));
    options.pace = settings.number("pace", options.pace, 0.1, 10000);
    options.levelStep = settings.number("level_step_db", options.levelStep, 0, 10);
    options.silentAfter = settings.number("silent_after", options.silentAfter, 0, 1e6);
    options.superFailsAfter = settings.whole("super_fails_after", 0, 0, 1000000);
    options.garbage = static_cast<Garbage>(
        settings.choice("garbage", {"none", "nan", "infinity", "huge", "random"}, 0));
    options.garbageEvery = settings.whole("garbage_every", options.garbageEvery, 1, 1000000);
    options.responsePairs = settings.whole("response_pairs", options.responsePairs, 0, 8);
    const std::string clock = settings.text("clock", "now");
    if (clock != "now") {
        options.clock = timeIn(clock);
        if (!options.clock) {
            settings.addFault("clock", "is " + base::inQuotes(clock) +
                                           ", but must be now or a time such as "
                                           "2026-03-04 22:59:50.");
        }
    }
    return options;
}

}  // namespace hm16::simulated
