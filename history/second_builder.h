// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "history/figure_second.h"
#include "history/kind_sum.h"

namespace history {

/// The value of every figure during a stretch of time.
struct FigureValues {
    std::array<float, kMostFigures> value{};
    std::array<State, kMostFigures> state{};  ///< a value is valid if this is Known

    /// All figures unknown, for one reason.
    static FigureValues unknown(State why) {
        FigureValues values;
        values.state.fill(why);
        return values;
    }
};

/// Makes seconds of stretches of time. A stretch across the edge of a second counts in both.
class SecondBuilder {
 public:
    using Finished = std::function<void(const Second&)>;

    explicit SecondBuilder(Finished finished);

    /// What is added from now on belongs to this station and epoch; an unfinished second is
    /// finished.
    void begin(int station, int epoch);

    /// Adds [fromMs, toMs). Times must not go back between two calls of begin.
    void add(std::int64_t fromMs, std::int64_t toMs, const FigureValues& values);

    /// Ends the unfinished second: in the rest of it the unit was away.
    void finish();

 private:
    struct Open {
        KindSum sum;
        float highest = 0;
        std::uint32_t knownMs = 0;
        Causes causes{};
    };
    void addTo(std::int64_t t, std::uint32_t ms, const FigureValues& values);
    FigureSecond closed(std::size_t index) const;

    Finished finished_;
    int station_ = 0;
    int epoch_ = 0;
    std::optional<std::int64_t> t_;
    std::vector<Open> open_;
};

}  // namespace history
