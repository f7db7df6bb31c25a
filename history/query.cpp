// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/query.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <limits>
#include <numeric>
#include <set>
#include <string>
#include <utility>

#include "history/kind_sum.h"
#include "history/retention.h"

namespace history {

namespace {

/// One column while pieces are added to it.
class BandSum {
 public:
    explicit BandSum(figures::Kind kind) : kind_(kind), sum_(kind) {}

    /// `share` of the piece lies in this column.
    void add(const SpanValue& value, double share) {
        for (std::size_t i = 0; i < value.causes.size(); ++i) {
            causes_[i] += share * value.causes[i];
        }
        told_ += share * static_cast<double>(value.toldMs());
        if (value.knownMs == 0) return;
        sum_.add(static_cast<double>(value.mean), share * value.knownMs,
                 static_cast<double>(value.length));
        if (kind_ == figures::Kind::Angle) {
            angles_.push_back({value.lowest, value.mean, value.highest});
            return;
        }
        lowest_ = std::min(lowest_, value.lowest);
        highest_ = std::max(highest_, value.highest);
    }

    Band band(double columnMs) const {
        Band band;
        Causes causes{};
        for (std::size_t i = 0; i < causes.size(); ++i) {
            causes[i] = static_cast<std::uint32_t>(causes_[i]);
        }
        const double missing = columnMs - told_;
        // Less than a rounding of shares is none.
        if (missing > 1) {
            causes[static_cast<std::size_t>(kNotRecorded)] =
                static_cast<std::uint32_t>(std::min(missing, 4e9));
        }
        band.cause = longestCause(causes);
        band.knownMs = sum_.weight();
        if (band.knownMs <= 0) return band;
        const double mean = sum_.mean();
        band.mean = static_cast<float>(mean);
        band.lowest = lowest_;
        band.highest = highest_;
        for (const Angle& angle : angles_) {
            const double own = static_cast<double>(angle.mean);
            const auto turn = static_cast<float>(nearAxis(own, mean) - own);
            band.lowest = std::min(band.lowest, angle.lowest + turn);
            band.highest = std::max(band.highest, angle.highest + turn);
        }
        return band;
    }

