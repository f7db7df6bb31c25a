// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/controls/plot_columns.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace display {

namespace {

/// Causes are small numbers; larger ones share the last place.
constexpr std::size_t kCauses = 32;

class Columns {
 public:
    Columns(const PlotSeries& series, const PlotAxis& x, int columns)
        : series_(series), x_(x), columns_(static_cast<std::size_t>(columns)) {
        linear_ = x.kind != AxisKind::Log;
        perUnit_ = x.span() > 0 ? columns / x.span() : 0;
    }

    std::vector<PlotColumn> take() {
        const auto& points = series_.points;
        const bool named = series_.to > series_.from;
        const double from = named ? series_.from : points.empty() ? 0 : points.front().x;
        const double to = named ? series_.to : points.empty() ? 0 : points.back().x + series_.each;
        if (series_.each > 0) {
            takeSpans(from, to);
        } else {
            takeCurve();
        }
        settle();
        return std::move(columns_);
    }

 private:
    double placeOf(double x) const {
        return linear_ ? (x - x_.lowest) * perUnit_
                       : x_.shareOf(x) * static_cast<double>(columns_.size());
    }
    /// The first point that may reach into the axis.
    std::size_t firstSeen() const {
        const auto first =
            std::ranges::lower_bound(series_.points, x_.lowest - series_.each, {}, &PlotPoint::x);
        const auto at = first - series_.points.begin();
        return static_cast<std::size_t>(at > 0 ? at - 1 : 0);
    }

    void takeSpans(double from, double to) {
        double told = std::max(from, x_.lowest - series_.each);
        const double end = std::min(to, x_.highest);
        const auto& points = series_.points;
        // Times that were rounded leave no hole between them.
        const double slack = series_.each * 0.01;
        bool joins = false;
        for (std::size_t i = firstSeen(); i < points.size(); ++i) {
            const PlotPoint& point = points[i];
            if (point.x > x_.highest) break;
            if (point.x > told + slack) {
                miss(told, std::min(point.x, end), series_.missing);
                joins = false;
            }
            const double until = i + 1 < points.size()
                                     ? std::min(point.x + series_.each, points[i + 1].x)
                                     : point.x + series_.each;
            // Closed where the next begins, so that rounding opens no column between them.
            const double last =
                i + 1 < points.size() && points[i + 1].x <= until + slack ? points[i + 1].x : until;
            if (point.known()) {
                know(point, placeOf(point.x), placeOf(last), joins);
                if (point.cause != 0) miss(point.x, last, point.cause);
            } else {
                miss(point.x, last, point.cause);
            }
            joins = point.known();
            told = std::max(told, last);
        }
        if (end > told + slack) miss(told, end, series_.missing);
    }

    void takeCurve() {
        const auto& points = series_.points;
        for (std::size_t i = firstSeen(); i < points.size(); ++i) {
            const PlotPoint& point = points[i];
            const bool before = i > 0 && points[i - 1].known();
            if (point.known()) {
                if (before) {
                    lead(points[i - 1], point);
                } else {
                    know(point, placeOf(point.x), placeOf(point.x), false);
                }
            }
            const double next = i + 1 < points.size() ? points[i + 1].x : point.x;
            if (!point.known()) {
                // From the last that was known to the next: nothing is known between.
                miss(i > 0 ? points[i - 1].x : point.x, next, point.cause);
            }
            if (point.x > x_.highest) break;
        }
    }

    /// A straight line between two known points, through all columns on its way.
    void lead(const PlotPoint& a, const PlotPoint& b) {
        const double from = placeOf(a.x);
        const double to = placeOf(b.x);
        const double count = static_cast<double>(columns_.size());
        if (to < 0 || from >= count) return;
        const double first = std::max(std::floor(from), 0.0);
        const double last = std::min(std::floor(to), count - 1);
        const auto at = [&](float left, float right, double place) {
            const double share = to > from ? std::clamp((place - from) / (to - from), 0.0, 1.0) : 1;
            return static_cast<float>(static_cast<double>(left) +
                                      share *
                                          (static_cast<double>(right) - static_cast<double>(left)));
        };
        for (double column = first; column <= last; ++column) {
            PlotColumn& into = columns_[static_cast<std::size_t>(column)];
            for (const double place : {column, column + 1}) {
                const double seen = std::clamp(place, from, to);
                add(into, at(a.lowest, b.lowest, seen), at(a.y, b.y, seen),
                    at(a.highest, b.highest, seen), column > std::floor(from));
            }
        }
    }

    static void add(PlotColumn& column, float lowest, float y, float highest, bool joins) {
        if (!column.known) {
            column.lowest = lowest;
            column.highest = highest;
            column.low = column.high = y;
            column.joins = joins;
            column.known = column.told = true;
            return;
        }
        column.lowest = std::min(column.lowest, lowest);
        column.highest = std::max(column.highest, highest);
        column.low = std::min(column.low, y);
        column.high = std::max(column.high, y);
    }

    /// Calls each(column, how much of the column) for the columns between two places.
    template <class Each>
    void through(double from, double to, Each each) {
        const double count = static_cast<double>(columns_.size());
        const double first = std::max(from, 0.0);
        const double end = std::min(to, count);
        if (first >= count || to < 0 || (end <= first && to > from)) return;
        auto i = static_cast<std::size_t>(first);
        do {
            const double left = std::max(first, static_cast<double>(i));
            const double right = std::min(end, static_cast<double>(i + 1));
            each(i, right - left);
            ++i;
        } while (static_cast<double>(i) < end && i < columns_.size());
    }

    void know(const PlotPoint& point, double from, double to, bool joins) {
        const bool banded = point.lowest == point.lowest && point.highest == point.highest;
        const float lowest = banded ? point.lowest : point.y;
        const float highest = banded ? point.highest : point.y;
        bool first = true;
        through(from, to, [&](std::size_t i, double) {
            add(columns_[i], lowest, point.y, highest, joins || !first);
            first = false;
        });
    }

    void miss(double from, double to, std::uint8_t cause) {
        through(placeOf(from), placeOf(to), [&](std::size_t i, double much) {
            if (i != counted_) {
                settle();
                counted_ = i;
            }
            columns_[i].told = true;
            const std::size_t place = std::min<std::size_t>(cause, kCauses - 1);
            missing_[place] += std::max(much, 1e-9);
            most_ = std::max(most_, place);
        });
    }
    /// Writes down which cause took the longest part of the column that was counted.
    void settle() {
        if (counted_ >= columns_.size()) return;
        std::size_t longest = 0;
        for (std::size_t i = 0; i <= most_; ++i) {
            if (missing_[i] > missing_[longest]) longest = i;
        }
        columns_[counted_].cause = static_cast<std::uint8_t>(longest);
        std::fill_n(missing_.begin(), most_ + 1, 0.0);
        most_ = 0;
    }

    const PlotSeries& series_;
    const PlotAxis& x_;
    std::vector<PlotColumn> columns_;
    bool linear_ = true;
    double perUnit_ = 0;
    std::array<double, kCauses> missing_{};
    std::size_t most_ = 0;
    std::size_t counted_ = static_cast<std::size_t>(-1);
};

}  // namespace

std::vector<PlotColumn> columnsOf(const PlotSeries& series, const PlotAxis& x, int columns) {
    if (columns < 1 || !(x.highest > x.lowest)) return {};
    return Columns(series, x, columns).take();
}

}  // namespace display
