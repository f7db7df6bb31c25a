// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/controls/time_ticks.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <utility>

namespace display {

namespace {

using std::chrono::days;
using std::chrono::month;
using std::chrono::sys_days;
using std::chrono::year;
using std::chrono::year_month_day;

constexpr std::int64_t kMinute = 60;
constexpr std::int64_t kHour = 3600;
constexpr std::int64_t kDay = 86400;
/// The clocks of all zones differ by whole quarters of an hour.
constexpr std::int64_t kQuarter = 900;
constexpr double kMonth = 30.44 * kDay;

constexpr std::array<std::int64_t, 17> kClockSteps = {
    1,   2,        5,    10,    15,        30,        kMinute,   2 * kMinute, 5 * kMinute,
    600, kQuarter, 1800, kHour, 2 * kHour, 3 * kHour, 6 * kHour, 12 * kHour};
constexpr std::array<int, 4> kDaySteps = {1, 2, 7, 14};
constexpr std::array<int, 3> kMonthSteps = {1, 3, 6};
constexpr std::array<int, 4> kYearSteps = {1, 2, 5, 10};

std::int64_t floorTo(std::int64_t value, std::int64_t step) {
    const std::int64_t rest = value % step;
    return value - (rest < 0 ? rest + step : rest);
}

std::string two(std::int64_t number) {
    return {static_cast<char>('0' + number / 10 % 10), static_cast<char>('0' + number % 10)};
}

class Ticks {
 public:
    Ticks(const PlotAxis& axis, const WallClock& clock)
        : from_(static_cast<std::int64_t>(std::ceil(axis.lowest / 1000))),
          to_(static_cast<std::int64_t>(std::floor(axis.highest / 1000))),
          clock_(clock) {}

    std::vector<PlotTick> byClock(std::int64_t step) {
        // A step of some hours is counted from midnight, which a change of the clock moves.
        const std::int64_t stride = std::min(step, kQuarter);
        for (std::int64_t t = floorTo(from_, stride); t <= to_; t += stride) {
            const std::int64_t read = t + clock_.aheadAt(t);
            if (t >= from_ && floorTo(read, step) == read) add(t, clockWords(read, step));
        }
        return std::move(ticks_);
    }

    /// Every so many days; whole weeks begin on Mondays.
    std::vector<PlotTick> byDays(int step) {
        // 1970 began on a Thursday.
        constexpr std::int64_t kFirstMonday = 4;
        const std::int64_t first = dayOf(from_);
        for (std::int64_t day = first - step; day <= dayOf(to_); ++day) {
            if (floorTo(day - kFirstMonday, step) == day - kFirstMonday)
                addDay(day, dateWords(ymd(day)));
        }
        return std::move(ticks_);
    }

    std::vector<PlotTick> byMonths(int step) {
        const year_month_day first = ymd(dayOf(from_));
        for (year at = first.year(); at <= ymd(dayOf(to_)).year(); ++at) {
            for (unsigned m = 1; m <= 12; m += static_cast<unsigned>(step)) {
                addDay(dayNumber(at / month(m) / 1),
                       m == 1 ? yearWords(at) : monthWords(static_cast<int>(m) - 1));
            }
        }
        return std::move(ticks_);
    }

    std::vector<PlotTick> byYears(int step) {
        const int last = static_cast<int>(ymd(dayOf(to_)).year());
        for (auto at = static_cast<int>(floorTo(static_cast<int>(ymd(dayOf(from_)).year()), step));
             at <= last; at += step) {
            addDay(dayNumber(year(at) / month(1) / 1), yearWords(year(at)));
        }
        return std::move(ticks_);
    }

 private:
    static year_month_day ymd(std::int64_t day) { return sys_days(days(day)); }
    static std::int64_t dayNumber(year_month_day date) {
        return sys_days(date).time_since_epoch().count();
    }
    std::int64_t dayOf(std::int64_t t) const { return floorTo(t + clock_.aheadAt(t), kDay) / kDay; }
    void add(std::int64_t t, std::string words) {
        ticks_.push_back({static_cast<double>(t) * 1000, std::move(words)});
    }
    void addDay(std::int64_t day, std::string words) {
        const std::int64_t t = clock_.momentOf(day * kDay);
        if (t >= from_ && t <= to_) add(t, std::move(words));
    }

    std::string clockWords(std::int64_t read, std::int64_t step) const {
        const std::int64_t time = read - floorTo(read, kDay);
        if (time == 0) return dateWords(ymd(floorTo(read, kDay) / kDay));
        std::string words = two(time / kHour) + ":" + two(time / kMinute % 60);
        if (step < kMinute) words += ":" + two(time % kMinute);
        return words;
    }
    std::string dateWords(year_month_day date) const {
        const auto day = static_cast<unsigned>(date.day());
        const std::string number =
            day < 10 ? std::string(1, static_cast<char>('0' + day)) : two(day);
        return number + " " + monthWords(static_cast<int>(static_cast<unsigned>(date.month())) - 1);
    }
    std::string monthWords(int of) const { return clock_.month ? clock_.month(of) : two(of + 1); }
    static std::string yearWords(year of) {
        const int number = static_cast<int>(of);
        return two(number / 100) + two(number % 100);
    }

    std::int64_t from_, to_;
    const WallClock& clock_;
    std::vector<PlotTick> ticks_;
};

}  // namespace

std::int64_t WallClock::momentOf(std::int64_t reading) const {
    // The offset a day later and the one a day earlier differ where the clock is changed between.
    const std::int64_t later = reading - aheadAt(reading + kDay);
    if (later + aheadAt(later) == reading) return later;
    const std::int64_t earlier = reading - aheadAt(reading - kDay);
    return earlier + aheadAt(earlier) == reading ? earlier : later;
}

std::vector<PlotTick> timeTicks(const PlotAxis& axis, int atMost, const WallClock& clock) {
    if (atMost < 1 || !(axis.highest > axis.lowest) || !std::isfinite(axis.span())) return {};
    const double wanted = axis.span() / 1000 / atMost;
    Ticks ticks(axis, clock);
    for (const std::int64_t step : kClockSteps) {
        if (static_cast<double>(step) >= wanted) return ticks.byClock(step);
    }
    for (const int step : kDaySteps) {
        if (static_cast<double>(step) * kDay >= wanted) return ticks.byDays(step);
    }
    for (const int step : kMonthSteps) {
        if (step * kMonth >= wanted) return ticks.byMonths(step);
    }
    for (const int step : kYearSteps) {
        if (step * 12 * kMonth >= wanted) return ticks.byYears(step);
    }
    return ticks.byYears(kYearSteps.back());
}

}  // namespace display
