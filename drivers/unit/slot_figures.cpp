// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/unit/slot_figures.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <vector>

#include "base/figures.h"

namespace hm16 {

namespace {

constexpr bool saysTheSame(figures::State state, int number) {
    return static_cast<int>(state) == number;
}
static_assert(saysTheSame(figures::State::Known, HM16_KNOWN));
static_assert(saysTheSame(figures::State::Settling, HM16_SETTLING));
static_assert(saysTheSame(figures::State::NoCarrier, HM16_NO_CARRIER));
static_assert(saysTheSame(figures::State::TooNoisy, HM16_TOO_NOISY));
static_assert(saysTheSame(figures::State::Multipath, HM16_MULTIPATH));
static_assert(saysTheSame(figures::State::NoPilot, HM16_NO_PILOT));
static_assert(saysTheSame(figures::State::Overload, HM16_OVERLOAD));
static_assert(saysTheSame(figures::State::Gap, HM16_GAP));
static_assert(saysTheSame(figures::State::UnitAway, HM16_UNIT_AWAY));
static_assert(saysTheSame(figures::State::Stale, HM16_STALE));
static_assert(saysTheSame(figures::State::NotMeasured, HM16_NOT_MEASURED));
static_assert(saysTheSame(figures::State::OutOfRange, HM16_OUT_OF_RANGE));
static_assert(saysTheSame(figures::State::TooSlow, HM16_TOO_SLOW));

template <std::size_t Room>
void putText(char (&place)[Room], const char* text) {
    std::memset(place, 0, Room);
    std::memcpy(place, text, std::min(std::strlen(text), Room - 1));
}

std::vector<HM16_FigureInfo> describedRegistry() {
    std::vector<HM16_FigureInfo> infos;
    for (const figures::Figure& figure : figures::all()) {
        HM16_FigureInfo info{};
        info.size = sizeof info;
        putText(info.key, figure.key);
        putText(info.unit, figure.unit);
        info.lowest = figure.range.lowest;
        info.highest = figure.range.highest;
        infos.push_back(info);
    }
    return infos;
}

}  // namespace

std::span<const HM16_FigureInfo> registeredFigures() {
    static const std::vector<HM16_FigureInfo> kInfos = describedRegistry();
    return kInfos;
}

int placeOfFigure(std::string_view key) {
    const auto all = figures::all();
    const auto found = std::find_if(
        all.begin(), all.end(), [&](const figures::Figure& figure) { return figure.key == key; });
    return found == all.end() ? -1 : static_cast<int>(found - all.begin());
}

void putReadings(HM16_Slot& slot, const Readings& leftRight, const Readings& sumDifference) {
    std::size_t place = 0;
    for (const figures::Figure& figure : figures::all()) {
        const bool ofHalves = figure.source.mode == figures::Mode::SumDifference;
        const Readings& readings = ofHalves ? sumDifference : leftRight;
        slot.value[place] = figures::valueOf(figure, readings);
        slot.state[place] = static_cast<std::uint8_t>(figures::knownWhen(figure, readings));
        ++place;
    }
}

void markUnknown(HM16_Slot& slot, std::string_view key, int state) {
    const int place = placeOfFigure(key);
    if (place >= 0 && slot.state[place] == HM16_KNOWN)
        slot.state[place] = static_cast<std::uint8_t>(state);
}

void markAllUnknownBut(HM16_Slot& slot, std::span<const std::string_view> keys, int state) {
    std::size_t place = 0;
    for (const figures::Figure& figure : figures::all()) {
        const bool stays = std::find(keys.begin(), keys.end(), figure.key) != keys.end();
        if (!stays) slot.state[place] = static_cast<std::uint8_t>(state);
        ++place;
    }
}

}  // namespace hm16
