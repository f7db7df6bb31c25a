// SPDX-License-Identifier: GPL-3.0-or-later
#include "program/driver_door.h"

#include <cmath>

namespace hmonitor {

namespace {

constexpr float kOtherLimit = 10000.f;

/// What the unit said if it can be a reading, the last good value otherwise.
float checked(float said, float lastGood, float limit) {
    return std::isfinite(said) && std::fabs(said) <= limit ? said : lastGood;
}

}  // namespace

float DriverDoor::limitOf(int output) {
    // The pilot error also carries the end mark of a response run, 11583.
    if (output == 1) return 1000.f;
    return output == 6 ? 20000.f : kOtherLimit;
}

Readings DriverDoor::HM_Data() {
    Readings said = good_;
    library_.HM_Data(said);
    for (int output = 1; output <= 16; ++output) {
        good_.output(output) = checked(said.output(output), good_.output(output), limitOf(output));
    }
    still_.take(good_, desktop_.now());
    return good_;
}

std::int32_t DriverDoor::HM_DataRDS(float& error, float& level) {
    float saidError = goodRdsError_;
    float saidLevel = level;
    const std::int32_t result = library_.HM_DataRDS(saidError, saidLevel);
    error = goodRdsError_ = checked(saidError, goodRdsError_, kOtherLimit);
    level = goodRdsLevel_ = checked(saidLevel, goodRdsLevel_, kOtherLimit);
    still_.takeRds(goodRdsError_, goodRdsLevel_, desktop_.now());
    return result;
}

std::int32_t DriverDoor::HM_Super(float frequency, float& level) {
    float said = level;
    const std::int32_t result = library_.HM_Super(frequency, said);
    level = checked(said, level, kOtherLimit);
    desktop_.letEventsThrough();
    return result;
}

std::int32_t DriverDoor::HM_GetEspectro(float frequency, float& level) {
    float said = level;
    const std::int32_t result = library_.HM_GetEspectro(frequency, said);
    level = checked(said, level, kOtherLimit);
    return result;
}

std::int32_t DriverDoor::HM_RespFrecuencia(ResponsePairs& pairs) {
    return library_.HM_RespFrecuencia(pairs);
}

std::int32_t DriverDoor::HM_getHardwareVersion(float& version) {
    float said = 0;
    const std::int32_t result = library_.HM_getHardwareVersion(said);
    version = checked(said, 0, kOtherLimit);
    return result;
}

std::int32_t DriverDoor::HM_getDriverVersion(float& version) {
    float said = version;
    const std::int32_t result = library_.HM_getDriverVersion(said);
    version = checked(said, version, kOtherLimit);
    return result;
}

}  // namespace hmonitor
