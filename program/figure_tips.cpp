// SPDX-License-Identifier: GPL-3.0-or-later
#include "program/figure_tips.h"

#include <cmath>
#include <utility>

#include "core/numbers.h"

namespace hmonitor {

namespace {

using display::Language;
using figures::Bounds;
using figures::Figure;
using figures::Place;

std::string_view wordOf(Language language, const figures::Words& words) {
    return language == Language::Spanish ? words.spanish : words.english;
}

/// A number of the table in the unit of a place, without the rounding noise of the conversion.
std::string numberAt(float value, float factor) {
    const double there = static_cast<double>(value) * factor;
    if (std::fabs(there) >= 100) return wholeText(toWhole(there)).str();
    return shortText(valueOf(mask("0.0", there))).str();
}

std::string boundsText(const Bounds& bounds, float factor, Language language) {
    const bool spanish = language == Language::Spanish;
    const bool below = std::isfinite(bounds.lowest);
    const bool above = std::isfinite(bounds.highest);
    const std::string low = below ? numberAt(bounds.lowest, factor) : "";
    const std::string high = above ? numberAt(bounds.highest, factor) : "";
    if (below && above) return low + (spanish ? " a " : " to ") + high;
    if (above) return (spanish ? "hasta " : "up to ") + high;
    if (below) return (spanish ? "desde " : "from ") + low;
    return "";
}

std::string withUnit(std::string text, const char* unit) {
    if (*unit != 0) text.append(" ").append(unit);
    return text;
}

}  // namespace

std::string figureTip(const Figure& figure, const Place& place, Language language) {
    const bool spanish = language == Language::Spanish;
    const float factor = place.factor / figure.source.factor;
    std::string text(wordOf(language, figure.name));
    text.append(": ").append(wordOf(language, figure.definition));
    if (*figure.standard != 0) text.append(" (").append(figure.standard).append(")");
    text += spanish ? "\nEscala: " : "\nRange: ";
    text += withUnit(boundsText(figure.range, factor, language), place.unit);
    const std::string good = boundsText(figure.good, factor, language);
    const std::string_view remark = wordOf(language, figure.remark);
    if (!good.empty()) {
        text += (spanish ? "\nBueno: " : "\nGood: ") + withUnit(good, place.unit);
        if (!remark.empty()) text.append("; ").append(remark);
    } else if (!remark.empty()) {
        text.append(spanish ? "\nBueno: " : "\nGood: ").append(remark);
    }
    return text;
}

display::Words FigureTips::tipOf(const std::vector<Shown>& together) {
    std::vector<const Place*> places;
    for (const Shown& shown : together) places.push_back(shown.place);
    const auto [tip, isNew] = made_.try_emplace(std::move(places));
    if (isNew) {
        for (const Shown& shown : together) {
            const char* const between = tip->second.spanish.empty() ? "" : "\n\n";
            tip->second.spanish +=
                between + figureTip(*shown.figure, *shown.place, Language::Spanish);
            tip->second.english +=
                between + figureTip(*shown.figure, *shown.place, Language::English);
        }
    }
    return {tip->second.spanish.c_str(), tip->second.english.c_str()};
}

namespace {

bool hasTip(const display::Control& control) {
    return *control.tip.english != 0;
}

}  // namespace

void FigureTips::tell(display::Form& form) {
    std::map<display::Control*, std::vector<Shown>> controls, wells;
    for (const Figure& figure : figures::all()) {
        for (const Place& place : figure.shown) {
            if (form.name() != place.form) continue;
            display::Control* const control = form.find(place.control);
            if (!control) continue;
            controls[control].push_back({&figure, &place});
            if (display::Panel* const well = control->container) {
                wells[well].push_back({&figure, &place});
            }
        }
    }
    for (const auto& [control, together] : controls) control->tip = tipOf(together);
    for (const auto& [well, together] : wells) {
        if (!hasTip(*well)) well->tip = tipOf(together);
    }
}

}  // namespace hmonitor
