// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "display/desktop.h"
#include "program/door_listeners.h"
#include "program/driver.h"
#include "program/still_readings.h"

namespace hmonitor {

/// The program's side of the driver: what a reading may be is checked here, once. Not-a-number,
/// infinities and values beyond the table of limits are dropped and the last good value stands.
/// After each HM_Super waiting events are let through once, which is where a long point-by-point
/// run hears its stop key. Its listeners are told what passes; that makes none of the nineteen
/// calls.
class DriverDoor : private SlotTaker {
 public:
    DriverDoor(DriverLibrary& library, display::Desktop& desktop)
        : library_(library), desktop_(desktop) {}

    std::int32_t HM_Init() { return library_.HM_Init(); }
    std::int32_t HM_Terminate() { return library_.HM_Terminate(); }
    std::int32_t HM_DemoMode();
    /// Tunes within what hm16.h promises a library: the frequency to 875 to 1081.5, each switch to
    /// 0 or 1.
    std::int32_t HM_Normal(float frequency, std::int32_t average, std::int32_t audioMode,
                           std::int32_t response, std::int32_t logFiles);
    std::int32_t HM_Parar();
    std::int32_t HM_Reset(std::int32_t what) { return library_.HM_Reset(what); }
    std::int32_t HM_StartEspectro(float start, float stop, std::int32_t stepKhz);
    std::int32_t HM_TramaEspectroRecibida();
    std::int32_t HM_setSintoMode(std::int32_t mode) { return library_.HM_setSintoMode(mode); }

    /// The latest readings, checked; those of RDS are of the last HM_DataRDS.
    Readings HM_Data();
    /// level is loaded with the last level by the caller.
    std::int32_t HM_DataRDS(float& error, float& level);
    std::int32_t HM_Super(float frequency, float& level);
    std::int32_t HM_GetEspectro(float frequency, float& level);
    std::int32_t HM_RespFrecuencia(ResponsePairs& pairs) {
        return library_.HM_RespFrecuencia(pairs);
    }
    /// 0 when no unit answers, or when what it answers is no version: not a number, below 0 or
    /// above 1000.
    std::int32_t HM_getHardwareVersion(float& version);
    std::int32_t HM_getDriverVersion(float& version);

    /// The sound of the tuned station; null where the library does not play it.
    std::optional<Sound> sound() { return library_.sound(); }
    void setSound(int volume, bool muted) { library_.setSound(volume, muted); }

    /// Seconds since the readings of the tuned station last changed, if that is so long that the
    /// unit cannot be measuring; 0 while they change, on an empty channel, and while the unit does
    /// something else.
    int staleSeconds() const { return still_.staleSeconds(desktop_.now()); }

    /// What the unit says now, as it was last asked, and what becomes of each figure.
    Measured measured() const;

    /// Who hears what passes. A listener outlives the door, or leaves.
    DoorListeners& listeners() { return listeners_; }

    /// The largest possible magnitude of outputs 1 to 16.
    static float limitOf(figures::Output output);

 private:
    /// What the unit does, as far as readings go.
    enum class Doing { Nothing, Measuring, SomethingElse };

    void keep(std::size_t output, float said);
    void take(const MeasuredSlot& slot) override;
    void tellMeasured();
    void tellLevel(float frequency, float level, MeasuredLevel::From from);
    figures::State stateOf(const figures::Figure& figure, std::optional<figures::State> said) const;

    DriverLibrary& library_;
    display::Desktop& desktop_;
    DoorListeners listeners_;
    StillReadings still_;
    Readings good_;
    /// Which of them the unit last said something for that is no reading.
    std::array<bool, figures::kOutputs.size()> dropped_{};
    Doing doing_ = Doing::Nothing;
    Tuned tuned_;
    SweepFrame sweep_;
};

}  // namespace hmonitor
