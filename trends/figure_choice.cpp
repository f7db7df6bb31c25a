// SPDX-License-Identifier: GPL-3.0-or-later
#include "trends/figure_choice.h"

#include <algorithm>

#include "base/figures.h"

namespace hmonitor {

namespace {

FigureSet setOf(std::string_view keys) {
    FigureSet set;
    while (!keys.empty()) {
        const std::string_view key = keys.substr(0, keys.find(' '));
        keys.remove_prefix(std::min(key.size() + 1, keys.size()));
        const figures::Figure* figure = figures::find(key);
        if (!figure || set.size() >= FigureChoice::kMost) continue;
        const auto place = static_cast<std::size_t>(figure - figures::all().data());
        if (std::ranges::find(set, place) == set.end()) set.push_back(place);
    }
    return set;
}

std::string keysOf(const FigureSet& set) {
    std::string keys;
    for (const std::size_t figure : set)
        keys.append(keys.empty() ? "" : " ").append(figures::all()[figure].key);
    return keys;
}

}  // namespace

FigureChoice::FigureChoice()
    : shown_(setOf("deviation_peak field pilot_level")),
      sets_{setOf("deviation_peak field pilot_level"),
            setOf("deviation_peak relative_power peaks_per_minute"),
            setOf("level_left level_right stereo_phase"),
            setOf("multipath noise_left noise_right rds_level")} {}

bool FigureChoice::isShown(std::size_t figure) const {
    return std::ranges::find(shown_, figure) != shown_.end();
}

void FigureChoice::choose(std::size_t figure, bool on) {
    if (on == isShown(figure) || figure >= figures::kCount) return;
    if (!on) {
        std::erase(shown_, figure);
    } else if (!full()) {
        shown_.push_back(figure);
    }
}

std::string FigureChoice::text() const {
    std::string text = "shown " + keysOf(shown_) + "\r\n";
    for (const FigureSet& set : sets_) text += "set " + keysOf(set) + "\r\n";
    return text;
}

void FigureChoice::read(std::string_view text) {
    std::size_t nextSet = 0;
    while (!text.empty()) {
        std::string_view line = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(line.size() + 1, text.size()));
        if (line.ends_with('\r')) line.remove_suffix(1);
        if (line.starts_with("shown ")) shown_ = setOf(line.substr(6));
        if (line.starts_with("set ") && nextSet < kSets)
            sets_.at(nextSet++) = setOf(line.substr(4));
    }
}

}  // namespace hmonitor
