// SPDX-License-Identifier: GPL-3.0-or-later
// Known series are recorded and stored, then compared with what scripts/history_day.py, which
// shares no code with the store, reads out of the files and works out itself.
#include <gtest/gtest.h>

#include <cmath>
#include <map>

#include "history/query.h"
#include "tests/history/day_reader.h"
#include "tests/history/feed.h"

namespace history::test {
namespace {

Outputs waves(std::int64_t t) {
    Outputs outputs;
    for (std::size_t i = 0; i < outputs.size(); ++i) {
        const double phase =
            static_cast<double>(t % 86400) * (0.01 + 0.003 * static_cast<double>(i));
        outputs[i] = static_cast<float>(20 + 18 * std::sin(phase) + static_cast<double>(i));
    }
    outputs[5] = static_cast<float>(std::fmod(static_cast<double>(t % 86400) * 1.7, 180));
    return outputs;
}

/// Fades, noise and a missing pilot, each in some minutes.
State troubles(std::size_t figure, std::int64_t t) {
    if (figure == 3 || figure == 4) return State::NotMeasured;
    const std::int64_t second = t % 900;
    if (second >= 100 && second < 140) return State::Multipath;
    if (figure == 7 && second >= 300 && second < 420) return State::NoPilot;
    if (figure == 9 && second % 10 < 3) return State::TooNoisy;
    return State::Known;
}

struct Stretch {
    const char* name;
    const char* zone;
    std::int64_t begin;
    int seconds;
    std::vector<std::string> days;

    friend void PrintTo(const Stretch& stretch, std::ostream* out) { *out << stretch.name; }
};

class Truth : public testing::TestWithParam<Stretch> {
 protected:
    Zone zone{GetParam().zone};
    TempFolder temp;
    std::filesystem::path folder = temp.path() / "history";

