// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "display/desktop.h"
#include "program/driver.h"
#include "program/still_readings.h"

namespace hmonitor {

/// The program's side of the driver: what a reading may be is checked here, once. Not-a-number,
/// infinities and values beyond the table of limits are dropped and the last good value stands.
/// After each HM_Super waiting events are let through once, which is where a long point-by-point
/// run hears its stop key.
class DriverDoor {
 public:
    DriverDoor(DriverLibrary& library, display::Desktop& desktop)
        : library_(library), desktop_(desktop) {}

    std::int32_t HM_Init() { return library_.HM_Init(); }
    std::int32_t HM_Terminate() { return library_.HM_Terminate(); }
    std::int32_t HM_DemoMode() { return library_.HM_DemoMode(); }
    std::int32_t HM_Normal(float frequency, std::int32_t average, std::int32_t audioMode,
                           std::int32_t response, std::int32_t logFiles) {
        still_.begin(desktop_.now());
        return library_.HM_Normal(frequency, average, audioMode, response, logFiles);
    }
    std::int32_t HM_Parar() {
        still_.end();
        return library_.HM_Parar();
    }
    std::int32_t HM_Reset(std::int32_t what) { return library_.HM_Reset(what); }
    std::int32_t HM_StartEspectro(float start, float stop, std::int32_t stepKhz) {
        return library_.HM_StartEspectro(start, stop, stepKhz);
    }
    std::int32_t HM_TramaEspectroRecibida() { return library_.HM_TramaEspectroRecibida(); }
    std::int32_t HM_setSintoMode(std::int32_t mode) { return library_.HM_setSintoMode(mode); }

    /// The latest readings, checked.
    Readings HM_Data();
    /// level is loaded with the last level by the caller.
    std::int32_t HM_DataRDS(float& error, float& level);
    std::int32_t HM_Super(float frequency, float& level);
    std::int32_t HM_GetEspectro(float frequency, float& level);
    std::int32_t HM_RespFrecuencia(ResponsePairs& pairs);
    /// 0 when no unit answers, or when what it answers is no version.
    std::int32_t HM_getHardwareVersion(float& version);
    std::int32_t HM_getDriverVersion(float& version);

    /// The tuned station's sound; nothing where the library does not play it.
    std::optional<Sound> sound() { return library_.sound(); }
    void setSound(int volume, bool muted) { library_.setSound(volume, muted); }

    /// Seconds for which the readings of the tuned station have stood still, once that is no
    /// measuring any more; 0 while they live, on an empty channel, and while the unit is away.
    int staleSeconds() const { return still_.staleSeconds(desktop_.now()); }

    /// Largest size of a reading, either sign, for outputs 1 to 16.
    static float limitOf(int output);

 private:
    DriverLibrary& library_;
    display::Desktop& desktop_;
    StillReadings still_;
    Readings good_;
    float goodRdsError_ = 0;
    float goodRdsLevel_ = 0;
};

}  // namespace hmonitor
