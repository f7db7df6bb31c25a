// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <optional>

namespace hmonitor {

/// The sixteen outputs of HM_Data in their order; output(1) is the first.
struct Readings {
    std::array<float, 16> outputs{};

    float& output(int number) { return outputs[static_cast<std::size_t>(number - 1)]; }
    float output(int number) const { return outputs[static_cast<std::size_t>(number - 1)]; }
};

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

/// A driver library, as the program calls it (drivers/hm16.h tells each function's meaning, units
/// and legal state). Behind it stands a loaded library or a script.
class DriverLibrary {
 public:
    virtual ~DriverLibrary() = default;

    virtual std::int32_t HM_Init() = 0;
    virtual std::int32_t HM_Terminate() = 0;
    virtual std::int32_t HM_DemoMode() = 0;
    virtual std::int32_t HM_Normal(float frequency, std::int32_t average, std::int32_t audioMode,
                                   std::int32_t response, std::int32_t logFiles) = 0;
    virtual std::int32_t HM_Parar() = 0;
    virtual std::int32_t HM_Reset(std::int32_t what) = 0;
    virtual std::int32_t HM_Data(Readings& readings) = 0;
    virtual std::int32_t HM_DataRDS(float& error, float& level) = 0;
    virtual std::int32_t HM_Super(float frequency, float& level) = 0;
    virtual std::int32_t HM_StartEspectro(float start, float stop, std::int32_t stepKhz) = 0;
    virtual std::int32_t HM_TramaEspectroRecibida() = 0;
    virtual std::int32_t HM_GetEspectro(float frequency, float& level) = 0;
    virtual std::int32_t HM_RespFrecuencia(ResponsePairs& pairs) = 0;
    virtual std::int32_t HM_setSintoMode(std::int32_t mode) = 0;
    virtual std::int32_t HM_getHardwareVersion(float& version) = 0;
    virtual std::int32_t HM_getDriverVersion(float& version) = 0;

    /// Beyond the nineteen functions (drivers/hm16_more.h): nothing where a library does not have
    /// it.
    virtual std::optional<Sound> sound() { return std::nullopt; }
    virtual void setSound(int volume, bool muted) {
        static_cast<void>(volume);
        static_cast<void>(muted);
    }
};

/// Stands in where no library could be loaded: every call returns 0 and leaves its outputs alone,
/// so that the hardware version stays 0 and the demo offer comes up.
class NoLibrary final : public DriverLibrary {
 public:
    std::int32_t HM_Init() override { return 0; }
    std::int32_t HM_Terminate() override { return 0; }
    std::int32_t HM_DemoMode() override { return 0; }
    std::int32_t HM_Normal(float, std::int32_t, std::int32_t, std::int32_t, std::int32_t) override {
        return 0;
    }
    std::int32_t HM_Parar() override { return 0; }
    std::int32_t HM_Reset(std::int32_t) override { return 0; }
    std::int32_t HM_Data(Readings&) override { return 0; }
    std::int32_t HM_DataRDS(float&, float&) override { return 0; }
    std::int32_t HM_Super(float, float&) override { return 0; }
    std::int32_t HM_StartEspectro(float, float, std::int32_t) override { return 0; }
    std::int32_t HM_TramaEspectroRecibida() override { return 0; }
    std::int32_t HM_GetEspectro(float, float&) override { return 0; }
    std::int32_t HM_RespFrecuencia(ResponsePairs&) override { return 0; }
    std::int32_t HM_setSintoMode(std::int32_t) override { return 0; }
    std::int32_t HM_getHardwareVersion(float&) override { return 0; }
    std::int32_t HM_getDriverVersion(float&) override { return 0; }
};

}  // namespace hmonitor
