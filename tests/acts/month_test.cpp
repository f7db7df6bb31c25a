// SPDX-License-Identifier: GPL-3.0-or-later
// The program measures on and on, with scans, sessions and midnights: nothing grows, and each hour
// that the clock shows has its line in the day's log.
//
// Here three hours around a midnight, of each hour two minutes; scripts/month measures each second
// of many days. HMONITOR_MONTH_HOURS is how many hours, HMONITOR_MONTH_MINUTES how many minutes of
// each are measured (60: all), HMONITOR_MONTH_START the first day's eight digits.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <sstream>

#include "drivers/unit/day_log.h"
#include "tests/acts/rack_in_order.h"
#include "tests/support/counted_heap.h"
#include "tests/support/random_readings.h"

namespace hmonitor::test {
namespace {

using namespace std::chrono_literals;

int given(const char* name, int otherwise) {
    const char* text = std::getenv(name);
    return text ? std::atoi(text) : otherwise;
}

/// The program on a unit that sends frames, and the log that such a unit would keep.
class LongMeasuring {
 public:
    LongMeasuring(const hm16::LocalTime& from, const std::filesystem::path& logs)
        : bench_(kUnitKinds[1]), begin_(hm16::momentOf(from) - bench_.desktop.now()), log_(logs) {
        log_.tune(981, clock());
    }

    hm16::LocalTime clock() const { return hm16::localTimeAt(begin_ + bench_.desktop.now()); }

    /// Goes on to the next full hour; of it, the first minutes are measured second by second.
    void hour(int minutes) {
        const int hour = clock().hour;
        for (int minute = 0; minute < minutes && clock().hour == hour; ++minute) {
            for (int second = 0; second < 60; ++second) this->second();
            if (minute == 0) go(runKinds()[run_++ % runKinds().size()]);
            forget();
        }
        while (clock().hour == hour) {
            bench_.desktop.elapse(1s);
            ASSERT_EQ(log_.add(bench_.readings, 1, 1, clock()), std::nullopt);
        }
        bench_.settle();
    }

    std::string fault() { return faultOf(bench_); }
    std::optional<std::string> closeLog() { return log_.close(); }

 private:
    void second() {
        random_.put(bench_.readings);
        const auto before = clock();
        bench_.advance(1s);
        // A second counts for the hour in which it began.
        EXPECT_EQ(log_.add(bench_.readings, 1, 1, before), std::nullopt);
        const auto now = clock();
        bench_.desktop.date = {now.year, now.month, now.day, 0, now.hour, now.minute, now.second};
    }
    /// The time of a run counts as measured: the log knows nothing of runs.
    void go(const RunKind& run) {
        const auto start = bench_.desktop.now();
        run.go(bench_);
        EXPECT_EQ(closeAll(bench_), "") << run.name;
        const std::chrono::duration<double> took = bench_.desktop.now() - start;
        EXPECT_EQ(log_.add(bench_.readings, 1, took.count(), clock()), std::nullopt);
    }
    /// Clears what the headless desktop and the driver have recorded.
    void forget() {
        bench_.takeCalls();
        bench_.called.frames.clear();
        bench_.desktop.journal = {};
        bench_.desktop.boxes = {};
        bench_.desktop.copiedPictures = {};
    }

    RunBench bench_;
    RandomReadings random_;
    std::chrono::system_clock::time_point begin_;
    hm16::DayLog log_;
    std::size_t run_ = 0;
};

hm16::LocalTime startOf(int day) {
    return {day / 10000, day / 100 % 100, day % 100, 0, 0, 0};
}

TEST(LongMeasuring, GrowsNothingAndLogsEachHour) {
    const int hours = given("HMONITOR_MONTH_HOURS", 26);
    const int minutes = given("HMONITOR_MONTH_MINUTES", 1);
    const hm16::LocalTime from = startOf(given("HMONITOR_MONTH_START", 20261230));
    const TempFolder logs;
    // By then each kind of run was made twice, so whatever is cached is cached.
    const int warm = std::min(hours - 1, 2 * static_cast<int>(runKinds().size()));
    const int round = static_cast<int>(runKinds().size());
    LongMeasuring measuring(from, logs.path());
    CountedHeap before{};
    for (int hour = 1; hour <= hours; ++hour) {
        measuring.hour(minutes);
        ASSERT_FALSE(HasFailure()) << "hour " << hour;
        const CountedHeap now = CountedHeap::now();
        if (hour == warm) before = now;
        if (hour > warm && (hour - warm) % round == 0) {
            // A little room for the input queue's blocks and for a log line that waits.
            EXPECT_LE(now.live, before.live + 4) << "hour " << hour;
            EXPECT_LE(now.bytes, before.bytes + 2048) << "hour " << hour;
        }
        if (hour % 24 == 0) {
            std::printf("hour %d: %ld blocks, %ld bytes\n", hour, now.live, now.bytes);
            std::fflush(stdout);
        }
    }
    EXPECT_EQ(measuring.fault(), "");
    ASSERT_EQ(measuring.closeLog(), std::nullopt);
    int lines = 0;
    for (const std::string& name : logs.names()) {
        std::istringstream log(logs.read(name));
        int next = 0;
        for (std::string line; std::getline(log, line); ++next, ++lines) {
            std::istringstream fields(line);
            int hour = -1;
            double field = 0;
            fields >> hour;
            for (int i = 1; i <= 6; ++i) fields >> field;
            EXPECT_EQ(hour, next) << name;
            EXPECT_NEAR(field, 60, 0.6) << name << " " << line;
        }
    }
    EXPECT_EQ(lines, hours);
}

}  // namespace
}  // namespace hmonitor::test
