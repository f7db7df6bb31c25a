// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/support/scripted_driver.h"

namespace hmonitor::test {

/// A scripted unit that tells each of its calls while it is inside, whichever it is.
struct CalledDriver final : ScriptedDriver {
    std::function<void(const char*)> inCall;

    std::int32_t HM_Init() override { return in("HM_Init", ScriptedDriver::HM_Init()); }
    std::int32_t HM_Terminate() override {
        return in("HM_Terminate", ScriptedDriver::HM_Terminate());
    }
    std::int32_t HM_DemoMode() override { return in("HM_DemoMode", ScriptedDriver::HM_DemoMode()); }
    std::int32_t HM_Normal(float frequency, std::int32_t average, std::int32_t audioMode,
                           std::int32_t armed, std::int32_t logFiles) override {
        return in("HM_Normal",
                  ScriptedDriver::HM_Normal(frequency, average, audioMode, armed, logFiles));
    }
    std::int32_t HM_Parar() override { return in("HM_Parar", ScriptedDriver::HM_Parar()); }
    std::int32_t HM_Reset(std::int32_t what) override {
        return in("HM_Reset", ScriptedDriver::HM_Reset(what));
    }
    std::int32_t HM_Data(Readings& out) override {
        return in("HM_Data", ScriptedDriver::HM_Data(out));
    }
    std::int32_t HM_DataRDS(float& error, float& level) override {
        return in("HM_DataRDS", ScriptedDriver::HM_DataRDS(error, level));
    }
    std::int32_t HM_Super(float frequency, float& level) override {
        return in("HM_Super", ScriptedDriver::HM_Super(frequency, level));
    }
    std::int32_t HM_StartEspectro(float start, float stop, std::int32_t stepKhz) override {
        return in("HM_StartEspectro", ScriptedDriver::HM_StartEspectro(start, stop, stepKhz));
    }
    std::int32_t HM_TramaEspectroRecibida() override {
        return in("HM_TramaEspectroRecibida", ScriptedDriver::HM_TramaEspectroRecibida());
    }
    std::int32_t HM_GetEspectro(float frequency, float& level) override {
        return in("HM_GetEspectro", ScriptedDriver::HM_GetEspectro(frequency, level));
    }
    std::int32_t HM_RespFrecuencia(ResponsePairs& pairs) override {
        return in("HM_RespFrecuencia", ScriptedDriver::HM_RespFrecuencia(pairs));
    }
    std::int32_t HM_setSintoMode(std::int32_t mode) override {
        return in("HM_setSintoMode", ScriptedDriver::HM_setSintoMode(mode));
    }
    std::int32_t HM_getHardwareVersion(float& version) override {
        return in("HM_getHardwareVersion", ScriptedDriver::HM_getHardwareVersion(version));
    }
    std::int32_t HM_getDriverVersion(float& version) override {
        return in("HM_getDriverVersion", ScriptedDriver::HM_getDriverVersion(version));
    }

 private:
    std::int32_t in(const char* call, std::int32_t result) {
        if (inCall) inCall(call);
        return result;
    }
};

}  // namespace hmonitor::test
