// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "history/event.h"
#include "history/input.h"
#include "history/second_builder.h"
#include "history/timeline.h"

namespace history {

/// Receives the seconds and events that a recording makes.
struct RecordingSink {
    virtual ~RecordingSink() = default;
    virtual void keep(const Second& second) = 0;
    virtual void keep(const Event& event) = 0;
};

/// Makes seconds and events of the inputs from the driver door. It has neither thread nor disk.
class Recording final : public InputSink {
 public:
    /// Readings count until the next ones come, but not for longer than this; a heartbeat comes
    /// every 30 ms.
    static constexpr std::int64_t kHoldMs = 500;
    /// After a longer silence the program was not slow, but absent: nobody recorded.
    static constexpr std::int64_t kLongestSlowMs = 10000;
    /// If the slots' number does not change for so long, they are stale.
    static constexpr std::int64_t kStaleMs = 3000;
    /// A slot's own time is used if it is this close to the time at which the slot came.
    static constexpr std::int64_t kSlotAgeMs = 60000;
    /// The machine sleeps for at least this long; a shorter pause counts as a slow machine.
    static constexpr std::int64_t kSleepMs = 1000;
    /// A unit that is halted for longer is in use elsewhere; each tuning halts it for a moment.
    static constexpr std::int64_t kTakenMs = 1000;

    explicit Recording(RecordingSink& sink, int epoch = 0);

    void take(const Input& input) override;

    /// Starts a new epoch at a time that was recorded already: the clock was set back.
    void beginEpoch(int epoch) { timeline_.beginEpoch(epoch); }
    int epoch() const { return timeline_.epoch(); }

 private:
    enum class Unit { Nowhere, OnStation, Away };

    void stepTo(const Timeline::At& at);
    void wakeAt(std::int64_t asleepMs, std::int64_t now);
    void hear(std::int64_t now);
    void fallSilent(std::int64_t now);
    void speak(std::int64_t now);
    void leaveOut(std::int64_t until, EventKind why);
    void tune(const Input& input, std::int64_t now);
    void halt(std::int64_t now);
    void tellAway(std::int64_t now);
    void takeReadings(const Input& input, std::int64_t now);
    void takeSlot(const Input& input, std::int64_t now);
    void demo(const Input& input, std::int64_t now);
    void correctField(const Input& input, std::int64_t now);
    /// Fills the time up to `now` with what is known of it.
    void fillUpTo(std::int64_t now, bool lost);
    void fillReadings(std::int64_t now, bool lost);
    void fill(std::int64_t until, const FigureValues& values);
    void fill(std::int64_t until, State why) { fill(until, FigureValues::unknown(why)); }
    FigureValues figuresOf(const Input& input) const;
    State holeBefore(const Input& slot, bool jumped) const;
    void tellLost(bool lost, std::int64_t now);
    void event(std::int64_t nowMs, EventKind kind, std::string text);

    RecordingSink& sink_;
    Timeline timeline_;
    SecondBuilder builder_;
    Unit unit_ = Unit::Nowhere;
    bool isDemo_ = false;
    bool isLost_ = false;    // the unit has no new readings
    bool isSilent_ = false;  // a call to it has not returned in time
    int station_ = 0;
    float fieldCorrection_ = 0;
    std::int64_t cursor_ = 0;   // up to here everything is recorded
    std::int64_t heardAt_ = 0;  // the last input other than the recorder's own ticks
    std::optional<std::int64_t> asleepMs_;
    std::optional<std::int64_t> awayAt_;  // halted then, and nobody was told yet
    bool hasHeld_ = false;                // readings since the tuning
    FigureValues held_;
    bool hasSlots_ = false;  // the library gives slots: readings count no more
    std::optional<std::uint64_t> nextSlot_;
    std::int64_t lastSlotAt_ = 0;
    std::int64_t lastGapEvent_ = INT64_MIN / 2;
};

}  // namespace history
