// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/history_tap.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "core/numbers.h"

namespace hmonitor {

namespace {

using history::Input;

/// Readings that stand still are told again so often; the recorder holds each for half a second.
constexpr std::int64_t kAgainMs = 200;
/// Points and frames come by the hundred: that the unit is busy is told so often.
constexpr std::int64_t kBusyMs = 250;
/// More slots than a library keeps: so many may come at once after the program stood still.
constexpr double kMostSlotsDue = 700;
/// A unit that is made to run faster than this would fill the recorder's ring.
constexpr double kQuickest = 4;
/// Of a frequency unit, which is 100 kHz.
constexpr double kKhz = 100;

}  // namespace

HistoryTap::HistoryTap(Program& program, history::InputSink& sink, Clock clock)
    : program_(program),
      sink_(sink),
      clock_(std::move(clock)),
      slotsDue_(kMostSlotsDue),
      correction_("0") {
    program_.driver.listeners().join(*this);
}

HistoryTap::~HistoryTap() {
    program_.driver.listeners().leave(*this);
}

Input HistoryTap::inputNow(Input::What what) const {
    Input input;
    input.what = what;
    input.at = clock_();
    return input;
}

void HistoryTap::tuned(const Tuned& to) {
    Input input = inputNow(Input::What::Tuned);
    input.khz = toWhole(to.frequency * kKhz);
    input.detector = to.detector == Detector::Average ? 1 : 0;
    input.audioMode = to.mode == AudioMode::SumDifference ? 1 : 0;
    handOn(input);
    hasLast_ = false;
    tellCorrection();
}

/// The correction is a text of the settings, which the user may change at any time.
void HistoryTap::tellCorrection() {
    const SmallText& tenths = program_.StationState.DbCorrection10;
    if (tenths == correction_) return;
    correction_ = tenths;
    Input input = inputNow(Input::What::FieldCorrection);
    input.value[0] = static_cast<float>(valueOf(tenths)) / 10;
    handOn(input);
}

void HistoryTap::measured(const Measured& now) {
    tellCorrection();
    Input input = inputNow(Input::What::Readings);
    for (std::size_t i = 0; i < figures::kCount; ++i) {
        input.value[i] = figures::valueOf(figures::all()[i], now.readings);
        input.state[i] = now.states[i];
        input.flag = input.flag || now.states[i] == figures::State::Stale;
    }
    if (saysNothingNew(input)) return;
    handOn(input);
    last_ = input;
    hasLast_ = true;
}

bool HistoryTap::saysNothingNew(const Input& readings) const {
    return hasLast_ && readings.at.steadyMs - last_.at.steadyMs < kAgainMs &&
           readings.value == last_.value && readings.state == last_.state;
}

/// Whether more slots came than time has passed for, four times over. What is passed over then is
/// lost in the file too, and its number tells so; the seconds are known by the others.
bool HistoryTap::isFasterThanLife(std::uint32_t lengthMs) {
    const std::int64_t now = clock_().steadyMs;
    const auto passed = static_cast<double>(now - slotsDueAt_);
    slotsDueAt_ = now;
    slotsDue_ += passed * kQuickest / std::max(static_cast<double>(lengthMs), 1.0);
    slotsDue_ = std::min(slotsDue_, kMostSlotsDue);
    if (slotsDue_ < 1) return true;
    slotsDue_ -= 1;
    return false;
}

void HistoryTap::slotCame(const MeasuredSlot& slot) {
    if (isFasterThanLife(slot.lengthMs)) return;
    Input input = inputNow(Input::What::Slot);
    input.slotUtcMs = slot.utcNs / 1'000'000;
    input.number = slot.number;
    input.lengthMs = slot.lengthMs;
    std::ranges::copy(slot.values, input.value.begin());
    std::ranges::copy(slot.states, input.state.begin());
    handOn(input);
}

void HistoryTap::silent(display::Time) {
    handOn(inputNow(Input::What::Silent));
    hasLast_ = false;
}

void HistoryTap::halted(display::Time) {
    handOn(inputNow(Input::What::Halted));
    hasLast_ = false;
}

void HistoryTap::demoBegan(display::Time) {
    Input input = inputNow(Input::What::Demo);
    input.flag = true;
    handOn(input);
}

void HistoryTap::frameCame(const SweepFrame&) {
    tellBusy();
}

void HistoryTap::levelRead(const MeasuredLevel& level) {
    if (level.from == MeasuredLevel::From::Point) tellBusy();
}

void HistoryTap::tellBusy() {
    const Input input = inputNow(Input::What::Busy);
    if (input.at.steadyMs - busyAt_ < kBusyMs) return;
    busyAt_ = input.at.steadyMs;
    handOn(input);
}

}  // namespace hmonitor
