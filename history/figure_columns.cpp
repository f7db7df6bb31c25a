// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/figure_columns.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>

namespace history {

void FigureColumns::add(FileFigure figure) {
    if (!(figure.step > 0) || !std::isfinite(figure.step)) return;
    for (const FileFigure& known : figures_) {
        if (known.id == figure.id || known.key == figure.key) return;
    }
    const auto registry = figures::all();
    for (std::size_t i = 0; i < registry.size(); ++i) {
        if (registry[i].key == figure.key) figure.index = i;
    }
    figures_.push_back(std::move(figure));
}

const FileFigure* FigureColumns::of(std::size_t index) const {
    for (const FileFigure& figure : figures_) {
        if (figure.index == index) return &figure;
    }
    return nullptr;
}

const FileFigure* FigureColumns::byKey(const std::string& key) const {
    const auto found = std::ranges::find(figures_, key, &FileFigure::key);
    return found == figures_.end() ? nullptr : &*found;
}

int FigureColumns::highestId() const {
    int highest = 0;
    for (const FileFigure& figure : figures_) highest = std::max(highest, figure.id);
    return highest;
}

std::int64_t stepsOf(double value, double step) {
    // What no figure reaches, and every file can hold.
    constexpr double kMost = 1e15;
    return static_cast<std::int64_t>(std::clamp(std::floor(value / step + 0.5), -kMost, kMost));
}

}  // namespace history
