// SPDX-License-Identifier: GPL-3.0-or-later
// Speed of the receiver in software. items_per_second counts input samples of the band; time is
// the processor's, so that other work on the machine does not count.
#include <benchmark/benchmark.h>

#include <filesystem>

#include "drivers/receiver/library/receiver_unit.h"
#include "drivers/receiver/library/scenes.h"
#include "drivers/receiver/samples/sample_format.h"
#include "drivers/receiver/synth/band_generator.h"

namespace {

using namespace hm16;
using namespace hm16::receiver;

std::vector<Sample> oneSecond(double rateHz) {
    BandGenerator generator(sceneOf(Scene::Station, rateHz, 0));
    std::vector<Sample> samples(static_cast<std::size_t>(rateHz));
    generator.read(samples);
    return samples;
}

// All sixteen figures and RDS.
void WholeChain(benchmark::State& state) {
    const auto rate = static_cast<double>(state.range(0));
    const auto samples = oneSecond(rate);
    ChainSettings settings;
    settings.rateHz = rate;
    settings.offsetHz = 300e3;
    TunedStation chain(settings);
    for (auto _ : state) chain.push(samples);
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * samples.size()));
}
BENCHMARK(WholeChain)->Arg(1200000)->Arg(2400000)->Unit(benchmark::kMillisecond);

void EightBitsToFloat(benchmark::State& state) {
    const std::vector<std::byte> bytes(2 << 16, std::byte{100});
    std::vector<Sample> samples(1 << 16);
    for (auto _ : state) {
        convert(SampleFormat::Cu8, bytes, samples);
        benchmark::DoNotOptimize(samples.data());
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * samples.size()));
}
BENCHMARK(EightBitsToFloat);

// A second of samples over and over, at no cost of its own.
class Repeated : public SampleSource {
 public:
    Repeated() : samples_(oneSecond(2.4e6)) {}
    double rateHz() const override { return 2.4e6; }
    double centreHz() const override { return 98.2e6; }
    std::size_t read(std::span<Sample> into) override {
        for (Sample& sample : into) {
            sample = samples_[at_];
            if (++at_ == samples_.size()) at_ = 0;
        }
        return into.size();
    }
    void rewind() override {}

 private:
    std::vector<Sample> samples_;
    std::size_t at_ = 0;
};

void SweepOf800Points(benchmark::State& state) {
    ReceiverOptions options;
    options.pace = Pace::Fast;
    PublishedReadings readings;
    ReceiverUnit unit(options, std::make_unique<Repeated>(), readings,
                      std::filesystem::temp_directory_path());
    unit.step(0);
    unit.sweep({.start = 880, .stop = 1079.75, .stepKhz = 25});
    for (auto _ : state) unit.step(1);
}
BENCHMARK(SweepOf800Points)->Unit(benchmark::kMillisecond);

// What HM_Data copies.
void LatestReadings(benchmark::State& state) {
    PublishedReadings readings;
    for (auto _ : state) benchmark::DoNotOptimize(readings.latest());
}
BENCHMARK(LatestReadings);

void Tuning(benchmark::State& state) {
    ChainSettings settings;
    settings.rateHz = 2.4e6;
    settings.offsetHz = 300e3;
    for (auto _ : state) {
        TunedStation chain(settings);
        benchmark::DoNotOptimize(chain.slots());
    }
}
BENCHMARK(Tuning)->Unit(benchmark::kMillisecond);

}  // namespace
