// SPDX-License-Identifier: GPL-3.0-or-later
// A unit that notes its calls, one a line, in the file that NOTING_UNIT names; its version is
// NOTING_VERSION, and a level takes NOTING_SUPER_MS. With NOTING_SLOTS it has slots whose figures
// follow from the time at which they end, so that a test can calculate them.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <thread>

#include "drivers/hm16.h"
#include "drivers/hm16_more.h"

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

constexpr std::int64_t kSlotMs = 50;
constexpr std::int64_t kKept = 600;

// The number of the slot that is being measured, counted since 1970.
std::int64_t slotUnderWay() {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::milliseconds>(now).count() / kSlotMs;
}

std::int64_t openedAt = 0;
std::int64_t measuredFrom = 0;  // 0: nothing is measured

struct Told {
    const char* key;
    const char* unit;
};
constexpr Told kTold[] = {{"deviation_peak", "kHz"}, {"pilot_level", "%"}, {"field", "dBµV"}};

int32_t HM16_CALL countOfFigures() {
    return 3;
}

int32_t HM16_CALL describeFigure(int32_t index, HM16_FigureInfo* info) {
    if (index < 0 || index >= countOfFigures()) return 1;
    std::strncpy(info->key, kTold[index].key, sizeof info->key - 1);
    std::strncpy(info->unit, kTold[index].unit, sizeof info->unit - 1);
    return 0;
}

HM16_Slot slotOf(std::int64_t n) {
    HM16_Slot slot{};
    slot.number = static_cast<uint64_t>(n - openedAt);
    slot.utcNs = (n + 1) * kSlotMs * 1'000'000;
    slot.lengthMs = kSlotMs;
    slot.value[0] = 10 + static_cast<float>(n * 7 % 601) / 10;
    slot.value[1] = 5 + static_cast<float>(n % 40) / 10;
    slot.value[2] = 60;
    // In every tenth second the field is hidden by echoes.
    if (n / 20 % 10 == 0) slot.state[2] = HM16_MULTIPATH;
    return slot;
}

int32_t HM16_CALL copySlots(int32_t station, uint64_t from, HM16_Slot* out, uint32_t slotSize,
                            int32_t room, uint64_t* next) {
    if (station != 0 || slotSize != sizeof(HM16_Slot)) return -1;
    const std::int64_t end = slotUnderWay();
    std::int64_t n =
        std::max({openedAt + static_cast<std::int64_t>(from), measuredFrom, end - kKept});
    int32_t copied = 0;
    for (; measuredFrom != 0 && n < end && copied < room; ++n) out[copied++] = slotOf(n);
    *next = static_cast<uint64_t>(n - openedAt);
    return copied;
}

constexpr HM16_FiguresV1 kFigures{sizeof(HM16_FiguresV1), countOfFigures, describeFigure,
                                  copySlots};

}  // namespace

const void* HM16_CALL HM16_Extension(const char* id) {
    const bool isAsked = std::getenv("NOTING_SLOTS") && std::strcmp(id, HM16_FIGURES) == 0;
    return isAsked ? &kFigures : nullptr;
}

int32_t HM16_CALL HM_Init(void) {
    openedAt = slotUnderWay();
    return note("HM_Init");
}
int32_t HM16_CALL HM_Terminate(void) {
    return note("HM_Terminate");
}
int32_t HM16_CALL HM_DemoMode(void) {
    return note("HM_DemoMode");
}
int32_t HM16_CALL HM_Normal(float, int32_t, int32_t, int32_t, int32_t) {
    measuredFrom = slotUnderWay();
    return note("HM_Normal");
}
int32_t HM16_CALL HM_Parar(void) {
    measuredFrom = 0;
    return note("HM_Parar");
}
int32_t HM16_CALL HM_Reset(int32_t) {
    return note("HM_Reset");
}
int32_t HM16_CALL HM_Data(float* peakModulation, float* levelFirst, float* levelSecond, float*,
                          float*, float*, float*, float*, float*, float*, float*, float*, float*,
                          float* field, float*, float*) {
    // Moving bars show that the rack asks for readings.
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
