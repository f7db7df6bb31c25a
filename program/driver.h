// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "base/readings.h"
#include "program/measured_slot.h"
#include "program/said_states.h"

namespace hmonitor {

using figures::Readings;

/// The eight pairs of a frequency response run: Hz (0: no result) and tenths of dB.
struct ResponsePairs {
    std::array<std::int32_t, 8> frequency{};
    std::array<std::int32_t, 8> level{};
};

/// The tuned station on the machine's loudspeakers.
struct Sound {
    bool playing = false;
    int volume = 0;  ///< 0 to 100
    bool muted = false;

    bool operator==(const Sound&) const = default;
};

/// A driver library as the program calls it (drivers/hm16.h states meaning, units and legal state
/// of each function). It is a loaded library, or a script in tests.
class DriverLibrary {
 public:
    virtual ~DriverLibrary() = default;

    virtual std::int32_t HM_Init() { return 0; }
    virtual std::int32_t HM_Terminate() { return 0; }
    virtual std::int32_t HM_DemoMode() { return 0; }
    virtual std::int32_t HM_Normal(float /*frequency*/, std::int32_t /*average*/,
                                   std::int32_t /*audioMode*/, std::int32_t /*response*/,
                                   std::int32_t /*logFiles*/) {
        return 0;
    }
    virtual std::int32_t HM_Parar() { return 0; }
    virtual std::int32_t HM_Reset(std::int32_t /*what*/) { return 0; }
    /// All readings but the two of RDS.
    virtual std::int32_t HM_Data(Readings&) { return 0; }
    virtual std::int32_t HM_DataRDS(float& /*error*/, float& /*level*/) { return 0; }
    virtual std::int32_t HM_Super(float /*frequency*/, float& /*level*/) { return 0; }
    virtual std::int32_t HM_StartEspectro(float /*start*/, float /*stop*/,
                                          std::int32_t /*stepKhz*/) {
        return 0;
    }
    virtual std::int32_t HM_TramaEspectroRecibida() { return 0; }
    virtual std::int32_t HM_GetEspectro(float /*frequency*/, float& /*level*/) { return 0; }
    virtual std::int32_t HM_RespFrecuencia(ResponsePairs&) { return 0; }
    virtual std::int32_t HM_setSintoMode(std::int32_t /*mode*/) { return 0; }
    virtual std::int32_t HM_getHardwareVersion(float& /*version*/) { return 0; }
    virtual std::int32_t HM_getDriverVersion(float& /*version*/) { return 0; }

    /// Beyond the nineteen functions (drivers/hm16_more.h): nothing where a library does not have
    /// it.
    virtual bool hasSlots() { return false; }
    /// Hands on the slots of the tuned station that came since it was last asked.
    virtual void readSlots(SlotTaker&) {}
    /// Of the newest slot that was read behind the tuning.
    virtual std::optional<SaidStates> states() { return std::nullopt; }
    virtual std::optional<Sound> sound() { return std::nullopt; }
    virtual void setSound(int /*volume*/, bool /*muted*/) {}
};

/// Takes the place of a library that could not be loaded: every call returns 0 and leaves its
/// outputs alone, so that the hardware version stays 0 and the demo mode is offered.
class NoLibrary final : public DriverLibrary {};

}  // namespace hmonitor
