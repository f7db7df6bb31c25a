// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <cstddef>
#include <deque>
#include <vector>

namespace hm16::receiver {

// The last values of a figure, up to a number.
class Ring {
 public:
    explicit Ring(std::size_t most) : most_(most) {}

    void add(double value) {
        values_.push_back(value);
        if (values_.size() > most_) values_.pop_front();
    }
    void clear() { values_.clear(); }
    std::size_t size() const { return values_.size(); }

    double mean() const {
        double sum = 0;
        for (const double value : values_) sum += value;
        return values_.empty() ? 0 : sum / static_cast<double>(values_.size());
    }

    // The value below which the given share (0 to 1) of all values is; 0 without values.
    double percentile(double share) const {
        if (values_.empty()) return 0;
        std::vector<double> sorted(values_.begin(), values_.end());
        const auto place = static_cast<std::size_t>(share * static_cast<double>(sorted.size() - 1));
        const auto nth = sorted.begin() + static_cast<std::ptrdiff_t>(place);
        std::nth_element(sorted.begin(), nth, sorted.end());
        return *nth;
    }

 private:
    std::size_t most_;
    std::deque<double> values_;
};

}  // namespace hm16::receiver
