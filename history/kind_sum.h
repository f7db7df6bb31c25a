// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>
#include <vector>

#include "base/figures.h"

namespace history {

/// The mean of many values by the rule of the figure's kind, each weighted with the time for which
/// it held.
class KindSum {
 public:
    explicit KindSum(figures::Kind kind = figures::Kind::Mean) : kind_(kind) {}

    /// `length` is used if the value is itself a mean of angles: the length of its mean vector, 0
    /// to 1.
    void add(double value, double weight, double length = 1) {
        weight_ += weight;
        switch (kind_) {
            case figures::Kind::Level:
                x_ += weight * std::pow(10, value / 10);
                break;
            case figures::Kind::Angle:
                x_ += weight * length * std::cos(doubled(value));
                y_ += weight * length * std::sin(doubled(value));
                break;
            case figures::Kind::State:
                hold(value, weight);
                break;
            default:
                x_ += weight * value;
        }
    }

    double weight() const { return weight_; }

    /// Peak, Mean, Share: the arithmetic mean. Count: the mean rate per minute; times the known
    /// minutes it is the count. Level: the mean of the powers, in dB. Angle: 0 up to 180. State:
    /// the value that held longest.
    double mean() const {
        if (weight_ <= 0) return 0;
        switch (kind_) {
            case figures::Kind::Level:
                return 10 * std::log10(x_ / weight_);
            case figures::Kind::Angle:
                return axis();
            case figures::Kind::State:
                return longest();
            default:
                return x_ / weight_;
        }
    }

    /// The length of an angle's mean vector, from 0 (all directions) to 1 (one direction); 1 for
    /// other kinds.
    double length() const {
        if (kind_ != figures::Kind::Angle || weight_ <= 0) return 1;
        return std::hypot(x_, y_) / weight_;
    }

 private:
    static double doubled(double degrees) { return degrees * 2 * std::numbers::pi / 180; }

    double axis() const {
        // Axes that cancel one another have no mean; rounding errors must not make one. Values are
        // floats: 1,800 of them at even distances still have a vector of length 1e-8.
        constexpr double kNoLength = 1e-4;
        if (length() < kNoLength) return 0;
        const double degrees = std::atan2(y_, x_) / 2 * 180 / std::numbers::pi;
        // What is below 0 by rounding alone is 0 and not 180.
        return degrees < -1e-6 ? degrees + 180 : std::max(degrees, 0.0);
    }

    void hold(double value, double weight) {
        for (auto& [known, held] : held_) {
            if (known == value) {
                held += weight;
                return;
            }
        }
        held_.emplace_back(value, weight);
    }
    /// Of equal times the lowest value, so that the order of adding does not matter.
    double longest() const {
        std::pair<double, double> best{0, -1};
        for (const auto& one : held_) {
            if (one.second > best.second || (one.second == best.second && one.first < best.first)) {
                best = one;
            }
        }
        return best.first;
    }

    figures::Kind kind_;
    double weight_ = 0;
    double x_ = 0;
    double y_ = 0;
    std::vector<std::pair<double, double>> held_;
};

}  // namespace history
