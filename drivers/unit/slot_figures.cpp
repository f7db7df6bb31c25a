// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/unit/slot_figures.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <vector>

#include "base/figures.h"

namespace hm16 {

namespace {

using Outputs = std::array<float, sizeof(Readings) / sizeof(float)>;
static_assert(Outputs().size() == figures::Source::kRdsLevel, "outputs in their order, then RDS");

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
    const auto plain = std::bit_cast<Outputs>(leftRight);
    const auto halves = std::bit_cast<Outputs>(sumDifference);
    std::size_t place = 0;
    for (const figures::Figure& figure : figures::all()) {
        const auto output = static_cast<std::size_t>(figure.source.output - 1);
        const bool ofHalves = figure.source.mode == figures::Mode::SumDifference;
        slot.value[place] = (ofHalves ? halves : plain)[output] * figure.source.factor;
        const bool nothing = figure.known == figures::Known::NotZero && slot.value[place] == 0;
        slot.state[place] = nothing ? HM16_NOT_MEASURED : HM16_KNOWN;
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
