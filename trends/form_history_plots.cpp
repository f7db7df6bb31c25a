// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "core/numbers.h"
#include "trends/form_history.h"
#include "trends/history_words.h"
#include "trends/value_axis.h"

namespace hmonitor {

using namespace display;
using history::Band;

namespace {

/// The colours of the plots from the top.
constexpr std::array<Colour, FigureChoice::kMost> kSeriesColours = {
    kCyan, Colour{0x44ff33}, Colour{0x44bbff}, Colour{0xff8cd0}};
constexpr Colour kBeforeColour{0xb4acA4};

PlotPoint pointOf(double x, const Band& band) {
    const auto cause = static_cast<std::uint8_t>(band.cause);
    if (band.knownMs > 0) return {x, band.mean, band.lowest, band.highest, cause};
    return PlotPoint::unknown(x, band.cause == history::State::Known
                                     ? static_cast<std::uint8_t>(history::kNotRecorded)
                                     : cause);
}

PlotSeries seriesOf(const AskedRange& range, const std::vector<Band>& bands, std::int64_t nowMs,
                    Colour colour) {
    PlotSeries series;
    series.each = static_cast<double>(range.eachMs);
    series.missing = static_cast<std::uint8_t>(history::kNotRecorded);
    series.colour = colour;
    for (std::size_t i = 0; i < bands.size(); ++i) {
        const std::int64_t begin = range.fromMs + static_cast<std::int64_t>(i) * range.eachMs;
        if (mayBeOnItsWay(bands[i], begin + range.eachMs, nowMs)) break;
        series.points.push_back(pointOf(static_cast<double>(begin), bands[i]));
    }
    series.from = static_cast<double>(range.fromMs);
    series.to = series.from + static_cast<double>(series.points.size()) * series.each;
    return series;
}

std::vector<PlotLimit> limitsOf(const figures::Figure& figure) {
    std::vector<PlotLimit> limits;
    for (const float bound : {figure.good.lowest, figure.good.highest}) {
        if (std::isfinite(bound)) limits.push_back({static_cast<double>(bound), Colour{0x4444f4}});
    }
    return limits;
}

}  // namespace

void Form_History::showAll() {
    sharePlots();
    showChecks();
    showStations();
    for (std::size_t i = 0; i < FigureChoice::kMost; ++i) showPlot(i);
    showNote();
    showValues();
    showCauses();
    showKnown();
    showParts();
}

void Form_History::showChecks() {
    syncing_ = true;
    for (std::size_t i = 0; i < figures::kCount; ++i) {
        const bool shown = choice_.isShown(i);
        Check_Figure[i].checked = shown;
        // There is room for four.
        Check_Figure[i].enabled = shown || !choice_.full();
        Swatch[i].visible = shown;
    }
    const FigureSet& shown = choice_.shown();
    for (std::size_t i = 0; i < shown.size(); ++i) {
        Swatch[shown[i]].colour = kSeriesColours.at(i);
        Swatch[shown[i]].fadesFrom = kSeriesColours.at(i);
    }
    for (std::size_t i = 0; i < FigureChoice::kSets; ++i)
        Command_Set[i].lit = choice_.set(i) == choice_.shown();
    Command_Keep.lit = keeping_;
    syncing_ = false;
}

void Form_History::showStations() {
    std::vector<std::string> rows;
    for (const int khz : view_.stations) {
        constexpr double kKhzPerMhz = 1000;
        rows.push_back(shortText(khz / kKhzPerMhz).str() + " MHz");
    }
    syncing_ = true;
    if (Combo_Station.list.rows() != rows) {
        Combo_Station.list.clear();
        for (const std::string& row : rows) Combo_Station.list.add(row);
    }
    const auto found = std::ranges::find(view_.stations, view_.station);
    const int row =
        found == view_.stations.end() ? -1 : static_cast<int>(found - view_.stations.begin());
    if (Combo_Station.list.selected() != row) Combo_Station.select(row);
    syncing_ = false;
    Combo_Station.visible = !rows.empty();
}

void Form_History::showPlot(std::size_t which) {
    Plot& plot = Plot_Figure[which];
    const FigureSet& shown = choice_.shown();
    plot.note = "";
    if (which >= shown.size()) {
        plot.title = plot.unit = "";
        plot.series({});
        plot.reference(std::nullopt);
        plot.limits({});
        plot.flags({});
        return;
    }
    const figures::Figure& figure = figures::all()[shown[which]];
    plot.title = in(Words{figure.name.spanish, figure.name.english});
    plot.unit = figure.unit;
    plot.limits(limitsOf(figure));
    // While another set of figures is read, what was read of this one stays.
    const auto read = std::ranges::find(view_.asked.figures, shown[which]);
    const auto place = static_cast<std::size_t>(read - view_.asked.figures.begin());
    const bool has = read != view_.asked.figures.end() && place < view_.bands.size();
    const bool hasBefore = has && place < view_.before.size();
    PlotSeries empty;
    empty.colour = kSeriesColours.at(which);
    plot.series({has ? seriesOf(view_.asked.range, view_.bands[place], view_.asked.nowMs,
                                kSeriesColours.at(which))
                     : empty});
    plot.reference(hasBefore ? std::optional(seriesOf(view_.asked.range, view_.before[place],
                                                      INT64_MAX, kBeforeColour))
                             : std::nullopt);
    plot.y =
        valueAxis(figure, has ? std::span<const Band>(view_.bands[place]) : std::span<const Band>(),
                  hasBefore ? std::span<const Band>(view_.before[place]) : std::span<const Band>());
    std::vector<PlotFlag> flags;
    for (const history::Event& event : view_.events)
        flags.push_back({static_cast<double>(event.t) * 1000, eventColour(event.kind)});
    plot.flags(std::move(flags));
}

/// What a window without a curve has to say.
void Form_History::showNote() {
    Plot& first = Plot_Figure[0];
    if (choice_.shown().empty()) {
        first.note = in({"Elija una cifra a la izquierda", "Choose a figure at the left"});
    } else if (answered_ && view_.station == 0) {
        first.note =
            in({"Todavía no se registró nada. Se registra por sí solo mientras la unidad "
                "mide; en modo demo, nunca.",
                "Nothing has been recorded yet. It is recorded by itself while the unit "
                "measures; in demo mode, never."});
    } else if (!answered_) {
        first.note = in({"Leyendo…", "Reading…"});
    }
}

void Form_History::showCauses() {
    std::array<double, history::kFileStates + 1> lengths{};
    for (const auto& bands : view_.bands) {
        for (std::size_t i = 0; i < bands.size(); ++i) {
            const std::int64_t begin =
                view_.asked.range.fromMs + static_cast<std::int64_t>(i) * view_.asked.range.eachMs;
            if (begin + view_.asked.range.eachMs <= fromMs_ || begin >= toMs_) continue;
            const auto cause = static_cast<std::size_t>(bands[i].cause);
            if (cause == 0 || cause >= lengths.size()) continue;
            if (mayBeOnItsWay(bands[i], begin + view_.asked.range.eachMs, view_.asked.nowMs))
                continue;
            lengths[cause] += static_cast<double>(view_.asked.range.eachMs) - bands[i].knownMs;
        }
    }
    for (std::size_t i = 0; i < kCauses; ++i) {
        const auto longest = std::ranges::max_element(lengths);
        const bool any = *longest > 0;
        CauseSwatch[i].visible = any;
        Label_Cause[i].caption = "";
        if (!any) continue;
        const auto cause = static_cast<history::State>(longest - lengths.begin());
        CauseSwatch[i].colour = causeColour(cause);
        CauseSwatch[i].fadesFrom = causeColour(cause);
        Label_Cause[i].caption = causeWords(cause, language);
        *longest = 0;
    }
}

void Form_History::showParts() {
    for (std::size_t i = 0; i < kParts; ++i) {
        const auto edge = [&](std::size_t part) {
            return fromMs_ +
                   spanMs() * static_cast<std::int64_t>(part) / static_cast<std::int64_t>(kParts);
        };
        const Colour colour = partColour(edge(i), edge(i + 1));
        Part[i].colour = colour;
        Part[i].fadesFrom = colour;
    }
}

/// Of all shown figures: amber where a mean lay beyond its bounds, else green where more than half
/// is known, grey where less is, dark where nobody recorded.
Colour Form_History::partColour(std::int64_t fromMs, std::int64_t toMs) const {
    constexpr Colour kGood{0x3c7d1c};
    constexpr Colour kBeyond{0x38aaf0};
    constexpr Colour kUnknown{0x66605a};
    constexpr Colour kNobody{0x2a2622};
    const AskedRange& range = view_.asked.range;
    const std::int64_t each = range.eachMs;
    const std::int64_t first = std::max<std::int64_t>((fromMs - range.fromMs) / each, 0);
    const std::int64_t last = (toMs - 1 - range.fromMs) / each;
    double known = 0;
    double told = 0;
    bool beyond = false;
    for (std::size_t f = 0; f < view_.bands.size(); ++f) {
        const figures::Figure& figure = figures::all()[view_.asked.figures[f]];
        const auto end = static_cast<std::int64_t>(view_.bands[f].size());
        for (std::int64_t i = first; i <= last && i < end; ++i) {
            const Band& band = view_.bands[f][static_cast<std::size_t>(i)];
            known += band.knownMs;
            const bool nobody = band.knownMs <= 0 && band.cause == history::kNotRecorded;
            told += nobody ? 0 : static_cast<double>(each);
            beyond = beyond || (band.knownMs > 0 && (band.mean < figure.good.lowest ||
                                                     band.mean > figure.good.highest));
        }
    }
    if (told <= 0) return kNobody;
    if (beyond) return kBeyond;
    return known > told / 2 ? kGood : kUnknown;
}

void Form_History::showKnown() {
    if (view_.station == 0 || view_.bands.empty()) {
        Label_Known.caption = "";
        return;
    }
    const double percent = view_.knownShare(fromMs_, toMs_) * 100;
    // Nearly all is not all.
    const std::string number = mask("0.0", percent < 100 ? std::min(percent, 99.9) : percent).str();
    Label_Known.caption = std::string(in({"conocido ", "known "})) + number + " %";
}

}  // namespace hmonitor
