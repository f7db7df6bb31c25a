// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/controls/plot_axis.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace display {

namespace {

/// Where a logarithmic axis puts a value that has no logarithm, in its own lengths.
constexpr double kFarBelow = -1000;

std::string numberText(double value, int decimals) {
    std::array<char, 64> text{};
    // Minus nothing is nothing.
    const double shown = value == 0 ? 0 : value;
    const auto end = std::to_chars(text.data(), text.data() + text.size(), shown,
                                   std::chars_format::fixed, decimals);
    return {text.data(), end.ptr};
}

struct RoundStep {
    double step = 1;
    int decimals = 0;
};

/// The smallest round step that divides the span in at most so many parts.
RoundStep stepFor(const PlotAxis& axis, int atMost) {
    const double wanted = axis.span() / std::max(atMost, 1);
    const double decade = std::pow(10.0, std::floor(std::log10(wanted)));
    double step = 10 * decade;
    for (const double round : {1.0, 2.0, 5.0}) {
        if (round * decade >= wanted * (1 - 1e-9)) {
            step = round * decade;
            break;
        }
    }
    // What is read in whole dB needs no line between them.
    if (axis.kind == AxisKind::Decibel) step = std::max(step, 1.0);
    const int decimals = step >= 1 ? 0 : static_cast<int>(std::ceil(-std::log10(step) - 1e-9));
    return {step, decimals};
}

std::vector<PlotTick> evenTicks(const PlotAxis& axis, int atMost) {
    const RoundStep round = stepFor(axis, atMost);
    std::vector<PlotTick> ticks;
    const double slack = round.step * 1e-6;
    // Multiples are counted, since sums of steps would drift.
    for (double i = std::ceil((axis.lowest - slack) / round.step);
         i * round.step <= axis.highest + slack; ++i) {
        ticks.push_back({i * round.step, numberText(i * round.step, round.decimals)});
    }
    return ticks;
}

std::vector<PlotTick> decadeTicks(const PlotAxis& axis, int atMost) {
    const int first = static_cast<int>(std::floor(std::log10(axis.lowest) + 1e-9));
    const int last = static_cast<int>(std::ceil(std::log10(axis.highest) - 1e-9));
    const int decades = std::max(last - first, 1);
    const int each = std::max((decades + atMost - 1) / std::max(atMost, 1), 1);
    const bool between = decades * 3 <= atMost;
    std::vector<PlotTick> ticks;
    for (int decade = first; decade <= last; decade += each) {
        for (const double part : {1.0, 2.0, 5.0}) {
            const double at = part * std::pow(10.0, decade);
            if (part > 1 && !between) continue;
            if (at < axis.lowest * (1 - 1e-9) || at > axis.highest * (1 + 1e-9)) continue;
            ticks.push_back({at, numberText(at, std::max(-decade, 0))});
        }
    }
    return ticks;
}

}  // namespace

double PlotAxis::shareOf(double value) const {
    if (!(highest > lowest)) return 0;
    if (kind != AxisKind::Log) return (value - lowest) / (highest - lowest);
    if (lowest <= 0) return 0;
    if (value <= 0) return kFarBelow;
    return std::log(value / lowest) / std::log(highest / lowest);
}

double PlotAxis::valueAt(double share) const {
    if (!(highest > lowest)) return lowest;
    if (kind != AxisKind::Log || lowest <= 0) return lowest + share * (highest - lowest);
    return lowest * std::pow(highest / lowest, share);
}

std::vector<PlotTick> roundTicks(const PlotAxis& axis, int atMost) {
    if (atMost < 1 || !(axis.highest > axis.lowest) || !std::isfinite(axis.span())) return {};
    if (axis.kind != AxisKind::Log) return evenTicks(axis, atMost);
    return axis.lowest > 0 ? decadeTicks(axis, atMost) : std::vector<PlotTick>{};
}

}  // namespace display
