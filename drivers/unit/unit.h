// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <string_view>

#include "drivers/hm16_more.h"
#include "drivers/unit/published_readings.h"
#include "drivers/unit/slot_ring.h"
#include "drivers/unit/station_results.h"
#include "drivers/unit/sweep_store.h"

namespace hm16 {

enum class Detector { Peak, Average };
enum class AudioMode { LeftRight, SumDifference };
enum class ResponseRun { Off, Armed };
enum class DayLogging { Off, On };

// The arguments of HM_Normal. Frequency in units of 100 kHz.
struct Tuning {
    double frequency = 875;
    Detector detector = Detector::Peak;
    AudioMode audioMode = AudioMode::LeftRight;
    ResponseRun response = ResponseRun::Off;
    DayLogging log = DayLogging::Off;
};

// One result of a response run: frequency in Hz (0: no result) and level in tenths of dB.
struct ResponsePair {
    std::int32_t frequency = 0;
    std::int32_t level = 0;
};
using ResponseResults = std::array<ResponsePair, 8>;

// The unit behind a library. exports.cpp puts the nineteen functions in front of it: it keeps the
// modes, so that a call outside its legal mode never gets here, and turns an exception into a
// result that says "failed". All calls come from one thread, never re-entrantly; the destructor
// ends whatever runs, saves what is to be kept, and may run without a stop() before it.
class Unit {
 public:
    virtual ~Unit() = default;

    // Greater than 0. From 1.7 up to but not including 2 the unit delivers sweep frames.
    virtual float hardwareVersion() const = 0;

    // Tunes and starts measuring; readings of this tuning are published before it returns.
    virtual void measure(const Tuning& tuning) = 0;

    // Stops measuring or sweeping. Also called when nothing runs.
    virtual void stop() = 0;

    // Clears stored results of the frequency tuned last; the file is rewritten on return.
    virtual void clearResults(StoredResult what) = 0;

    // Measures one level in dBuV; none if the unit failed. Called when nothing runs or while
    // measuring, which goes on afterwards.
    virtual std::optional<float> levelAt(double frequency) = 0;

    // Delivers frames into frames() until stop(). Only called on units that can.
    virtual void sweep(const SweepRange& range) = 0;

    virtual SweepStore& frames() = 0;

    // The results of the last response run.
    virtual ResponseResults response() = 0;

    // The figures of a slot, and the slots; null in a unit that measures none.
    virtual std::span<const HM16_FigureInfo> figures() const { return {}; }
    virtual const SlotRing* slots() const { return nullptr; }
};

// Each library defines these functions.

// Opens the unit. `folder` is the library's own folder, where its settings file lies; the files of
// stations and days go into the current folder. The unit publishes into `readings`, which outlives
// it. Null when no unit answers or a setting is wrong, after saying so on standard error and by
// tellAbsence(): the program then sees hardware version 0.
std::unique_ptr<Unit> openUnit(const std::filesystem::path& folder, PublishedReadings& readings);

// The library's own version.
float libraryVersion();

// An extension that the library has beside that of the figures, as HM16_Extension gives it; null
// when it has none of that name.
const void* libraryExtension(std::string_view id);

}  // namespace hm16
