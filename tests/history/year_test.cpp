// SPDX-License-Identifier: GPL-3.0-or-later
// Days with everything that can happen to a recorder: stations and analyses, fades, sleep, kills
// and starts, a clock that is set. Every second, minute, hour and day is compared with what
// scripts/history_day.py reads and works out. scripts/history_year runs it longer.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <map>
#include <memory>
#include <random>

#include "tests/history/day_reader.h"
#include "tests/history/feed.h"

namespace history::test {
namespace {

constexpr std::int64_t kDay = 86400;
constexpr int kStations[] = {98500, 87500, 108000};

long setting(const char* name, long otherwise) {
    const char* text = std::getenv(name);
    return text ? std::atol(text) : otherwise;
}

/// A different value in each second, by a clock that is never set.
Outputs anySeries(std::int64_t now) {
    Outputs outputs;
    for (std::size_t i = 0; i < outputs.size(); ++i) {
        const double slow =
            std::sin(static_cast<double>(now) / (700.0 + 90.0 * static_cast<double>(i)));
        const double quick =
            std::sin(static_cast<double>(now % 100000) * (1.1 + 0.3 * static_cast<double>(i)));
        outputs[i] = static_cast<float>(20 + 12 * slow + 5 * quick);
    }
    outputs[5] = static_cast<float>(std::fmod(static_cast<double>(now % 100000) * 1.7, 180));
    return outputs;
}

State anyState(std::size_t figure, std::int64_t now) {
    const std::int64_t second = now % 1013;
    if (second >= 100 && second < 160) return State::Multipath;
    if (figure == 7 && second >= 300 && second < 420) return State::NoPilot;
    if (figure == 9 && second % 10 < 3) return State::TooNoisy;
    return State::Known;
}

class Year : public testing::Test {
 protected:
    Year() { begin(); }

    void begin() {
        feed = std::make_unique<Feed>(folder, now + stepped);
        feed->now = now;
        feed->stepped = stepped;
        feed->series = &anySeries;
        feed->states = &anyState;
    }
    int upTo(int most) { return static_cast<int>(random() % static_cast<unsigned>(most)) + 1; }

    /// One random event.
    void live() {
        switch (upTo(12)) {
            case 1:  // ends in order and starts again
                feed->stop();
                feed.reset();
                now += upTo(100);
                begin();
                feed->tune(station);
                break;
            case 2:  // is killed: what was not committed is lost
                feed.reset();
                now += upTo(20);
                begin();
                feed->tune(station);
                break;
            case 3:
                station = kStations[random() % std::size(kStations)];
                feed->tune(station);
                break;
            case 4:  // an analysis takes the unit
                feed->take(Inputs::at(0, Input::What::Halted));
                feed->now += upTo(200);
                feed->take(Inputs::at(0, Input::What::Tick));
                feed->tune(station);
                break;
            case 5:  // the clock is set
                if (upTo(3) == 1) {
                    feed->stepped += random() % 2 ? 3 + upTo(4000) : -3 - upTo(4000);
                }
                break;
            case 6:  // the machine sleeps
                feed->now += 600 + upTo(2000);
                break;
            default:
                measure(upTo(600));
        }
        now = feed->now;
        stepped = feed->stepped;
    }
    void measure(int seconds) {
        for (int i = 0; i < seconds; ++i) {
            feed->run(1);
            // The previous second is complete now that this one has begun.
            const std::int64_t before = feed->now - 2;
            if (i < 2 || anyState(8, before) != State::Known) continue;
            expected[{before + feed->stepped, station, feed->recording.epoch()}] =
                anySeries(before)[8];
        }
        // Inputs that are in no file yet would die with the recorder.
        feed->commit();
    }

    void compareSeconds(const std::filesystem::path& file);
    void compareSpans(const std::filesystem::path& file, std::int64_t step, const char* options);

