// SPDX-License-Identifier: GPL-3.0-or-later
// Ten thousand sweeps of the analyzer on the virtual clock, in both views by turns. Prints memory
// and pace along the way; fails if blocks or bytes grew after the first hundred sweeps, or if the
// last thousand took longer than the first.
//
//     sweep_run [SWEEPS]    10000 if not given
#include <unistd.h>

#include <charconv>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string_view>

#include "tests/support/counted_heap.h"
#include "tests/support/rack_bench.h"

namespace {

using namespace hmonitor;
using namespace hmonitor::test;
using namespace std::chrono_literals;

long residentBytes() {
    long size = 0, resident = 0;
    std::ifstream("/proc/self/statm") >> size >> resident;
    return resident * sysconf(_SC_PAGESIZE);
}

class Run {
 public:
    Run() {
        bench_.start();
        bench_.hand.click(bench_.formD.Image6);
        bench_.desktop.settle();
        form_.butStart_Click();
    }
    void sweep(int number) {
        for (int i = 0; i <= 800; ++i)
            bench_.driver.spectrum[880 + static_cast<float>(i) / 4] =
                static_cast<float>(33 + (i * 7 + number) % 60);
        bench_.driver.frames.push_back(1);
        bench_.advance(500ms);
        if (number % 50 == 0) form_.butSpecMode.press();
        bench_.driver.calls.clear();
        bench_.desktop.journal.clear();
    }
    int sweeps() const { return form_.measurement.SessionInfo.Acquisitions; }

 private:
    RackBench bench_;
    frmSpectrumAnalizer& form_{bench_.forms.formSpectrumAnalizer};
};

}  // namespace

int main(int argc, char** argv) {
    int end = 10000;
    if (argc > 1) {
        const std::string_view digits = argv[1];
        std::from_chars(digits.data(), digits.data() + digits.size(), end);
    }
    Run run;
    CountedHeap before{};
    double first = 0, last = 0;
    auto since = std::chrono::steady_clock::now();
    for (int number = 1; number <= end; ++number) {
        run.sweep(number);
        if (number == 100) before = CountedHeap::now();
        if (number % 1000 != 0) continue;
        const auto now = std::chrono::steady_clock::now();
        last = std::chrono::duration<double, std::milli>(now - since).count() / 1000;
        if (first == 0) first = last;
        since = now;
        const CountedHeap heap = CountedHeap::now();
        std::printf("sweep %5d: %.3f ms a sweep, %ld live blocks, %ld bytes, %ld resident\n",
                    number, last, heap.live, heap.bytes, residentBytes());
    }
    const CountedHeap after = CountedHeap::now();
    // The text of the count has a digit more.
    constexpr long kSlack = 4096;
    const bool stands = after.live - before.live <= 2 && after.bytes - before.bytes <= kSlack;
    std::printf("behind sweep 100: %+ld blocks, %+ld bytes; pace %.3f to %.3f ms; %d counted\n",
                after.live - before.live, after.bytes - before.bytes, first, last, run.sweeps());
    return stands && last <= first * 1.2 && run.sweeps() == end ? 0 : 1;
}
