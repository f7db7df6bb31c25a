// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace hmonitor {

/// Places of figures in the registry, in the order in which they were chosen.
using FigureSet = std::vector<std::size_t>;

/// Which figures the history shows, and the four sets that are kept for a key each.
class FigureChoice {
 public:
    static constexpr std::size_t kMost = 4;
    static constexpr std::size_t kSets = 4;

    FigureChoice();

    const FigureSet& shown() const { return shown_; }
    bool isShown(std::size_t figure) const;
    bool full() const { return shown_.size() >= kMost; }
    /// Adds it at the end, or takes it out. One more than the most is not taken.
    void choose(std::size_t figure, bool on);

    const FigureSet& set(std::size_t which) const { return sets_.at(which); }
    void recall(std::size_t which) { shown_ = sets_.at(which); }
    void keep(std::size_t which) { sets_.at(which) = shown_; }

    /// As a file: a line for what is shown and one for each set, by the figures' keys.
    std::string text() const;
    /// What is understood of such a text; keys that no figure has are passed over.
    void read(std::string_view text);

 private:
    FigureSet shown_;
    std::array<FigureSet, kSets> sets_;
};

}  // namespace hmonitor
