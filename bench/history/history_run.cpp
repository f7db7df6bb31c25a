// SPDX-License-Identifier: GPL-3.0-or-later
// Days through recorder and store on a virtual clock: what they take on the disk and of a core.
//
//     history_run DAYS [FOLDER]    flushed to the disk only with HMONITOR_HISTORY_FLUSH=1; the
//                                  folder stays, for scripts/history_day.py
#include <sys/resource.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>

#include "tests/history/feed.h"

namespace {

using namespace history;
using namespace history::test;

/// Noise about slow waves, as a busy station has it: no second like the one before.
Outputs busy(std::int64_t t) {
    static std::uint32_t random = 16;
    Outputs outputs;
    for (std::size_t i = 0; i < outputs.size(); ++i) {
        random = random * 1664525u + 1013904223u;
        const double noise = static_cast<double>(random >> 8) / 16777216.0 - 0.5;
        const double wave =
            std::sin(static_cast<double>(t) / (900.0 + 100.0 * static_cast<double>(i)));
        outputs[i] = static_cast<float>(20 + 6 * wave + 4 * noise);
    }
    return outputs;
}

double cpuSeconds() {
    ::rusage usage = {};
    ::getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const ::timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

long highestKb() {
    ::rusage usage = {};
    ::getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

}  // namespace

int main(int argc, char** argv) {
    const int days = argc > 1 ? std::atoi(argv[1]) : 1;
    const TempFolder temp;
    const std::filesystem::path folder =
        argc > 2 ? std::filesystem::path(argv[2]) : temp.path() / "history";
    const std::int64_t begin = utc(2026, 1, 1);
    const Zone zone("UTC");
    const long before = highestKb();
    const double cpu = cpuSeconds();
    Feed feed(folder, begin);
    feed.series = &busy;
    feed.tune();
    for (int day = 0; day < days; ++day) {
        feed.run(86400);
        const auto file = folder / (CivilDay::of(feed.now - 86400).text() + ".hm16day");
        if (day < 3 || (day + 1) % 30 == 0) {
            std::printf("day %d: %.2f MB, %.1f s of a core\n", day + 1,
                        static_cast<double>(std::filesystem::file_size(file)) / 1e6,
                        cpuSeconds() - cpu);
        }
    }
    feed.stop();
    const double used = cpuSeconds() - cpu;
    std::printf(
        "index: %.2f MB of minutes a day\n",
        static_cast<double>(std::filesystem::file_size(folder / "index.sqlite")) / 1e6 / days);
    std::printf("core: %.3f %% of one, memory %.1f MB more\n", used / (days * 86400.0) * 100,
                static_cast<double>(highestKb() - before) / 1024);
}
