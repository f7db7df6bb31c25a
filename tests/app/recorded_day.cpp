// SPDX-License-Identifier: GPL-3.0-or-later
// Records a made-up day that ends at a second, for windows that look back: FOLDER SECOND (since
// 1970). Peak deviation, field and pilot go in waves; an analysis has the unit for 34 minutes, the
// pilot is low for an hour and a quarter, the unit is silent for five minutes, and seconds here and
// there are too noisy. A week earlier lies an hour of another programme.
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "tests/history/feed.h"

namespace {

using history::State;
using history::test::Feed;
using history::test::indexOf;
using history::test::Inputs;
using history::test::Outputs;

constexpr std::int64_t kHourLong = 3600;
constexpr std::int64_t kDayLong = 24 * kHourLong;

/// A pseudo-random value from -1 to 1.
float noise(std::int64_t t, std::int64_t which) {
    auto x = static_cast<std::uint64_t>(t * 40 + which) * 0x9e3779b97f4a7c15u;
    x ^= x >> 31;
    x *= 0xbf58476d1ce4e5b9u;
    return static_cast<float>(x >> 40) / 8388608.f - 1;
}

Outputs programme(std::int64_t t, std::int64_t end, float louder) {
    Outputs outputs{};
    const auto hours = static_cast<float>(t - end) / kHourLong;
    outputs[indexOf("deviation_peak")] =
        68 + louder + 5 * std::sin(hours / 3) + 4 * noise(t, 1) + (hours < -17 ? 3.f : 0.f);
    outputs[indexOf("level_left")] = -9 + 2 * std::sin(hours) + 3 * noise(t, 2);
    outputs[indexOf("level_right")] = -9.5f + 2 * std::sin(hours) + 3 * noise(t, 3);
    outputs[indexOf("stereo_phase")] = 45 + 9 * noise(t, 4);
    outputs[indexOf("relative_power")] = 40 + 9 * std::sin(hours / 2) + 3 * noise(t, 5);
    outputs[indexOf("pilot_error")] = 0.4f + 0.2f * noise(t, 6);
    const bool low = hours > -7 && hours < -5.7f;
    outputs[indexOf("pilot_level")] = (low ? 7.4f : 9.0f) + 0.1f * noise(t, 7);
    outputs[indexOf("noise_left")] = -71 + noise(t, 8);
    outputs[indexOf("noise_right")] = -70 + noise(t, 9);
    outputs[indexOf("separation_left")] = 48 + noise(t, 10);
    outputs[indexOf("separation_right")] = 47 + noise(t, 11);
    outputs[indexOf("distortion")] = 0.12f + 0.02f * noise(t, 12);
    outputs[indexOf("carrier_error")] = 0.3f + 0.1f * noise(t, 13);
    outputs[indexOf("field")] = 84 + 3 * std::sin(hours / 5) + noise(t, 14);
    outputs[indexOf("multipath")] = 8 + 3 * std::sin(hours / 4) + noise(t, 15);
    outputs[indexOf("peaks_per_minute")] = 4 + 3 * noise(t / 60, 16);
    outputs[indexOf("rds_error")] = 0.2f * noise(t, 17);
    outputs[indexOf("rds_level")] = 3.1f + 0.1f * noise(t, 18);
    return outputs;
}

void recordDay(const std::filesystem::path& folder, std::int64_t end) {
    Feed feed(folder, end - kDayLong);
    feed.series = [end](std::int64_t t) { return programme(t, end, 0); };
    feed.states = [end](std::size_t figure, std::int64_t t) {
        const std::int64_t before = end - t;
        if (before > 10 * kHourLong && before < 10 * kHourLong + 300) return State::Stale;
        if (figure == indexOf("multipath") && t % 3600 < 90) return State::TooNoisy;
        return Feed::leftAndRight(figure, t);
    };
    feed.tune();
    feed.run(11 * kHourLong + 34 * 60, 60);
    feed.take(Inputs::at(0, history::Input::What::Halted));
    for (int second = 0; second < 34 * 60; ++second) {
        feed.take(Inputs::at(0, history::Input::What::Tick));
        ++feed.now;
        if (feed.now % 60 == 0) feed.commit();
    }
    feed.tune();
    feed.run(end - feed.now, 60);
    feed.stop();
}

void recordHourLastWeek(const std::filesystem::path& folder, std::int64_t end) {
    Feed feed(folder, end - 7 * kDayLong - 6 * kHourLong);
    feed.series = [end](std::int64_t t) { return programme(t + 7 * kDayLong, end, -9); };
    feed.tune();
    feed.run(5 * kHourLong, 60);
    feed.stop();
}

}  // namespace

int main(int count, char** words) {
    if (count != 3) {
        std::fprintf(stderr, "usage: recorded_day FOLDER SECOND\n");
        return 1;
    }
    const auto end = static_cast<std::int64_t>(std::strtoll(words[2], nullptr, 10));
    recordHourLastWeek(words[1], end);
    recordDay(words[1], end);
}