    using Key = std::tuple<std::int64_t, int, int>;  // time, station, epoch
    Zone zone{"Europe/Madrid"};
    TempFolder temp;
    std::filesystem::path folder = temp.path() / "history";
    std::mt19937 random{static_cast<unsigned>(setting("HMONITOR_HISTORY_SEED", 16))};
    std::int64_t now = utc(2028, 1, 1) + setting("HMONITOR_HISTORY_FIRST_DAY", 84) * kDay;
    std::int64_t stepped = 0;
    int station = kStations[0];
    std::unique_ptr<Feed> feed;
    std::map<Key, float> expected;
    long compared = 0;
};

void Year::compareSeconds(const std::filesystem::path& file) {
    const auto rows = readDay(file, "");
    const std::size_t pilot = columnOf(rows.at(0), "pilot_level");
    std::map<Key, std::string> found;
    for (std::size_t i = 1; i < rows.size(); ++i) {
        const Row& row = rows[i];
        found[{std::stoll(row[1]), std::stoi(row[2]), std::stoi(row[3])}] = row[pilot];
    }
    const CivilDay day = *CivilDay::parse(file.stem().string());
    for (auto one = expected.begin(); one != expected.end();) {
        const auto& [key, value] = *one;
        if (CivilDay::of(std::get<0>(key)) != day) {
            ++one;
            continue;
        }
        ASSERT_TRUE(found.contains(key)) << file << std::get<0>(key);
        ASSERT_FALSE(found[key].empty()) << file << std::get<0>(key);
        ASSERT_NEAR(std::stod(found[key]), value, 0.0051) << file << std::get<0>(key);
        ++compared;
        one = expected.erase(one);
    }
}

void Year::compareSpans(const std::filesystem::path& file, std::int64_t step, const char* options) {
    const auto rows = readDay(file, options);
    Database database(folder / kIndexName, Access::Read);
    const IndexRows index(database);
    const CivilDay day = *CivilDay::parse(file.stem().string());
    for (std::size_t r = 1; r < rows.size(); ++r) {
        const Row& row = rows[r];
        const int khz = std::stoi(row[2]);
        const int epoch = std::stoi(row[3]);
        std::int64_t t = std::stoll(row[1]);
        // For the whole file the reader prints the span 0.
        std::int64_t end = t + 1;
        if (step == kDayStep) {
            const auto noon = utc(day.year, day.month, day.day, 11);
            t = boundsOfDay(noon).begin;
            end = t + 1;
        } else if (CivilDay::of(t) != CivilDay::of(t + step - 1)) {
            continue;  // in two files, and the reader reads one
        }
        // A clock that was set back over a midnight has it before it: the next day's look compares.
        const std::int64_t over = step == kDayStep ? boundsOfDay(t).end : t + step;
        if (over > now + stepped) continue;
        for (const std::size_t figure : {std::size_t{0}, std::size_t{1}, std::size_t{5},
                                         std::size_t{8}, std::size_t{9}, std::size_t{16}}) {
            const std::size_t at = columnOf(rows[0], figures::all()[figure].key);
            bool seen = false;
            index.spans(khz, step, t, end, std::span(&figure, 1),
                        [&](std::int64_t, std::int64_t, int of, std::size_t,
                            const std::optional<SpanValue>& value) {
                            if (of != epoch) return;
                            seen = true;
                            ASSERT_TRUE(value);
                            const std::string where =
                                file.string() + " " + row[1] + " " + figures::all()[figure].key;
                            ASSERT_EQ(row[at + 5], std::to_string(value->knownMs)) << where;
                            if (value->knownMs == 0) return;
                            ASSERT_NEAR(std::stod(row[at]), value->lowest, 2e-4) << where;
                            ASSERT_NEAR(std::stod(row[at + 1]), value->mean, 2e-4) << where;
                            ASSERT_NEAR(std::stod(row[at + 2]), value->highest, 2e-4) << where;
                            ASSERT_NEAR(std::stod(row[at + 3]), value->percentile1, 2e-4) << where;
                            ASSERT_NEAR(std::stod(row[at + 4]), value->percentile99, 2e-4) << where;
                            ++compared;
                        });
            ASSERT_TRUE(seen) << file << " " << options << " " << row[1] << " of " << khz
                              << " in epoch " << epoch;
        }
    }
}

TEST_F(Year, EverySecondMinuteHourAndDayIsWhatTheReaderWorksOut) {
    const long days = setting("HMONITOR_HISTORY_DAYS", 2);
    feed->tune(station);
    for (long day = 0; day < days; ++day) {
        const CivilDay today = CivilDay::of(now + stepped);
        // Some hours of recording; nothing in the rest of the day.
        for (int i = 0; i < 24 && CivilDay::of(now + stepped) == today; ++i) live();
        measure(5);
        now = feed->now = boundsOfDay(now + stepped).end - stepped + 7;
        stepped = feed->stepped;
        // The next day has begun, so this one is summed up.
        feed->commit();
        feed->commit();
        const auto file = folder / (today.text() + ".hm16day");
        compareSeconds(file);
        if (HasFatalFailure()) return;
        compareSpans(file, kMinute, "--span 60");
        if (HasFatalFailure()) return;
        compareSpans(file, kHour, "--span 3600");
        if (HasFatalFailure()) return;
        compareSpans(file, kDayStep, "--span day");
        if (HasFatalFailure()) return;
        if (days > 10 && day % 10 == 9) {
            std::printf("%s: %ld compared\n", today.text().c_str(), compared);
            std::fflush(stdout);
        }
        feed->tune(station);
    }
    EXPECT_GT(compared, 1000 * days);
}

}  // namespace
}  // namespace history::test