 private:
    figures::Kind kind_;
    KindSum sum_;
    std::array<double, kFileStates + 1> causes_{};
    double told_ = 0;
    float lowest_ = std::numeric_limits<float>::infinity();
    float highest_ = -std::numeric_limits<float>::infinity();
    /// An angle's bounds turn with the mean of the whole column.
    struct Angle {
        float lowest, mean, highest;
    };
    std::vector<Angle> angles_;
};

}  // namespace

Query::Query(std::filesystem::path folder, const char* vfs)
    : folder_(std::move(folder)), vfs_(vfs) {}

std::vector<Band> Query::bands(const Asked& asked) const {
    return bands(AskedTogether{
                     asked.station, {asked.figure}, asked.fromMs, asked.toMs, asked.columns})
        .front();
}

std::vector<std::vector<Band>> Query::bands(const AskedTogether& asked) const {
    std::vector<std::vector<Band>> bands(asked.figures.size());
    const bool areFigures = std::ranges::all_of(
        asked.figures, [](std::size_t figure) { return figure < figureCount(); });
    if (asked.columns <= 0 || asked.toMs <= asked.fromMs || !areFigures) return bands;
    const double columnMs =
        static_cast<double>(asked.toMs - asked.fromMs) / static_cast<double>(asked.columns);
    std::vector<std::vector<BandSum>> sums;
    for (const std::size_t figure : asked.figures) {
        sums.emplace_back(static_cast<std::size_t>(asked.columns),
                          BandSum(figures::all()[figure].kind));
    }
    const auto place = [&](double ms) {
        return (ms - static_cast<double>(asked.fromMs)) / columnMs;
    };

    const auto add = [&](const Piece& piece) {
        const double from = std::max(0.0, place(static_cast<double>(piece.begin) * 1000));
        const double to = std::min(static_cast<double>(asked.columns),
                                   place(static_cast<double>(piece.end) * 1000));
        const double whole = static_cast<double>(piece.end - piece.begin) * 1000 / columnMs;
        for (auto i = static_cast<std::size_t>(from); static_cast<double>(i) < to; ++i) {
            const double overlap =
                std::min(to, static_cast<double>(i + 1)) - std::max(from, static_cast<double>(i));
            if (overlap > 1e-9) sums[piece.which][i].add(piece.value, overlap / whole);
        }
    };
    const auto begin = static_cast<std::int64_t>(asked.fromMs / 1000) - (asked.fromMs < 0);
    QueryRows(folder_, vfs_, asked.station, asked.figures)
        .gather(stepFor(columnMs / 1000), begin, (asked.toMs + 999) / 1000, add);

    for (std::size_t i = 0; i < bands.size(); ++i) {
        bands[i].reserve(sums[i].size());
        for (const BandSum& column : sums[i]) bands[i].push_back(column.band(columnMs));
    }
    return bands;
}

std::vector<std::optional<MarkValue>> Query::at(int station, std::int64_t t) const {
    std::vector<std::optional<MarkValue>> values(figureCount());
    std::vector<std::size_t> all(figureCount());
    std::iota(all.begin(), all.end(), std::size_t{0});
    std::vector<int> epochs(figureCount(), -1);
    QueryRows(folder_, vfs_, station, all).gather(Step::Second, t, t + 1, [&](const Piece& piece) {
        // Of a second that a clock had twice, the later one.
        int& epoch = epochs[piece.which];
        if (piece.epoch < epoch) return;
        epoch = piece.epoch;
        const std::int64_t length = piece.end - piece.begin;
        const Step step = length == 1         ? Step::Second
                          : length == kMinute ? Step::Minute
                          : length == kHour   ? Step::Hour
                                              : Step::Day;
        values[piece.which] = MarkValue{step, piece.value};
    });
    return values;
}

std::vector<int> Query::stations() const {
    std::set<int> stations;
    try {
        Database database(folder_ / kIndexName, Access::Read, vfs_);
        for (const int khz : IndexRows(database).stations()) stations.insert(khz);
    } catch (const DatabaseFault&) {
        // Until the first minute is over there is none.
    }
    const std::vector<CivilDay> days = daysIn(folder_);
    if (days.empty()) return {stations.begin(), stations.end()};
    try {
        const auto file = folder_ / (days.back().text() + std::string(kDayEnding));
        Database database(file, Access::Read, vfs_);
        for (const int khz : DayRows(database).stations()) stations.insert(khz);
    } catch (const DatabaseFault&) {
        // The recorder finds the damage.
    }
    return {stations.begin(), stations.end()};
}

std::optional<std::int64_t> Query::begin(int station) const {
    std::optional<std::int64_t> first;
    try {
        Database database(folder_ / kIndexName, Access::Read, vfs_);
        const IndexRows rows(database);
        for (const std::int64_t step : {kDayStep, kHour, kMinute}) {
            const auto at = rows.first(station, step);
            if (at && (!first || *at < *first)) first = at;
        }
    } catch (const DatabaseFault&) {
        // The days tell of themselves.
    }
    if (first) return first;
    for (const CivilDay& day : daysIn(folder_)) {
        try {
            Database database(folder_ / (day.text() + std::string(kDayEnding)), Access::Read, vfs_);
            const auto there = DayRows(database).stations();
            if (std::ranges::find(there, station) == there.end()) continue;
            using namespace std::chrono;
            const sys_days date = year(day.year) / month(static_cast<unsigned>(day.month)) /
                                  static_cast<unsigned>(day.day);
            const std::int64_t noon = sys_seconds(date).time_since_epoch().count() + 12 * kHour;
            return boundsOfDay(noon - zoneOffset(noon)).begin;
        } catch (const DatabaseFault&) {
            // The recorder finds the damage.
        }
    }
    return std::nullopt;
}

std::vector<Event> Query::events(std::int64_t from, std::int64_t to) const {
    try {
        Database database(folder_ / kIndexName, Access::Read, vfs_);
        return IndexRows(database).events(from, to);
    } catch (const DatabaseFault&) {
        return {};
    }
}

}  // namespace history
