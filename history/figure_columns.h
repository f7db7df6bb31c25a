// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/figures.h"

namespace history {

/// A figure as one file has it: by a number of that file's own.
struct FileFigure {
    int id = 0;
    std::string key;
    std::string unit;
    figures::Kind kind = figures::Kind::Mean;
    double step = 1;
    std::optional<std::size_t> index;  ///< its place in the registry; none: not known to us
};

/// The figures of one file.
class FigureColumns {
 public:
    /// Passed over: a number that stands twice, a step that is none.
    void add(FileFigure figure);

    const std::vector<FileFigure>& all() const { return figures_; }
    /// The figure with that place in the registry, or null.
    const FileFigure* of(std::size_t index) const;
    const FileFigure* byKey(const std::string& key) const;
    int highestId() const;

 private:
    std::vector<FileFigure> figures_;
};

/// A value as whole steps, and back.
std::int64_t stepsOf(double value, double step);

}  // namespace history
