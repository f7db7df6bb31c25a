// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "history/figure_columns.h"
#include "history/span_value.h"

namespace history {

/// All figures of a minute, an hour or a day of one station.
struct Span {
    std::int64_t t = 0;        ///< its first second, since 1970 UTC
    std::int64_t seconds = 0;  ///< its length: 60, 3600, or a civil day of 23, 24 or 25 hours
    int station = 0;           ///< kHz
    int epoch = 0;
    std::array<SpanValue, kMostFigures> figures{};
};

std::string packSpan(const Span& span, const FigureColumns& columns);

/// Reads a packed span without trusting it.
class SpanBlock {
 public:
    static std::optional<SpanBlock> open(std::string_view data);

    std::int64_t seconds() const { return seconds_; }
    /// One figure; none if its column is damaged, an empty value if the span lacks it.
    std::optional<SpanValue> figure(const FileFigure& figure) const;

 private:
    std::string_view data_;
    std::int64_t seconds_ = 0;
};

}  // namespace history
