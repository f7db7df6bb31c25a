// SPDX-License-Identifier: GPL-3.0-or-later
// A day of measuring on the virtual clock: changing readings with every heartbeat, a key every
// minute. Prints the memory of each hour and fails when it grew.
//
//     day_run [MARK END]    compares the memory at minute MARK with that at minute END (60 1440)
#include <unistd.h>

#include <charconv>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <string_view>

#include "tests/support/counted_heap.h"
#include "tests/support/rack_bench.h"
#include "tests/support/random_readings.h"

namespace {

using namespace hmonitor;
using namespace hmonitor::test;
using namespace std::chrono_literals;

constexpr double kMostGrowth = 0.01;
// Depending on the number of keys so far, the input queue holds one more memory block of this size.
constexpr long kQueueNode = 520;

#if defined(HMONITOR_SANITIZED_ADDRESS)
// The sanitizer keeps freed memory.
constexpr bool kResidentCounts = false;
#else
constexpr bool kResidentCounts = true;
#endif

struct Standing {
    long live = 0;
    long bytes = 0;
    long resident = 0;  // bytes
};

long residentBytes() {
    long size = 0;
    long resident = 0;
    std::ifstream("/proc/self/statm") >> size >> resident;
    return resident * sysconf(_SC_PAGESIZE);
}

class Day {
 public:
    Day() { bench_.start(); }

    void minute(int number) {
        for (int beat = 0; beat < 2000; ++beat) {
            random_.put(bench_.driver.readings);
            bench_.readings.rdsError = bench_.readings.pilotError / 10;
            bench_.readings.rdsLevel = bench_.readings.pilotLevel / 10;
            bench_.beat();
        }
        pressKey(number);
        // Clears what the test's own desktop and driver recorded.
        bench_.takeCalls();
        bench_.desktop.journal.clear();
    }

    static Standing memory() {
        const CountedHeap heap = CountedHeap::now();
        return {heap.live, heap.bytes, residentBytes()};
    }

 private:
    void pressKey(int turn) {
        Form_B& audio = bench_.formB;
        Form_C& quality = bench_.formC;
        display::Hand& hand = bench_.hand;
        // Ten keys, so that each hour ends on the same one.
        switch (turn % 10) {
            case 1:
                return hand.click(audio.SSCommand1);
            case 2:
                return hand.set(audio.HScroll1, turn % 207);
            case 3:
                return hand.click(audio.SSCommand2);
            case 4:
                return hand.click(quality.Image_Reset1);
            case 5:
                return hand.click(quality.Image2);
            case 6:
                return hand.click(quality.Image3);
            case 7:
                return hand.click(audio.Image2);
            case 8:
                return hand.click(bench_.form1.Image6);
            case 9:
                return hand.click(bench_.form1.Image_Average);
            default:
                return hand.click(audio.Image1);
        }
    }

    RackBench bench_;
    RandomReadings random_;
};

int number(const char* text, int otherwise) {
    int value = otherwise;
    const std::string_view digits = text;
    std::from_chars(digits.data(), digits.data() + digits.size(), value);
    return value;
}

void print(int minute, const Standing& now) {
    std::printf("minute %4d: %ld live blocks, %ld bytes, %ld bytes resident\n", minute, now.live,
                now.bytes, now.resident);
}

bool stands(const char* what, long before, long after, long slack = 0) {
    const double growth = static_cast<double>(after - before) / static_cast<double>(before);
    const bool good = growth <= kMostGrowth || after - before <= slack;
    std::printf("%-18s %10ld %10ld  %+.2f %%%s\n", what, before, after, 100 * growth,
                good ? "" : "  GREW");
    return good;
}

}  // namespace

int main(int argc, char** argv) {
    const int mark = argc > 2 ? number(argv[1], 60) : 60;
    const int end = argc > 2 ? number(argv[2], 1440) : 1440;
    if (mark < 1 || end <= mark) {
        std::fprintf(stderr, "usage: day_run [MARK END], minutes, MARK before END\n");
        return 2;
    }
    const auto start = std::chrono::steady_clock::now();
    Day day;
    Standing before;
    print(0, Day::memory());  // the printing itself takes its pages before they are compared
    for (int minute = 1; minute <= end; ++minute) {
        day.minute(minute);
        if (minute == mark) before = Day::memory();
        if (minute % 60 != 0 && minute != mark) continue;
        print(minute, Day::memory());
    }
    const Standing after = Day::memory();
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
    std::printf("%d virtual minutes in %.1f s\n", end, took.count());
    bool good = stands("live blocks", before.live, after.live);
    good = stands("live bytes", before.bytes, after.bytes, kQueueNode) && good;
    if (kResidentCounts) good = stands("resident bytes", before.resident, after.resident) && good;
    return good ? 0 : 1;
}
