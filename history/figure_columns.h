// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/figures.h"

namespace history {

/// A figure as one file stores it, under a number of that file.
struct FileFigure {
    int id = 0;
    std::string key;
    std::string unit;
    figures::Kind kind = figures::Kind::Mean;
    double step = 1;
    std::optional<std::size_t> index;  ///< its index in the registry; none: unknown to this program
};

/// The figures of one file.
class FigureColumns {
 public:
    /// Ignores a number that was added already, and a step that is no step.
    void add(FileFigure figure);

    const std::vector<FileFigure>& all() const { return figures_; }
    /// The figure with that index in the registry, or null.
    const FileFigure* of(std::size_t index) const;
    const FileFigure* byKey(const std::string& key) const;
    int highestId() const;

 private:
    std::vector<FileFigure> figures_;
};

/// Converts a value to whole steps, and back.
std::int64_t stepsOf(double value, double step);

}  // namespace history
