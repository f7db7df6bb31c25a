// SPDX-License-Identifier: GPL-3.0-or-later
// A unit that writes its calls down, one a line, into the file that NOTING_UNIT names; its version
// is NOTING_VERSION, and a level takes NOTING_SUPER_MS.
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <thread>

#include "drivers/hm16.h"

namespace {

const char* setting(const char* name, const char* otherwise) {
    const char* text = std::getenv(name);
    return text ? text : otherwise;
}

int32_t note(const char* call) {
    if (std::FILE* notes = std::fopen(setting("NOTING_UNIT", "/dev/null"), "a")) {
        std::fprintf(notes, "%s\n", call);
        std::fclose(notes);
    }
    return 0;
}

}  // namespace

int32_t HM16_CALL HM_Init(void) {
    return note("HM_Init");
}
int32_t HM16_CALL HM_Terminate(void) {
    return note("HM_Terminate");
}
int32_t HM16_CALL HM_DemoMode(void) {
    return note("HM_DemoMode");
}
int32_t HM16_CALL HM_Normal(float, int32_t, int32_t, int32_t, int32_t) {
    return note("HM_Normal");
}
int32_t HM16_CALL HM_Parar(void) {
    return note("HM_Parar");
}
int32_t HM16_CALL HM_Reset(int32_t) {
    return note("HM_Reset");
}
int32_t HM16_CALL HM_Data(float* peakModulation, float* levelFirst, float* levelSecond, float*,
                          float*, float*, float*, float*, float*, float*, float*, float*, float*,
                          float* field, float*, float*) {
    // Bars that move show that the rack asks.
    static int asked = 0;
    const auto moving = static_cast<float>(++asked / 8 % 20);
    *peakModulation = 60 + moving;
    *levelFirst = *levelSecond = -moving;
    *field = 60;
    return 0;
}
int32_t HM16_CALL HM_DataRDS(float*, float*) {
    return 0;
}
int32_t HM16_CALL HM_Super(float, float* level) {
    note("HM_Super");
    std::this_thread::sleep_for(
        std::chrono::milliseconds(std::atoi(setting("NOTING_SUPER_MS", "0"))));
    *level = 30;
    note("HM_Super measured");
    return 0;
}
int32_t HM16_CALL HM_StartEspectro(float, float, int32_t) {
    return note("HM_StartEspectro");
}
int32_t HM16_CALL HM_TramaEspectroRecibida(void) {
    return 0;
}
int32_t HM16_CALL HM_GetEspectro(float, float*) {
    return 0;
}
int32_t HM16_CALL HM_RespFrecuencia(int32_t*, int32_t*, int32_t*, int32_t*, int32_t*, int32_t*,
                                    int32_t*, int32_t*, int32_t*, int32_t*, int32_t*, int32_t*,
                                    int32_t*, int32_t*, int32_t*, int32_t*) {
    return note("HM_RespFrecuencia");
}
int32_t HM16_CALL HM_setSintoMode(int32_t) {
    return note("HM_setSintoMode");
}
int32_t HM16_CALL HM_getHardwareVersion(float* version) {
    *version = static_cast<float>(std::atof(setting("NOTING_VERSION", "2.0")));
    return 0;
}
int32_t HM16_CALL HM_getDriverVersion(float*) {
    return 0;
}