    void record() {
        Feed feed(folder, GetParam().begin);
        feed.series = &waves;
        feed.states = &troubles;
        feed.tune();
        feed.run(GetParam().seconds, 60);
        feed.stop();
        // Closes the last hour and the last day, too.
        feed.store.commit(GetParam().begin + 3 * 86400);
    }
    std::vector<Row> read(const std::string& day, const std::string& options) const {
        return readDay(folder / (day + ".hm16day"), options);
    }
    void compareSpans(std::int64_t step, const std::string& options);
};

TEST_P(Truth, TheReaderFindsEverySecondAsItWas) {
    record();
    std::int64_t next = GetParam().begin;
    const double stepOfPilot = stepOf(*figures::find("pilot_level"));
    for (const std::string& day : GetParam().days) {
        const auto rows = read(day, "");
        ASSERT_GT(rows.size(), 1u) << day;
        const std::size_t pilot = columnOf(rows[0], "pilot_level");
        const std::size_t phase = columnOf(rows[0], "stereo_phase");
        const std::size_t error = columnOf(rows[0], "pilot_error");
        for (std::size_t i = 1; i < rows.size(); ++i, ++next) {
            ASSERT_EQ(rows[i][1], std::to_string(next)) << day;
            const bool fades = troubles(0, next) == State::Multipath;
            ASSERT_EQ(rows[i][pilot].empty(), fades) << next;
            ASSERT_EQ(rows[i][pilot + 1], fades ? "multipath" : "known") << next;
            ASSERT_EQ(rows[i][error + 1], troubles(7, next) == State::NoPilot ? "no pilot"
                                          : fades                             ? "multipath"
                                                                              : "known");
            if (fades) continue;
            ASSERT_NEAR(std::stod(rows[i][pilot]), waves(next)[8], stepOfPilot * 0.51) << next;
            const double turned = std::fabs(std::stod(rows[i][phase]) - waves(next)[5]);
            ASSERT_LT(std::min(turned, 180 - turned), 0.0051) << next;
        }
    }
    EXPECT_EQ(next, GetParam().begin + GetParam().seconds);
}

void Truth::compareSpans(std::int64_t step, const std::string& options) {
    Database database(folder / "index.sqlite", Access::Read);
    const IndexRows index(database);
    std::map<std::pair<std::size_t, std::int64_t>, SpanValue> spans;
    for (std::size_t i = 0; i < figureCount(); ++i) {
        index.spans(kStation, step, 0, INT64_MAX / 2, std::span(&i, 1),
                    [&](std::int64_t t, std::int64_t, int, std::size_t,
                        const std::optional<SpanValue>& value) {
                        ASSERT_TRUE(value);
                        spans[{i, step == kDayStep ? 0 : t}] = *value;
                    });
    }
    int compared = 0;
    for (const std::string& day : GetParam().days) {
        // An hour across midnight is in two files, but the reader reads one.
        const auto rows = read(day, options);
        for (std::size_t r = 1; r < rows.size(); ++r) {
            const std::int64_t t = std::stoll(rows[r][1]);
            if (step == kHour && CivilDay::of(t) != CivilDay::of(t + kHour - 1)) continue;
            for (std::size_t i = 0; i < figureCount(); ++i) {
                const std::size_t at = columnOf(rows[0], figures::all()[i].key);
                const auto found = spans.find({i, step == kDayStep ? 0 : t});
                ASSERT_NE(found, spans.end()) << rows[r][0];
                const SpanValue& value = found->second;
                const std::string where = rows[r][0] + " " + figures::all()[i].key;
                ASSERT_EQ(rows[r][at + 5], std::to_string(value.knownMs)) << where;
                ++compared;
                if (value.knownMs == 0) continue;
                const double slack = 2e-4;
                ASSERT_NEAR(std::stod(rows[r][at]), value.lowest, slack) << where;
                ASSERT_NEAR(std::stod(rows[r][at + 1]), value.mean, slack) << where;
                ASSERT_NEAR(std::stod(rows[r][at + 2]), value.highest, slack) << where;
                ASSERT_NEAR(std::stod(rows[r][at + 3]), value.percentile1, slack) << where;
                ASSERT_NEAR(std::stod(rows[r][at + 4]), value.percentile99, slack) << where;
                const State cause = longestCause(value.causes);
                if (cause == State::Known) {
                    ASSERT_EQ(rows[r][at + 6], "known") << where;
                }
            }
        }
    }
    EXPECT_TRUE(compared > 0 || step == kHour);
}

TEST_P(Truth, MinutesAreWhatTheReaderWorksOut) {
    record();
    compareSpans(kMinute, "--span 60");
}

TEST_P(Truth, HoursAreWhatTheReaderWorksOut) {
    record();
    compareSpans(kHour, "--span 3600");
}

class TruthOfADay : public Truth {};

TEST_P(TruthOfADay, IsWhatTheReaderWorksOut) {
    record();
    compareSpans(kDayStep, "--span day");
}

/// What the reader finds after the clock was set in the middle of a run.
class TruthOfClocks : public testing::Test {
 protected:
    static constexpr std::int64_t kHalf = 900;
    const std::int64_t begin = utc(2026, 5, 4, 12);

    /// Half of the run, the step of the clock, the other half.
    void record(std::int64_t step) {
        Feed feed(folder, begin);
        feed.series = &waves;
        feed.tune();
        feed.run(kHalf);
        feed.stepped = step;
        feed.run(kHalf);
        feed.stop();
    }
    /// The rows of a day and an epoch: {time: value of the pilot's level}.
    std::map<std::int64_t, double> pilotOf(const std::string& day, const std::string& epoch) const {
        std::map<std::int64_t, double> found;
        const auto rows = readDay(folder / (day + ".hm16day"), "");
        const std::size_t at = columnOf(rows.at(0), "pilot_level");
        for (std::size_t i = 1; i < rows.size(); ++i) {
            if (rows[i][3] != epoch || rows[i][at].empty()) continue;
            found[std::stoll(rows[i][1])] = std::stod(rows[i][at]);
        }
        return found;
    }
    /// Expects half of the run from `from` on, with the values that belong to `ago` seconds later.
    static void expectRun(const std::map<std::int64_t, double>& found, std::int64_t from,
                          std::int64_t ago) {
        // The second in which the clock is set stays open.
        for (std::int64_t t = from; t < from + kHalf - 1; ++t) {
            const auto second = found.find(t);
            ASSERT_NE(second, found.end()) << t;
            ASSERT_NEAR(second->second, waves(t + ago)[8], 0.0051) << t;
        }
        EXPECT_LE(found.size(), static_cast<std::size_t>(kHalf + 1));
    }

