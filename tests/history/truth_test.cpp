// SPDX-License-Identifier: GPL-3.0-or-later
// Known series through recorder and store, compared with what scripts/history_day.py, which shares
// no line with them, reads out of the files and works out of the seconds by itself.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <map>
#include <sstream>

#include "history/query.h"
#include "tests/history/feed.h"

namespace history::test {
namespace {

using Row = std::vector<std::string>;

/// The rows of a CSV without quoted fields; the first is the head.
std::vector<Row> csvOf(const std::string& command) {
    std::vector<Row> rows;
    FILE* pipe = ::popen(command.c_str(), "r");
    std::string text;
    char some[65536];
    for (std::size_t n; (n = std::fread(some, 1, sizeof some, pipe)) > 0;) text.append(some, n);
    EXPECT_EQ(::pclose(pipe), 0) << command;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        Row row;
        std::istringstream fields(line + ",");
        for (std::string field; std::getline(fields, field, ',');) row.push_back(field);
        rows.push_back(row);
    }
    return rows;
}

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

/// Fades, noise and a pilot that goes, each in minutes of its own.
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
        // So that the last hour and day are summed up too.
        feed.store.commit(GetParam().begin + 3 * 86400);
    }
    std::vector<Row> read(const std::string& day, const std::string& options) const {
        return csvOf("/usr/bin/python3 " HMONITOR_SOURCE_DIR "/scripts/history_day.py " + options +
                     " " + (folder / (day + ".hm16day")).string());
    }
    static std::size_t columnOf(const Row& head, const std::string& begins) {
        for (std::size_t i = 0; i < head.size(); ++i) {
            if (head[i].starts_with(begins)) return i;
        }
        return head.size();
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
        index.spans(kStation, step, 0, INT64_MAX / 2, i,
                    [&](std::int64_t t, std::int64_t, int, const std::optional<SpanValue>& value) {
                        ASSERT_TRUE(value);
                        spans[{i, step == kDayStep ? 0 : t}] = *value;
                    });
    }
    int compared = 0;
    for (const std::string& day : GetParam().days) {
        // An hour over a midnight is in two files, and the reader reads one.
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
