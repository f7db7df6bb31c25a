// SPDX-License-Identifier: GPL-3.0-or-later
// What the on-air log itself costs, without a screen.
#include <benchmark/benchmark.h>

#include <chrono>

#include "performance/form4.h"
#include "performance/form_d4a.h"
#include "tests/support/rack_bench.h"

namespace hmonitor::test {
namespace {

constexpr int kTenYears = 3650;

std::string dayLog(int seed) {
    std::string bytes;
    for (int hour = 0; hour < 24; ++hour) {
        const std::string tenths = std::to_string((seed + hour) % 10);
        bytes += std::to_string(hour) + " 98." + tenths + " -5." + tenths + " -6." + tenths +
                 " 44." + tenths + " 1.00" + tenths + " 60 13." + tenths + " 0 1 \r\n";
    }
    return bytes;
}

/// The measuring rack with the logs of ten years.
class TenYears : public RackBench {
 public:
    TenYears() {
        using namespace std::chrono;
        for (int i = 0; i < kTenYears; ++i) {
            const year_month_day day{sys_days(year(2016) / 1 / 1) + days(i)};
            const int number = static_cast<int>(day.year()) * 10000 +
                               static_cast<int>(static_cast<unsigned>(day.month())) * 100 +
                               static_cast<int>(static_cast<unsigned>(day.day()));
            write(std::to_string(number) + ".log", dayLog(i));
        }
        write("0981.dat", lines(std::vector<std::string>(24, "-70.5")));
        start();
        desktop.settle();
    }

    void open() {
        hand.click(formD.Image4);
        desktop.settle();
    }
};

/// From the key LOG to the open window with the last day and its page. At most 100 ms.
void openOnTenYears(benchmark::State& state) {
    TenYears bench;
    for (auto _ : state) {
        bench.open();
        state.PauseTiming();
        if (bench.forms.formD4A.Combo1.list.rows().size() != kTenYears)
            state.SkipWithError("not all days are listed");
        bench.hand.click(bench.forms.formD4A.SSCommand3);
        bench.desktop.settle();
        state.ResumeTiming();
    }
}
BENCHMARK(openOnTenYears)->Unit(benchmark::kMillisecond);

/// Another day: its file, six charts and the page. At most 5 ms.
void changeOfTheDay(benchmark::State& state) {
    TenYears bench;
    bench.open();
    int day = 0;
    for (auto _ : state) {
        day = (day + 1) % kTenYears;
        bench.hand.select(bench.forms.formD4A.Combo1, day);
        bench.desktop.settle();
        benchmark::DoNotOptimize(bench.forms.form4.ViewPro1.document().pages().size());
    }
}
BENCHMARK(changeOfTheDay)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace hmonitor::test
