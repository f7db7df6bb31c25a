// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/scripted_driver.h"

#include "core/numbers.h"

namespace hmonitor::test {

namespace {

template <class T>
T next(std::deque<T>& script, T otherwise) {
    if (script.empty()) return otherwise;
    const T first = script.front();
    script.pop_front();
    return first;
}

std::string text(float value) {
    return shortText(value).str();
}
std::string text(std::int32_t value) {
    return shortText(value).str();
}

}  // namespace

void ScriptedDriver::note(std::string call) {
    if (journal) journal->push_back("driver " + call);
    calls.push_back(std::move(call));
}

std::int32_t ScriptedDriver::HM_Init() {
    note("HM_Init");
    return initResult;
}

std::int32_t ScriptedDriver::HM_Terminate() {
    note("HM_Terminate");
    if (duringTerminate) duringTerminate();
    return 0;
}

std::int32_t ScriptedDriver::HM_DemoMode() {
    note("HM_DemoMode");
    return 0;
}

std::int32_t ScriptedDriver::HM_Normal(float frequency, std::int32_t average,
                                       std::int32_t audioMode, std::int32_t armed,
                                       std::int32_t logFiles) {
    note("HM_Normal(" + text(frequency) + ", " + text(average) + ", " + text(audioMode) + ", " +
         text(armed) + ", " + text(logFiles) + ")");
    if (duringNormal) duringNormal();
    return 0;
}

std::int32_t ScriptedDriver::HM_Parar() {
    note("HM_Parar");
    return 0;
}

std::int32_t ScriptedDriver::HM_Reset(std::int32_t what) {
    note("HM_Reset(" + text(what) + ")");
    return 0;
}

std::int32_t ScriptedDriver::HM_Data(Readings& out) {
    ++dataCalls;
    if (noteData) note("HM_Data");
    if (!silent) out = readings;
    return 0;
}

std::int32_t ScriptedDriver::HM_DataRDS(float& error, float& level) {
    ++rdsCalls;
    if (noteData) note("HM_DataRDS(" + text(level) + ")");
    if (silent) return 0;
    error = readings.rdsError;
    level = readings.rdsLevel;
    return 0;
}

std::int32_t ScriptedDriver::HM_Super(float frequency, float& level) {
    note("HM_Super(" + text(frequency) + ")");
    const auto found = superSpectrum.find(frequency);
    level = found == superSpectrum.end() ? next(superLevels, superLevel) : found->second;
    if (duringSuper) duringSuper(frequency);
    return next(superResults, 0);
}

std::int32_t ScriptedDriver::HM_StartEspectro(float start, float stop, std::int32_t stepKhz) {
    note("HM_StartEspectro(" + text(start) + ", " + text(stop) + ", " + text(stepKhz) + ")");
    return 0;
}

std::int32_t ScriptedDriver::HM_TramaEspectroRecibida() {
    ++frameCalls;
    if (noteFrames) note("HM_TramaEspectroRecibida");
    return next(frames, 0);
}

std::int32_t ScriptedDriver::HM_GetEspectro(float frequency, float& level) {
    ++spectrumCalls;
    if (noteFrames) note("HM_GetEspectro(" + text(frequency) + ")");
    const auto found = spectrum.find(frequency);
    level = found == spectrum.end() ? floorLevel : found->second;
    return 0;
}

std::int32_t ScriptedDriver::HM_RespFrecuencia(ResponsePairs& pairs) {
    note("HM_RespFrecuencia");
    pairs = response;
    return 0;
}

std::int32_t ScriptedDriver::HM_setSintoMode(std::int32_t mode) {
    note("HM_setSintoMode(" + text(mode) + ")");
    return 0;
}

std::int32_t ScriptedDriver::HM_getHardwareVersion(float& version) {
    note("HM_getHardwareVersion");
    version = hardwareVersion;
    return 0;
}

std::int32_t ScriptedDriver::HM_getDriverVersion(float& version) {
    note("HM_getDriverVersion(" + text(version) + ")");
    version = driverVersion;
    return 0;
}

void ScriptedDriver::setSound(int volume, bool muted) {
    note("setSound(" + text(volume) + ", " + text(muted ? 1 : 0) + ")");
    if (loudspeakers) loudspeakers = Sound{loudspeakers->playing, volume, muted};
}

}  // namespace hmonitor::test
