// SPDX-License-Identifier: GPL-3.0-or-later
// What a call costs that goes to a library in a process of its own, beyond the call's own time.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <array>
#include <filesystem>

#include "drivers/host/hosted_library.h"

namespace {

struct HostedAndTuned {
    HostedAndTuned()
        : loaded(hm16::HostedLibrary::load(HM16_HOST,
                                           std::filesystem::path(HM16_SIMULATED).parent_path())) {
        // Results of the station go where the library is opened.
        std::filesystem::current_path(std::filesystem::temp_directory_path());
        functions().init();
        functions().normal(985, 0, 0, 0, 0);
    }
    ~HostedAndTuned() { functions().terminate(); }
    const HM16_Functions& functions() const { return loaded.library->functions(); }

    hm16::HostedLoad loaded;
};

void readOnce(const HM16_Functions& call, std::array<float, 16>& r) {
    call.data(&r[0], &r[1], &r[2], &r[3], &r[4], &r[5], &r[6], &r[7], &r[8], &r[9], &r[10], &r[11],
              &r[12], &r[13], &r[14], &r[15]);
}

// One behind the other, as the readouts' tick asks for them.
void BM_HostedHmData(benchmark::State& state) {
    const HostedAndTuned tuned;
    std::array<float, 16> r{};
    for (auto _ : state) {
        readOnce(tuned.functions(), r);
        benchmark::DoNotOptimize(r);
    }
}
BENCHMARK(BM_HostedHmData);

// With a rest before each, as the heartbeat asks: both sides sleep meanwhile.
void BM_HostedHmDataAfterARest(benchmark::State& state) {
    const HostedAndTuned tuned;
    std::array<float, 16> r{};
    for (auto _ : state) {
        state.PauseTiming();
        ::usleep(3000);
        state.ResumeTiming();
        readOnce(tuned.functions(), r);
    }
}
BENCHMARK(BM_HostedHmDataAfterARest)->Iterations(2000);

void BM_HostedFrameOf801Levels(benchmark::State& state) {
    const HostedAndTuned tuned;
    for (auto _ : state) {
        float sum = 0;
        for (int i = 0; i <= 800; ++i) {
            float level = 0;
            tuned.functions().getEspectro(880 + 0.25f * static_cast<float>(i), &level);
            sum += level;
        }
        benchmark::DoNotOptimize(sum);
    }
}
BENCHMARK(BM_HostedFrameOf801Levels);

// A call that changes the unit's state, with a rest before it.
void BM_HostedSetSintoModeAfterARest(benchmark::State& state) {
    const HostedAndTuned tuned;
    for (auto _ : state) {
        state.PauseTiming();
        ::usleep(3000);
        state.ResumeTiming();
        tuned.functions().setSintoMode(0);
    }
}
BENCHMARK(BM_HostedSetSintoModeAfterARest)->Iterations(2000);

// From nothing to a library that is loaded.
void BM_StartAndEndAHost(benchmark::State& state) {
    const auto folder = std::filesystem::path(HM16_SIMULATED).parent_path();
    for (auto _ : state) {
        const auto loaded = hm16::HostedLibrary::load(HM16_HOST, folder);
        benchmark::DoNotOptimize(loaded.library);
    }
}
BENCHMARK(BM_StartAndEndAHost)->Unit(benchmark::kMillisecond);

}  // namespace
