// SPDX-License-Identifier: GPL-3.0-or-later
#include "program/slot_states.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <span>
#include <string_view>

namespace hmonitor {

namespace {

std::size_t placeOf(std::string_view key) {
    const figures::Figure* const figure = figures::find(key);
    return figure ? static_cast<std::size_t>(figure - figures::all().data()) : figures::kCount;
}

/// A number beyond the list is of a newer library: not known, at any rate.
figures::State stateOf(std::uint8_t said) {
    return said <= HM16_TOO_SLOW ? static_cast<figures::State>(said) : figures::State::NotMeasured;
}

}  // namespace

void SlotStates::forget() {
    places_.clear();
    next_ = 0;
    hasSlot_ = false;
}

void SlotStates::passOver() {
    readOn(nullptr);
    hasSlot_ = false;
}

bool SlotStates::hasFigures() {
    if (!places_.empty()) return true;
    const int count = std::clamp<int>(library_.count(), 0, HM16_MOST_FIGURES);
    for (int i = 0; i < count; ++i) {
        HM16_FigureInfo info{};
        info.size = sizeof info;
        const bool told = library_.describe(i, &info) == 0;
        info.key[std::size(info.key) - 1] = 0;
        places_.push_back(told ? placeOf(info.key) : figures::kCount);
    }
    return !places_.empty();
}

MeasuredSlot SlotStates::placed(const HM16_Slot& slot) const {
    MeasuredSlot measured{slot.number, slot.utcNs, slot.signalNs, slot.lengthMs, {}, {}};
    measured.states.fill(figures::State::NotMeasured);
    for (std::size_t i = 0; i < places_.size(); ++i) {
        if (places_[i] == figures::kCount) continue;
        measured.values[places_[i]] = slot.value[i];
        measured.states[places_[i]] = stateOf(slot.state[i]);
    }
    return measured;
}

void SlotStates::read(SlotTaker& taker) {
    if (hasFigures()) readOn(&taker);
}

void SlotStates::readOn(SlotTaker* taker) {
    constexpr int kRoom = 8;
    // A library that always has more is not followed for ever.
    for (int rounds = 0; rounds < 100; ++rounds) {
        std::array<HM16_Slot, kRoom> slots{};
        const int copied = library_.slots(0, next_, slots.data(), sizeof(HM16_Slot), kRoom, &next_);
        if (copied <= 0) break;
        const std::span read(slots.data(), static_cast<std::size_t>(std::min(copied, kRoom)));
        if (taker) {
            for (const HM16_Slot& slot : read) taker->take(placed(slot));
        }
        slot_ = read.back();
        hasSlot_ = true;
        if (copied < kRoom) break;
    }
}

std::optional<SaidStates> SlotStates::newest() const {
    if (!hasSlot_) return std::nullopt;
    SaidStates said;
    for (std::size_t i = 0; i < places_.size(); ++i) {
        if (places_[i] < figures::kCount) said[places_[i]] = stateOf(slot_.state[i]);
    }
    return said;
}

}  // namespace hmonitor
