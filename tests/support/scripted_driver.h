// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "program/driver.h"

namespace hmonitor::test {

/// A driver library that answers from a script and notes every call with the arguments that go in.
/// Plain members: a test sets what the unit says and reads what it was told. A unit with a will of
/// its own derives from it, overrides what it does otherwise and is given to the RackBench.
struct ScriptedDriver : DriverLibrary {
    // What the unit says.
    std::int32_t initResult = 0;
    bool silent = false;  ///< HM_Data and HM_DataRDS leave their outputs alone
    Readings readings;
    float hardwareVersion = 1.8f;
    float driverVersion = 4.2f;
    ResponsePairs response;
    std::map<float, float> superSpectrum;  ///< HM_Super by frequency; elsewhere superLevels
    std::deque<float> superLevels;         ///< one each HM_Super; when used up, superLevel
    float superLevel = 30;
    std::deque<int> superResults;     ///< one each HM_Super; when used up, 0
    std::deque<int> frames;           ///< one each HM_TramaEspectroRecibida; when used up, 0
    std::map<float, float> spectrum;  ///< HM_GetEspectro by frequency; floorLevel elsewhere
    float floorLevel = 12;
    std::optional<SaidStates> said;          ///< of the newest slot; nothing: a library without
    bool slotted = false;                    ///< a library that has slots
    std::vector<MeasuredSlot> slots;         ///< that were not read yet
    std::optional<Sound> loudspeakers;       ///< nothing: a library that does not play
    std::function<void(float)> duringSuper;  ///< what else happens while a level is measured
    std::function<void()> duringNormal;
    std::function<void()> duringTerminate;

    // What it was told. Four functions come too often to be noted unless a test asks for it; how
    // often they came is counted always.
    std::vector<std::string> calls;
    int dataCalls = 0;        ///< HM_Data
    int rdsCalls = 0;         ///< HM_DataRDS
    int frameCalls = 0;       ///< HM_TramaEspectroRecibida
    int spectrumCalls = 0;    ///< HM_GetEspectro
    bool noteData = false;    ///< HM_Data and HM_DataRDS are noted too
    bool noteFrames = false;  ///< HM_TramaEspectroRecibida and HM_GetEspectro are noted too
    std::vector<std::string>* journal = nullptr;  ///< also noted here

    std::int32_t HM_Init() override;
    std::int32_t HM_Terminate() override;
    std::int32_t HM_DemoMode() override;
    std::int32_t HM_Normal(float frequency, std::int32_t average, std::int32_t audioMode,
                           std::int32_t response, std::int32_t logFiles) override;
    std::int32_t HM_Parar() override;
    std::int32_t HM_Reset(std::int32_t what) override;
    std::int32_t HM_Data(Readings& out) override;
    std::int32_t HM_DataRDS(float& error, float& level) override;
    std::int32_t HM_Super(float frequency, float& level) override;
    std::int32_t HM_StartEspectro(float start, float stop, std::int32_t stepKhz) override;
    std::int32_t HM_TramaEspectroRecibida() override;
    std::int32_t HM_GetEspectro(float frequency, float& level) override;
    std::int32_t HM_RespFrecuencia(ResponsePairs& pairs) override;
    std::int32_t HM_setSintoMode(std::int32_t mode) override;
    std::int32_t HM_getHardwareVersion(float& version) override;
    std::int32_t HM_getDriverVersion(float& version) override;
    bool hasSlots() override { return slotted; }
    void readSlots(SlotTaker& taker) override {
        for (const MeasuredSlot& slot : std::exchange(slots, {})) taker.take(slot);
    }
    std::optional<SaidStates> states() override { return said; }
    std::optional<Sound> sound() override { return loudspeakers; }
    void setSound(int volume, bool muted) override;

 private:
    void note(std::string call);
};

}  // namespace hmonitor::test
