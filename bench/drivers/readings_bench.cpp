// SPDX-License-Identifier: GPL-3.0-or-later
// The cost of reading the readings, and of making them in the simulated unit.
#include <benchmark/benchmark.h>

#include <array>
#include <filesystem>

#include "drivers/loader/library.h"
#include "drivers/simulated/band.h"
#include "drivers/simulated/figures.h"

namespace {

// The library tuned to a good station, with its own thread running, as in the program.
struct Tuned {
    Tuned() : loaded(hm16::Library::load(std::filesystem::path(HM16_SIMULATED).parent_path())) {
        // The station's results file is written to the current folder.
        std::filesystem::current_path(std::filesystem::temp_directory_path());
        loaded.library->functions().init();
        loaded.library->functions().normal(985, 0, 0, 0, 0);
    }
    ~Tuned() { loaded.library->functions().terminate(); }

    hm16::LoadResult loaded;
};

void BM_HmData(benchmark::State& state) {
    const Tuned tuned;
    const auto data = tuned.loaded.library->functions().data;
    std::array<float, 16> r{};
    for (auto _ : state) {
        data(&r[0], &r[1], &r[2], &r[3], &r[4], &r[5], &r[6], &r[7], &r[8], &r[9], &r[10], &r[11],
             &r[12], &r[13], &r[14], &r[15]);
        benchmark::DoNotOptimize(r);
    }
}
BENCHMARK(BM_HmData);

void BM_HmDataRds(benchmark::State& state) {
    const Tuned tuned;
    const auto data = tuned.loaded.library->functions().dataRds;
    float error = 0, level = 0;
    for (auto _ : state) {
        data(&error, &level);
        benchmark::DoNotOptimize(level);
    }
}
BENCHMARK(BM_HmDataRds);

// 801 levels from the store, as a band graph takes them from one frame.
void BM_FrameOf801Levels(benchmark::State& state) {
    const Tuned tuned;
    const auto& driver = tuned.loaded.library->functions();
    for (auto _ : state) {
        float sum = 0;
        for (int i = 0; i <= 800; ++i) {
            float level = 0;
            driver.getEspectro(880 + 0.25f * static_cast<float>(i), &level);
            sum += level;
        }
        benchmark::DoNotOptimize(sum);
    }
}
BENCHMARK(BM_FrameOf801Levels);

void BM_MakeReadings(benchmark::State& state) {
    hm16::Tuning tuning;
    tuning.frequency = 985;
    double time = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(hm16::simulated::figuresAt(16, tuning, time, 1));
        time += 0.01;
    }
}
BENCHMARK(BM_MakeReadings);

void BM_MakeLevel(benchmark::State& state) {
    double time = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(hm16::simulated::bandLevel(16, 985.25, time));
        time += 0.01;
    }
}
BENCHMARK(BM_MakeLevel);

}  // namespace
