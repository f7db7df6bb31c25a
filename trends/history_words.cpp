// SPDX-License-Identifier: GPL-3.0-or-later
#include "trends/history_words.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>

#include "core/numbers.h"
#include "display/desktop.h"
#include "history/civil_day.h"

namespace hmonitor {

namespace {

using display::Colour;
using display::Language;
using display::Words;
using history::Event;
using history::EventKind;
using history::State;

struct CauseLook {
    State cause;
    Words words;
    Colour colour;
};

// Amber for the unit's own doings, blue for the air, red for what is damaged, grey for nobody.
constexpr std::array<CauseLook, 13> kCauses = {{
    {State::Settling, {"asentándose", "settling"}, {0xd0b080}},
    {State::NoCarrier, {"sin portadora", "no carrier"}, {0xff8040}},
    {State::TooNoisy, {"demasiado ruido", "too noisy"}, {0xe0a0a0}},
    {State::Multipath, {"multitrayecto", "multipath"}, {0xd070d0}},
    {State::NoPilot, {"sin piloto", "no pilot"}, {0xc8c060}},
    {State::Overload, {"sobrecarga", "overload"}, {0x4040ff}},
    {State::Gap, {"muestras perdidas", "samples lost"}, {0x5070f0}},
    {State::UnitAway, {"unidad ocupada", "unit away"}, {0x2a98e8}},
    {State::Stale, {"sin datos nuevos", "no new data"}, {0x60c8d8}},
    {State::NotMeasured, {"no se mide", "not measured"}, {0x707070}},
    {State::OutOfRange, {"fuera de rango", "out of range"}, {0x6060d8}},
    {State::TooSlow, {"equipo lento", "machine too slow"}, {0x8080ff}},
    {history::kNotRecorded, {"no se registró", "not recorded"}, {0x3e3a36}},
}};

const CauseLook* lookOf(State cause) {
    const auto found = std::ranges::find(kCauses, cause, &CauseLook::cause);
    return found == kCauses.end() ? nullptr : &*found;
}

std::string two(std::int64_t number) {
    return mask("00", number).str();
}

struct Moment {
    std::chrono::year_month_day date;
    std::int64_t second;  ///< of the day

    explicit Moment(std::int64_t seconds) {
        using namespace std::chrono;
        const auto day = floor<days>(sys_seconds(std::chrono::seconds(seconds)));
        date = day;
        second = (sys_seconds(std::chrono::seconds(seconds)) - day).count();
    }
    std::string clock() const {
        return two(second / 3600) + ":" + two(second / 60 % 60) + ":" + two(second % 60);
    }
    int day() const { return static_cast<int>(static_cast<unsigned>(date.day())); }
    int month() const { return static_cast<int>(static_cast<unsigned>(date.month())); }
    int year() const { return static_cast<int>(date.year()); }
    std::string stamp() const {
        return mask("0000", year()).str() + "-" + two(month()) + "-" + two(day()) + "T" + clock();
    }
};

std::int64_t secondsOf(std::int64_t ms) {
    return ms / 1000 - (ms % 1000 < 0 ? 1 : 0);
}

Moment localMoment(std::int64_t ms) {
    const std::int64_t t = secondsOf(ms);
    return Moment(t + history::zoneOffset(t));
}

}  // namespace

std::string_view causeWords(State cause, Language language) {
    const CauseLook* look = lookOf(cause);
    return look ? wordsIn(language, look->words) : std::string_view();
}

Colour causeColour(State cause) {
    const CauseLook* look = lookOf(cause);
    return look ? look->colour : display::kWhite;
}

std::vector<display::PlotCause> causeColours() {
    std::vector<display::PlotCause> all;
    for (const CauseLook& look : kCauses)
        all.push_back({static_cast<std::uint8_t>(look.cause), look.colour});
    return all;
}

std::string eventWords(const Event& event, Language language) {
    constexpr std::array<Words, 14> kKinds = {
        {{"el registro empieza", "recording starts"},
         {"el registro termina", "recording ends"},
         {"sintonizada", "tuned"},
         {"unidad perdida", "unit lost"},
         {"unidad encontrada", "unit found"},
         {"muestras perdidas", "samples lost"},
         {"cambió la hora", "clock set"},
         {"modo demo", "demo mode"},
         {"corrección de campo", "field correction"},
         {"unidad ocupada", "unit taken"},
         {"segundos perdidos", "seconds lost"},
         {"archivo apartado", "file set aside"},
         {"el equipo durmió", "the machine slept"},
         {"el programa se detuvo", "the program stood still"}}};
    const auto place = static_cast<std::size_t>(event.kind) - 1;
    std::string words(place < kKinds.size() ? wordsIn(language, kKinds[place])
                                            : std::string_view());
    if (!event.text.empty()) words.append(": ").append(event.text);
    return words;
}

Colour eventColour(EventKind kind) {
    switch (kind) {
        case EventKind::UnitLost:
        case EventKind::Gap:
        case EventKind::Lost:
        case EventKind::Damaged:
        case EventKind::Asleep:
        case EventKind::Held:
            return {0x6060ff};
        case EventKind::ClockStepped:
        case EventKind::FieldCorrection:
            return {0xff90c0};
        case EventKind::Away:
            return causeColour(State::UnitAway);
        default:
            return {0xd8d0c0};
    }
}

std::string clockText(std::int64_t ms) {
    return localMoment(ms).clock();
}

std::string dateText(std::int64_t ms, const display::WallClock& clock) {
    const Moment moment = localMoment(ms);
    const std::string month = clock.month ? clock.month(moment.month() - 1) : two(moment.month());
    return wholeText(moment.day()).str() + " " + month + " " + wholeText(moment.year()).str();
}

std::string localStamp(std::int64_t ms) {
    const int ahead = history::zoneOffset(secondsOf(ms));
    const int away = ahead < 0 ? -ahead : ahead;
    return localMoment(ms).stamp() + (ahead < 0 ? "-" : "+") + two(away / 3600) + ":" +
           two(away / 60 % 60);
}

std::string utcStamp(std::int64_t ms) {
    return Moment(secondsOf(ms)).stamp() + "Z";
}

std::string lengthText(std::int64_t ms) {
    const std::int64_t seconds = (ms < 0 ? -ms : ms) / 1000;
    const std::int64_t minutes = seconds / 60;
    const std::int64_t hours = minutes / 60;
    const auto both = [](std::int64_t large, const char* unit, std::int64_t small,
                         const char* smallUnit) {
        const std::string text = wholeText(large).str() + " " + unit;
        return small == 0 ? text : text + " " + two(small) + " " + smallUnit;
    };
    if (minutes == 0) return wholeText(seconds).str() + " s";
    if (hours == 0) return both(minutes, "min", seconds % 60, "s");
    if (hours < 48) return both(hours, "h", minutes % 60, "min");
    return both(hours / 24, "d", hours % 24, "h");
}

std::string valueText(const figures::Figure& figure, double value) {
    const bool fine = figure.range.highest - figure.range.lowest <= 20.f;
    return mask(fine ? "0.00" : "0.0", value).str();
}

display::WallClock machineClock(const display::Desktop& desktop) {
    return {[](std::int64_t t) { return history::zoneOffset(t); },
            [&desktop](int month) { return desktop.shortMonthName(month); }};
}

}  // namespace hmonitor
