// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <optional>
#include <string>

#include "core/numbers.h"
#include "trends/form_history.h"
#include "trends/history_words.h"

namespace hmonitor {

using namespace display;
using history::Band;

namespace {

std::string signedText(const figures::Figure& figure, double difference) {
    return (difference < 0 ? "" : "+") + valueText(figure, difference);
}

}  // namespace

std::optional<std::size_t> Form_History::columnOfMark(std::size_t mark) const {
    const auto at = Plot_Figure[0].mark(mark);
    return at ? view_.columnAt(static_cast<std::int64_t>(*at)) : std::nullopt;
}

/// The last column in view of which any figure is known.
std::optional<std::size_t> Form_History::latestColumn() const {
    const auto end = view_.columnAt(std::min(toMs_, view_.asked.nowMs) - 1);
    if (!end) return std::nullopt;
    for (std::size_t i = *end + 1; i-- > 0;) {
        for (const auto& bands : view_.bands) {
            if (i < bands.size() && bands[i].knownMs > 0) return i;
        }
    }
    return std::nullopt;
}

/// That of the first mark; without one in view the latest.
std::optional<std::size_t> Form_History::shownColumn() const {
    const auto marked = columnOfMark(0);
    return marked ? marked : latestColumn();
}

const Band* Form_History::bandAt(std::size_t which, std::optional<std::size_t> column) const {
    const FigureSet& shown = choice_.shown();
    if (which >= shown.size() || !column) return nullptr;
    const auto read = std::ranges::find(view_.asked.figures, shown[which]);
    const auto place = static_cast<std::size_t>(read - view_.asked.figures.begin());
    if (read == view_.asked.figures.end() || place >= view_.bands.size()) return nullptr;
    const auto& bands = view_.bands[place];
    return *column < bands.size() ? &bands[*column] : nullptr;
}

void Form_History::showValues() {
    const auto column = shownColumn();
    if (column) {
        const AskedRange& range = view_.asked.range;
        const std::int64_t begin = range.fromMs + static_cast<std::int64_t>(*column) * range.eachMs;
        const bool wholeDays = range.eachMs >= kDayMs;
        // Days begin by UTC: its noon is in the day that the first one mostly is here.
        const std::string date =
            dateText(wholeDays ? begin + kDayMs / 2 : begin, Plot_Figure[0].clock());
        // The year beside the length: a whole date is wider than its place.
        const std::size_t year = date.rfind(' ');
        Label_Time.caption = wholeDays ? date.substr(0, year) : clockText(begin);
        Label_Date.caption =
            (wholeDays ? date.substr(year + 1) : date) + " · " + lengthText(range.eachMs);
    } else {
        Label_Time.caption = Label_Date.caption = "";
    }
    const auto one = Plot_Figure[0].mark(0);
    const auto other = Plot_Figure[0].mark(1);
    Label_Between.caption =
        one && other ? "Δ " + lengthText(static_cast<std::int64_t>(*other - *one)) : std::string();
    for (std::size_t i = 0; i < FigureChoice::kMost; ++i) showValue(i, column);
}

void Form_History::showValue(std::size_t which, std::optional<std::size_t> column) {
    Label_Value[which].caption = Label_Band[which].caption = Label_Step[which].caption = "";
    const Band* band = bandAt(which, column);
    if (!band) return;
    const figures::Figure& figure = figures::all()[choice_.shown()[which]];
    Label_Value[which].colour =
        Plot_Figure[which].series().empty() ? kWhite : Plot_Figure[which].series().front().colour;
    const bool known = band->knownMs > 0;
    Label_Value[which].caption = known ? valueText(figure, static_cast<double>(band->mean)) : "—";
    Label_Band[which].caption = bandWords(which, *band);
    const Band* other = bandAt(which, columnOfMark(1));
    if (known && other && other->knownMs > 0) {
        const double away = static_cast<double>(other->mean) - static_cast<double>(band->mean);
        Label_Step[which].caption = "Δ " + signedText(figure, away) + " " + figure.unit;
    } else if (known && band->cause != history::State::Known) {
        Label_Step[which].caption = causeWords(band->cause, language);
    }
}

/// Its unit and from where to where it went, or why it is not known.
std::string Form_History::bandWords(std::size_t which, const Band& band) const {
    if (band.knownMs <= 0) return std::string(causeWords(band.cause, language));
    const figures::Figure& figure = figures::all()[choice_.shown()[which]];
    const std::string lowest = valueText(figure, static_cast<double>(band.lowest));
    const std::string highest = valueText(figure, static_cast<double>(band.highest));
    std::string words = figure.unit;
    if (lowest == highest) return words;
    if (!words.empty()) words += ' ';
    return words + "(" + lowest + " – " + highest + ")";
}

std::string Form_History::tellAt(std::size_t which, double ms) const {
    const auto at = static_cast<std::int64_t>(ms);
    const Band* band = bandAt(which, view_.columnAt(at));
    if (!band) return {};
    const figures::Figure& figure = figures::all()[choice_.shown()[which]];
    std::string told = dateText(at, Plot_Figure[which].clock()) + " " + clockText(at);
    told += "\n" + std::string(in(Words{figure.name.spanish, figure.name.english})) + ": ";
    if (band->knownMs > 0) told += valueText(figure, static_cast<double>(band->mean)) + " ";
    told += bandWords(which, *band);
    // A flag is as wide as some pixels.
    const std::int64_t near = std::max<std::int64_t>(spanMs() / 150, 1000);
    for (const history::Event& event : view_.events) {
        const std::int64_t away = event.t * 1000 - at;
        if (away > near || away < -near) continue;
        told += "\n" + clockText(event.t * 1000) + " " + eventWords(event, language);
    }
    return told;
}

std::string Form_History::read(std::size_t which) const {
    const Band* band = bandAt(which, shownColumn());
    std::string text = Plot_Figure[which].title.get();
    if (!band) return text;
    const figures::Figure& figure = figures::all()[choice_.shown()[which]];
    if (band->knownMs > 0) text += " " + valueText(figure, static_cast<double>(band->mean));
    return text + " " + bandWords(which, *band) + ", " + Label_Time.caption.get();
}

}  // namespace hmonitor
