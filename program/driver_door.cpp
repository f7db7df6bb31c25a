// SPDX-License-Identifier: GPL-3.0-or-later
#include "program/driver_door.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <optional>

namespace hmonitor {

namespace {

using figures::State;

constexpr float kOtherLimit = 10000.f;
/// No unit of this family calls itself so: whoever says it is not one.
constexpr float kHighestVersion = 1000.f;
/// Where the tuning bar begins and ends, the half step of its last place included.
constexpr float kLowestTuned = 875.f;
constexpr float kHighestTuned = 1081.5f;

bool canBe(float said, float limit) {
    return std::isfinite(said) && std::fabs(said) <= limit;
}

/// The unit's value if it is a possible reading, otherwise the last good one.
float checked(float said, float lastGood, float limit) {
    return canBe(said, limit) ? said : lastGood;
}

}  // namespace

float DriverDoor::limitOf(figures::Output output) {
    if (output == &Readings::peakModulation) return 1000.f;
    // It also carries the end mark of a response run, 11583.
    return output == &Readings::pilotError ? 20000.f : kOtherLimit;
}

std::int32_t DriverDoor::HM_DemoMode() {
    const std::int32_t result = library_.HM_DemoMode();
    listeners_.demoBegan(desktop_.now());
    return result;
}

std::int32_t DriverDoor::HM_Normal(float frequency, std::int32_t average, std::int32_t audioMode,
                                   std::int32_t response, std::int32_t logFiles) {
    // They come out of files that anybody may have written; the files keep what they hold.
    frequency = std::clamp(frequency, kLowestTuned, kHighestTuned);
    for (std::int32_t* flag : {&average, &audioMode, &response, &logFiles})
        *flag = std::clamp(*flag, 0, 1);
    still_.begin(desktop_.now());
    const std::int32_t result =
        library_.HM_Normal(frequency, average, audioMode, response, logFiles);
    doing_ = Doing::Measuring;
    tuned_ = {frequency, average != 0 ? Detector::Average : Detector::Peak,
              audioMode != 0 ? AudioMode::SumDifference : AudioMode::LeftRight, desktop_.now()};
    listeners_.tuned(tuned_);
    return result;
}

std::int32_t DriverDoor::HM_Parar() {
    still_.end();
    const std::int32_t result = library_.HM_Parar();
    if (doing_ == Doing::Measuring) doing_ = Doing::SomethingElse;
    listeners_.halted(desktop_.now());
    return result;
}

void DriverDoor::keep(std::size_t output, float said) {
    const figures::Output reading = figures::kOutputs[output];
    dropped_[output] = !canBe(said, limitOf(reading));
    if (!dropped_[output]) good_.*reading = said;
}

Readings DriverDoor::HM_Data() {
    Readings said = good_;
    library_.HM_Data(said);
    for (std::size_t i = 0; i < figures::kDataOutputs; ++i) keep(i, said.*figures::kOutputs[i]);
    tellMeasured();
    return good_;
}

std::int32_t DriverDoor::HM_DataRDS(float& error, float& level) {
    Readings said = good_;
    said.rdsLevel = level;
    const std::int32_t result = library_.HM_DataRDS(said.rdsError, said.rdsLevel);
    for (std::size_t i = figures::kDataOutputs; i < figures::kOutputs.size(); ++i) {
        keep(i, said.*figures::kOutputs[i]);
    }
    error = good_.rdsError;
    level = good_.rdsLevel;
    tellMeasured();
    return result;
}

void DriverDoor::take(const MeasuredSlot& slot) {
    if (listeners_.none()) return;
    MeasuredSlot possible = slot;
    for (std::size_t i = 0; i < figures::kCount; ++i) {
        const figures::Bounds range = figures::all()[i].range;
        State& state = possible.states[i];
        // Not a number is within no range.
        const bool isWithin = slot.values[i] >= range.lowest && slot.values[i] <= range.highest;
        if (state == State::Known && !isWithin) state = State::OutOfRange;
    }
    listeners_.slotCame(possible);
}

void DriverDoor::tellMeasured() {
    still_.take(good_, desktop_.now());
    if (doing_ == Doing::Measuring) library_.readSlots(*this);
    if (!listeners_.none()) listeners_.measured(measured());
}

/// Why the figure is not known, as the library says it where it says anything.
State DriverDoor::stateOf(const figures::Figure& figure, std::optional<State> said) const {
    const auto place = std::ranges::find(figures::kOutputs, figure.source.output);
    if (dropped_[static_cast<std::size_t>(place - figures::kOutputs.begin())]) {
        return State::OutOfRange;
    }
    const bool sum = tuned_.mode == AudioMode::SumDifference;
    const State held = figures::heldBy(
        figure, good_, sum ? figures::Mode::SumDifference : figures::Mode::LeftRight);
    if (held != State::Known) return held;
    return said.value_or(figures::knownWhen(figure, good_));
}

Measured DriverDoor::measured() const {
    Measured now{good_, {}, desktop_.now()};
    if (doing_ != Doing::Measuring) {
        now.states.fill(doing_ == Doing::Nothing ? State::NotMeasured : State::UnitAway);
        return now;
    }
    const bool stale = staleSeconds() > 0;
    std::optional<SaidStates> said = library_.states();
    if (!said && library_.hasSlots()) said.emplace().fill(State::Settling);
    for (std::size_t i = 0; i < figures::kCount; ++i) {
        const State state = stateOf(figures::all()[i], said ? (*said)[i] : std::nullopt);
        now.states[i] = stale && state == State::Known ? State::Stale : state;
    }
    return now;
}

std::int32_t DriverDoor::HM_Super(float frequency, float& level) {
    float said = level;
    const std::int32_t result = library_.HM_Super(frequency, said);
    level = checked(said, level, kOtherLimit);
    if (result == 0) tellLevel(frequency, said, MeasuredLevel::From::Point);
    desktop_.letEventsThrough();
    return result;
}

std::int32_t DriverDoor::HM_StartEspectro(float start, float stop, std::int32_t stepKhz) {
    sweep_ = {start, stop, stepKhz, {}};
    return library_.HM_StartEspectro(start, stop, stepKhz);
}

std::int32_t DriverDoor::HM_TramaEspectroRecibida() {
    const std::int32_t came = library_.HM_TramaEspectroRecibida();
    if (came != 0) {
        sweep_.at = desktop_.now();
        listeners_.frameCame(sweep_);
    }
    return came;
}

std::int32_t DriverDoor::HM_GetEspectro(float frequency, float& level) {
    float said = level;
    const std::int32_t result = library_.HM_GetEspectro(frequency, said);
    level = checked(said, level, kOtherLimit);
    tellLevel(frequency, said, MeasuredLevel::From::Frame);
    return result;
}

void DriverDoor::tellLevel(float frequency, float level, MeasuredLevel::From from) {
    if (listeners_.none() || !canBe(level, kOtherLimit)) return;
    listeners_.levelRead({frequency, level, from, desktop_.now()});
}

std::int32_t DriverDoor::HM_getHardwareVersion(float& version) {
    float said = 0;
    const std::int32_t result = library_.HM_getHardwareVersion(said);
    version = said < 0 ? 0 : checked(said, 0, kHighestVersion);
    return result;
}

std::int32_t DriverDoor::HM_getDriverVersion(float& version) {
    float said = version;
    const std::int32_t result = library_.HM_getDriverVersion(said);
    version = checked(said, version, kOtherLimit);
    return result;
}

}  // namespace hmonitor
