// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdlib>
#include <functional>
#include <string_view>

#include "history/recording.h"
#include "history/store.h"
#include "tests/history/zone.h"
#include "tests/support/temp_folder.h"

namespace history::test {

using hmonitor::test::TempFolder;

inline constexpr int kStation = 98500;

/// The index of a figure in the registry.
inline std::size_t indexOf(std::string_view key) {
    const auto registry = figures::all();
    for (std::size_t i = 0; i < registry.size(); ++i) {
        if (registry[i].key == key) return i;
    }
    return registry.size();
}

/// A value for each figure of the registry.
using Outputs = std::array<float, figures::kCount>;

/// Makes inputs for times that a test chooses.
struct Inputs {
    static Input at(std::int64_t utcMs, Input::What what) {
        Input input;
        input.what = what;
        input.at = {utcMs, utcMs};
        return input;
    }
    static Input tuned(std::int64_t utcMs, int khz = kStation, int mode = 0) {
        Input input = at(utcMs, Input::What::Tuned);
        input.khz = khz;
        input.audioMode = static_cast<std::uint8_t>(mode);
        return input;
    }
    /// All figures of the registry, all known.
    static Input readings(std::int64_t utcMs, const Outputs& outputs) {
        Input input = at(utcMs, Input::What::Readings);
        for (std::size_t i = 0; i < outputs.size(); ++i) input.value[i] = outputs[i];
        return input;
    }
    /// A slot in which every figure is `value`.
    static Input slot(std::int64_t endMs, std::uint64_t number, float value) {
        Input input = at(endMs, Input::What::Slot);
        input.slotUtcMs = endMs;
        input.number = number;
        input.lengthMs = 50;
        input.value.fill(value);
        return input;
    }
};

/// Keeps in memory what a recording makes.
struct Kept final : RecordingSink {
    std::vector<Second> seconds;
    std::vector<Event> events;

    void keep(const Second& second) override { seconds.push_back(second); }
    void keep(const Event& event) override { events.push_back(event); }

    const FigureSecond& figure(std::size_t second, std::string_view key) const {
        return seconds.at(second).figures[indexOf(key)];
    }
};

/// A recorder without its thread, on a virtual clock, that gets readings twice a second.
class Feed {
 public:
    /// The figures at a second.
    using Series = std::function<Outputs(std::int64_t t)>;

    /// The reason why a figure is not known at a second.
    using States = std::function<State(std::size_t figure, std::int64_t t)>;

    explicit Feed(const std::filesystem::path& folder, std::int64_t begin,
                  const char* vfs = nullptr)
        : now(begin), store(settingsFor(folder, vfs)) {
        store.open(begin);
        recording.beginEpoch(store.epochFor(begin));
        series = &Feed::rising;
        states = &Feed::leftAndRight;
    }

    static StoreSettings settingsFor(const std::filesystem::path& folder, const char* vfs) {
        StoreSettings settings;
        settings.folder = folder;
        // Off but where a run by hand asks for it: it costs days their speed and nothing else.
        settings.flush = std::getenv("HMONITOR_HISTORY_FLUSH") ? Flush::Full : Flush::Off;
        settings.vfs = vfs;
        settings.retention.freeBytes = [](const auto&) { return std::uint64_t{1} << 40; };
        return settings;
    }

    /// Each figure is its number, from 1, plus a hundredth of the second of the minute.
    static Outputs rising(std::int64_t t) {
        Outputs outputs{};
        for (std::size_t i = 0; i < outputs.size(); ++i) {
            outputs[i] = static_cast<float>(i + 1) + static_cast<float>(t % 60) / 100;
        }
        return outputs;
    }

    /// In the mode L and R, the two figures of the other mode are not measured.
    static State leftAndRight(std::size_t figure, std::int64_t) {
        const bool isOther = figures::all()[figure].source.mode == figures::Mode::SumDifference;
        return isOther ? State::NotMeasured : State::Known;
    }

    void tune(int khz = kStation, int mode = 0) { take(Inputs::tuned(0, khz, mode)); }

    /// Continues for so many seconds; commits every `commitEvery` seconds and at the end.
    void run(std::int64_t seconds, int commitEvery = 5) {
        for (std::int64_t i = 0; i < seconds; ++i) {
            const auto outputs = series(now);
            for (int half = 0; half < 2; ++half) {
                Input readings = Inputs::readings(0, outputs);
                for (std::size_t o = 0; states && o < outputs.size(); ++o) {
                    readings.state[o] = states(o, now);
                }
                take(readings, half * 500);
            }
            ++now;
            if (now % commitEvery == 0) commit();
        }
    }
    void commit() {
        store.commit(now + stepped);
        if (onCommit) onCommit();
    }
    void stop() {
        take(Inputs::at(0, Input::What::Stop));
        commit();
    }
    void take(Input input, std::int64_t ms = 0) {
        input.at = {(now + stepped) * 1000 + ms, now * 1000 + ms};
        recording.take(input);
    }

    std::int64_t now;          ///< a clock that is never set
    std::int64_t stepped = 0;  ///< how far the wall clock was set, seconds
    Series series;
    States states;
    std::function<void()> onCommit;
    Store store;
    Recording recording{store};
};

/// Two minutes of a station on each of `days` days that lie `apart` seconds apart, each by a start
/// of its own.
inline void recordDaysApart(const std::filesystem::path& folder, std::int64_t begin, int days,
                            std::int64_t apart) {
    for (int day = 0; day < days; ++day) {
        Feed feed(folder, begin + day * apart);
        feed.tune();
        feed.run(120, 60);
        feed.stop();
    }
}

}  // namespace history::test
