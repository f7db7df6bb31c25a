// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/recording.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string>
#include <utility>

#include "core/numbers.h"

namespace history {

namespace {

constexpr std::int64_t kGapEventsMs = 60000;  // one event of lost slots a minute is enough

std::string secondsText(std::int64_t ms) {
    return hmonitor::shortText(static_cast<double>(ms) / 1000).str() + " s";
}

}  // namespace

Recording::Recording(RecordingSink& sink, int epoch)
    : sink_(sink), timeline_(epoch), builder_([this](const Second& s) { sink_.keep(s); }) {}

void Recording::event(std::int64_t nowMs, EventKind kind, std::string text) {
    sink_.keep(Event{nowMs / 1000, station_, kind, std::move(text)});
}

void Recording::take(const Input& input) {
    const Timeline::At at = timeline_.at(input.at);
    stepTo(at);
    const std::int64_t now = at.ms;
    const bool lost = input.lostBefore != 0;
    wakeAt(input.at.asleepMs, now);
    if (input.what != Input::What::Tick) hear(now);
    switch (input.what) {
        case Input::What::Tuned:
            return tune(input, now);
        case Input::What::Readings:
            return takeReadings(input, now);
        case Input::What::Slot:
            return takeSlot(input, now);
        case Input::What::Halted:
            return halt(now);
        case Input::What::Silent:
            return fallSilent(now);
        case Input::What::Busy:
            return fillUpTo(now, lost);
        case Input::What::Demo:
            return demo(input, now);
        case Input::What::FieldCorrection:
            return correctField(input, now);
        case Input::What::Tick:
            // Of a station only its readings tell; that the unit is away is known without any.
            tellAway(now);
            if (unit_ == Unit::Away) fillUpTo(now, lost);
            if (isSilent_) fill(now, State::Stale);
            return;
        case Input::What::Stop:
            fillUpTo(now, lost);
            builder_.finish();
            event(now, EventKind::Stop, "");
            unit_ = Unit::Nowhere;
            return;
    }
}

/// The wall clock was set: time begins anew.
void Recording::stepTo(const Timeline::At& at) {
    if (at.steppedMs == 0) return;
    builder_.begin(station_, timeline_.epoch());
    cursor_ = heardAt_ = at.ms;
    lastSlotAt_ = at.ms;
    event(at.ms, EventKind::ClockStepped, secondsText(at.steppedMs));
}

/// What the machine slept through nobody measured, whatever the unit did meanwhile.
void Recording::wakeAt(std::int64_t asleepMs, std::int64_t now) {
    const std::int64_t slept = asleepMs - asleepMs_.value_or(asleepMs);
    asleepMs_ = asleepMs;
    if (slept < kSleepMs) return;
    leaveOut(now, EventKind::Asleep);
    lastSlotAt_ += slept;
    heardAt_ = now;
}

/// While nothing came at all nobody looked for slots: that time does not make them stale.
void Recording::hear(std::int64_t now) {
    const std::int64_t silent = now - heardAt_;
    if (silent > kHoldMs && !isSilent_) lastSlotAt_ += silent;
    heardAt_ = now;
}

/// A call lasts on: the unit is lost, until anything comes of it.
void Recording::fallSilent(std::int64_t now) {
    if (isDemo_ || unit_ != Unit::OnStation) return;
    isSilent_ = true;
    tellLost(true, now);
    fill(now, State::Stale);
}

/// Ends that. A library that was started anew counts its slots from the start.
void Recording::speak(std::int64_t now) {
    if (!isSilent_) return;
    fill(now, State::Stale);
    isSilent_ = false;
    nextSlot_.reset();
    hasHeld_ = false;
}

/// Nobody recorded up to then: no seconds, but for the parts of those at both ends.
void Recording::leaveOut(std::int64_t until, EventKind why) {
    constexpr std::int64_t kSecondMs = 1000;
    if (until <= cursor_) return;
    const bool isRecording = unit_ != Unit::Nowhere && !isDemo_;
    if (isRecording) event(until, why, secondsText(until - cursor_));
    const std::int64_t whole = (cursor_ + kSecondMs - 1) / kSecondMs * kSecondMs;
    if (isRecording) fill(std::min(whole, until), State::Gap);
    if (cursor_ < until) builder_.finish();
    cursor_ = std::max(cursor_, until / kSecondMs * kSecondMs);
    if (isRecording) fill(until, State::Gap);
    cursor_ = until;
}

void Recording::tune(const Input& input, std::int64_t now) {
    speak(now);
    tellAway(now);
    fillUpTo(now, input.lostBefore != 0);
    station_ = input.khz;
    builder_.begin(station_, timeline_.epoch());
    unit_ = Unit::OnStation;
    hasHeld_ = false;
    awayAt_.reset();
    // The slots between two tunings are of neither.
    nextSlot_.reset();
    cursor_ = lastSlotAt_ = now;
    if (isDemo_) return;
    event(now, EventKind::Tuned,
          "detector " + hmonitor::wholeText(input.detector).str() + ", mode " +
              hmonitor::wholeText(input.audioMode).str());
}

void Recording::halt(std::int64_t now) {
    speak(now);
    fillUpTo(now, false);
    if (unit_ == Unit::OnStation) {
        unit_ = Unit::Away;
        awayAt_ = now;
    }
    hasHeld_ = false;
}

void Recording::tellAway(std::int64_t now) {
    if (!awayAt_ || isDemo_ || now - *awayAt_ < kTakenMs) return;
    event(*awayAt_, EventKind::Away, "");
    awayAt_.reset();
}

void Recording::demo(const Input& input, std::int64_t now) {
    if (input.flag == isDemo_) return;
    fillUpTo(now, false);
    builder_.finish();
    isDemo_ = input.flag;
    unit_ = Unit::Nowhere;
    event(now, EventKind::Demo, isDemo_ ? "begins" : "ends");
}

void Recording::correctField(const Input& input, std::int64_t now) {
    if (input.value[0] == fieldCorrection_) return;
    fillUpTo(now, false);
    fieldCorrection_ = input.value[0];
    event(now, EventKind::FieldCorrection, hmonitor::shortText(fieldCorrection_).str() + " dB");
}

void Recording::takeReadings(const Input& input, std::int64_t now) {
    if (isDemo_ || unit_ == Unit::Nowhere) return;
    // Where there are slots, these alone end a silence.
    if (isSilent_ && hasSlots_) return fill(now, State::Stale);
    speak(now);
    fillUpTo(now, input.lostBefore != 0);
    if (unit_ == Unit::Away || hasSlots_) return;
    held_ = figuresOf(input);
    hasHeld_ = true;
    tellLost(input.flag, now);
}

void Recording::takeSlot(const Input& input, std::int64_t now) {
    if (isDemo_ || unit_ == Unit::Nowhere) return;
    if (!hasSlots_) fillUpTo(now - input.lengthMs, false);
    hasSlots_ = true;
    const bool isOwnTime = input.slotUtcMs != 0 && input.slotUtcMs <= now + Timeline::kStepMs &&
                           input.slotUtcMs >= now - kSlotAgeMs;
    const std::int64_t end = isOwnTime ? input.slotUtcMs : now;
    const std::int64_t begin = end - input.lengthMs;
    speak(begin);
    const bool jumped = nextSlot_ && input.number > *nextSlot_;
    if (jumped && now - lastGapEvent_ >= kGapEventsMs) {
        event(now, EventKind::Gap,
              hmonitor::wholeText(static_cast<std::int64_t>(input.number - *nextSlot_)).str() +
                  " slots");
        lastGapEvent_ = now;
    }
    // A hole between two slots: a loss, or time with the unit away. What is shorter than a slot is
    // rounding of times, and the slot tells of it too.
    if (begin > cursor_ && (jumped || begin - cursor_ > std::int64_t{input.lengthMs})) {
        const State why = holeBefore(input, jumped);
        const bool isHeld = why == State::TooSlow && input.lostBefore == 0;
        if (isHeld && begin - cursor_ > kLongestSlowMs) leaveOut(begin, EventKind::Held);
        fill(begin, why);
    }
    nextSlot_ = input.number + 1;
    lastSlotAt_ = now;
    fill(end, figuresOf(input));
    tellLost(false, now);
}

/// As the rack shows them: the field with its correction.
FigureValues Recording::figuresOf(const Input& input) const {
    FigureValues values{input.value, input.state};
    const auto registry = figures::all();
    for (std::size_t i = 0; i < figureCount(); ++i) {
        if (registry[i].source.output == &figures::Readings::field) {
            values.value[i] += fieldCorrection_;
        }
    }
    return values;
}

State Recording::holeBefore(const Input& slot, bool jumped) const {
    if (slot.lostBefore != 0) return State::TooSlow;
    if (jumped) return State::Gap;
    if (unit_ == Unit::Away) return State::UnitAway;
    return nextSlot_ ? State::TooSlow : State::Settling;
}

void Recording::tellLost(bool lost, std::int64_t now) {
    if (lost == isLost_) return;
    isLost_ = lost;
    event(now, lost ? EventKind::UnitLost : EventKind::UnitFound, "");
}

void Recording::fillUpTo(std::int64_t now, bool lost) {
    if (unit_ == Unit::Nowhere || isDemo_) {
        cursor_ = std::max(cursor_, now);
        return;
    }
    if (unit_ == Unit::Away) return fill(now, State::UnitAway);
    if (hasSlots_) {
        // Slots tell of their own time, some later than it was. Without any there is nothing new.
        if (now - lastSlotAt_ < kStaleMs) return;
        if (!isLost_) tellLost(true, now);
        return fill(now, State::Stale);
    }
    fillReadings(now, lost);
}

void Recording::fillReadings(std::int64_t now, bool lost) {
    const std::int64_t silent = now - cursor_;
    if (lost) return fill(now, State::TooSlow);
    if (silent > kLongestSlowMs) return leaveOut(now, EventKind::Held);
    if (silent > kHoldMs) return fill(now, State::TooSlow);
    if (!hasHeld_) return fill(now, State::Settling);
    fill(now, held_);
}

void Recording::fill(std::int64_t until, const FigureValues& values) {
    if (until <= cursor_) return;
    builder_.add(cursor_, until, values);
    cursor_ = until;
}

}  // namespace history
