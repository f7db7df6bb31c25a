// SPDX-License-Identifier: GPL-3.0-or-later
// What a window waits for: a day, a year of hours, ten years, out of real files; and what the
// heartbeat pays.
#include <benchmark/benchmark.h>

#include <cmath>

#include "history/input_ring.h"
#include "history/query.h"
#include "tests/history/feed.h"

namespace {

using namespace history;
using namespace history::test;

constexpr int kPixels = 1200;
constexpr std::int64_t kDay = 86400;

const std::int64_t kBegin = utc(2026, 5, 4);

Span anySpan(std::int64_t t, std::int64_t step) {
    Span span;
    span.t = t;
    span.seconds = step;
    span.station = kStation;
    for (std::size_t i = 0; i < figureCount(); ++i) {
        SpanValue& value = span.figures[i];
        value.knownMs = static_cast<std::uint32_t>(step * 990);
        value.causes[4] = static_cast<std::uint32_t>(step * 10);
        value.mean = static_cast<float>(20 + 5 * std::sin(static_cast<double>(t) / 7000));
        value.lowest = value.mean - 8;
        value.percentile1 = value.mean - 6;
        value.percentile99 = value.mean + 6;
        value.highest = value.mean + 8;
    }
    return span;
}

/// A recorded day, and ten years of hours and days behind it.
const std::filesystem::path& folder() {
    static const TempFolder temp;
    static const std::filesystem::path path = [] {
        const auto made = temp.path() / "history";
        {
            Feed feed(made, kBegin);
            feed.tune();
            feed.run(kDay - 1, 60);
            feed.stop();
        }
        IndexFile index(made / "index.sqlite", Flush::Off, nullptr);
        std::vector<IndexFile::StepSpan> spans;
        for (std::int64_t day = 1; day <= 3650; ++day) {
            const std::int64_t t = kBegin - day * kDay;
            spans.push_back({kDayStep, anySpan(t, kDay)});
            for (std::int64_t hour = 0; hour < 24; ++hour) {
                spans.push_back({kHour, anySpan(t + hour * kHour, kHour)});
            }
        }
        index.keep(spans, {});
        return made;
    }();
    return path;
}

/// Four plots, as the window has them.
void open(benchmark::State& state, std::int64_t from, std::int64_t to) {
    const Query query(folder());
    for (auto _ : state) {
        const auto bands = query.bands(AskedTogether{kStation,
                                                     {indexOf("deviation_peak"), indexOf("field"),
                                                      indexOf("pilot_level"), indexOf("multipath")},
                                                     from * 1000,
                                                     to * 1000,
                                                     kPixels});
        for (const auto& columns : bands) {
            if (columns[kPixels / 2].knownMs <= 0) state.SkipWithError("nothing is there");
        }
        benchmark::DoNotOptimize(query.events(from, to));
    }
}

void DayOfMinutes(benchmark::State& state) {
    open(state, kBegin, kBegin + kDay);
}
void HourOfSeconds(benchmark::State& state) {
    open(state, kBegin + 7 * kHour, kBegin + 8 * kHour);
}
/// The most that seconds are asked for: just under a minute a column.
void MostSeconds(benchmark::State& state) {
    open(state, kBegin, kBegin + kPixels * 59);
}
void YearOfHours(benchmark::State& state) {
    open(state, kBegin - 365 * kDay, kBegin);
}
void TenYears(benchmark::State& state) {
    open(state, kBegin - 3650 * kDay, kBegin);
}
void Mark(benchmark::State& state) {
    const Query query(folder());
    for (auto _ : state) benchmark::DoNotOptimize(query.at(kStation, kBegin + 40000));
}
void HandOver(benchmark::State& state) {
    InputRing ring;
    Input input = Inputs::readings(0, Feed::rising(1));
    for (auto _ : state) {
        input.at = Moment::now();
        ring.put(input);
        state.PauseTiming();
        ring.take(input);
        state.ResumeTiming();
    }
}

BENCHMARK(DayOfMinutes)->Unit(benchmark::kMillisecond);
BENCHMARK(HourOfSeconds)->Unit(benchmark::kMillisecond);
BENCHMARK(MostSeconds)->Unit(benchmark::kMillisecond);
BENCHMARK(YearOfHours)->Unit(benchmark::kMillisecond);
BENCHMARK(TenYears)->Unit(benchmark::kMillisecond);
BENCHMARK(Mark)->Unit(benchmark::kMillisecond);
BENCHMARK(HandOver);

}  // namespace