    Zone zone{"UTC"};
    TempFolder temp;
    std::filesystem::path folder = temp.path() / "history";
};

TEST_F(TruthOfClocks, SetBackAnHourBothHoursStandBesideEachOther) {
    record(-3600);
    expectRun(pilotOf("2026-05-04", "0"), begin, 0);
    expectRun(pilotOf("2026-05-04", "1"), begin + kHalf - 3600, 3600);
}

TEST_F(TruthOfClocks, SetForwardADayTheNextDayHasWhatFollows) {
    record(86400);
    expectRun(pilotOf("2026-05-04", "0"), begin, 0);
    expectRun(pilotOf("2026-05-05", "1"), begin + kHalf + 86400, -86400);
}

TEST_F(TruthOfClocks, MidnightInTheMiddleOfAReadingGivesEachDayItsPart) {
    const std::int64_t midnight = utc(2026, 5, 5);
    Feed feed(folder, midnight - 10);
    const auto tell = [&feed, midnight](std::int64_t ms, float value) {
        Outputs outputs;
        outputs.fill(value);
        Input readings = Inputs::readings(midnight * 1000 + ms, outputs);
        feed.recording.take(readings);
    };
    feed.recording.take(Inputs::tuned(midnight * 1000 - 1300));
    // 10 until 0.2 s before midnight, 20 until 0.3 s after it, then 40.
    tell(-1300, 10);
    tell(-900, 10);
    tell(-500, 10);
    tell(-200, 20);
    tell(300, 40);
    tell(700, 40);
    feed.recording.take(Inputs::readings(midnight * 1000 + 1000, Outputs{}));
    feed.store.commit(midnight + 1);
    feed.store.commit(midnight + 120);
    EXPECT_NEAR(pilotOf("2026-05-04", "0").at(midnight - 1), 0.8 * 10 + 0.2 * 20, 0.0051);
    EXPECT_NEAR(pilotOf("2026-05-05", "0").at(midnight), 0.3 * 20 + 0.7 * 40, 0.0051);
}

const Stretch kToSummer{
    "ChangeToSummer", "Europe/Madrid", utc(2026, 3, 29, 0, 20), 3000, {"2026-03-29"}};
const Stretch kToWinter{
    "ChangeToWinter", "Europe/Madrid", utc(2026, 10, 25, 0, 30), 3000, {"2026-10-25"}};
const Stretch kLeapDay{
    "LeapDay", "UTC", utc(2028, 2, 28, 23, 30), 3000, {"2028-02-28", "2028-02-29"}};
const Stretch kMidnight{"MidnightOfAHalfHourZone",
                        "Asia/Kolkata",
                        utc(2026, 5, 4, 18),
                        3000,
                        {"2026-05-04", "2026-05-05"}};
const auto kStretchName = [](const testing::TestParamInfo<Stretch>& one) {
    return std::string(one.param.name);
};

INSTANTIATE_TEST_SUITE_P(Days, Truth, testing::Values(kToSummer, kToWinter, kLeapDay, kMidnight),
                         kStretchName);
INSTANTIATE_TEST_SUITE_P(Days, TruthOfADay, testing::Values(kToSummer, kToWinter), kStretchName);

}  // namespace
}  // namespace history::test
