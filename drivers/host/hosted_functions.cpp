// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/host/hosted_functions.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <string_view>

#include "drivers/host/hosted_library.h"

namespace hm16 {

namespace {

// The C interface has no word for which library is meant.
HostedLibrary* inUse = nullptr;

std::int32_t made(CallValues& values) {
    return inUse != nullptr ? inUse->call(values) : 0;
}

std::int32_t plain(Call call) {
    CallValues values;
    values.call = call;
    return made(values);
}

std::int32_t whole(Call call, std::int32_t what) {
    CallValues values;
    values.call = call;
    values.wholes[0] = what;
    return made(values);
}

// A call with outputs, which have the caller's values before it and the library's after it.
template <typename Number, std::size_t Count>
std::int32_t filled(Call call, const std::array<Number*, Count>& outputs,
                    Number (CallValues::*places)[16]) {
    CallValues values;
    values.call = call;
    for (std::size_t i = 0; i < Count; ++i) (values.*places)[i] = *outputs[i];
    const std::int32_t result = made(values);
    for (std::size_t i = 0; i < Count; ++i) *outputs[i] = (values.*places)[i];
    return result;
}

std::int32_t levelAt(Call call, float frequency, float* level) {
    CallValues values;
    values.call = call;
    values.numbers[0] = frequency;
    values.numbers[1] = *level;
    const std::int32_t result = made(values);
    *level = values.numbers[1];
    return result;
}

template <Call kCall>
std::int32_t HM16_CALL hostedPlain() {
    return plain(kCall);
}

template <Call kCall>
std::int32_t HM16_CALL hostedWhole(std::int32_t what) {
    return whole(kCall, what);
}

template <Call kCall>
std::int32_t HM16_CALL hostedLevelAt(float frequency, float* level) {
    return levelAt(kCall, frequency, level);
}

template <Call kCall>
std::int32_t HM16_CALL hostedFloat(float* number) {
    return filled<float, 1>(kCall, {number}, &CallValues::numbers);
}

std::int32_t HM16_CALL hostedDirectorio(const char* folder) {
    if (inUse != nullptr) inUse->setText(folder);
    return plain(Call::Directorio);
}

std::int32_t HM16_CALL hostedNormal(float frequency, std::int32_t average, std::int32_t audioMode,
                                    std::int32_t response, std::int32_t logFiles) {
    CallValues values;
    values.call = Call::Normal;
    values.numbers[0] = frequency;
    const std::array<std::int32_t, 4> wholes = {average, audioMode, response, logFiles};
    std::ranges::copy(wholes, values.wholes);
    return made(values);
}

std::int32_t HM16_CALL hostedData(float* o1, float* o2, float* o3, float* o4, float* o5, float* o6,
                                  float* o7, float* o8, float* o9, float* o10, float* o11,
                                  float* o12, float* o13, float* o14, float* o15, float* o16) {
    return filled<float, 16>(
        Call::Data, {o1, o2, o3, o4, o5, o6, o7, o8, o9, o10, o11, o12, o13, o14, o15, o16},
        &CallValues::numbers);
}

std::int32_t HM16_CALL hostedDataRds(float* error, float* level) {
    return filled<float, 2>(Call::DataRds, {error, level}, &CallValues::numbers);
}

std::int32_t HM16_CALL hostedSweep(float start, float stop, std::int32_t stepKhz) {
    CallValues values;
    values.call = Call::StartEspectro;
    values.numbers[0] = start;
    values.numbers[1] = stop;
    values.wholes[0] = stepKhz;
    return made(values);
}

std::int32_t HM16_CALL hostedResponse(std::int32_t* f1, std::int32_t* l1, std::int32_t* f2,
                                      std::int32_t* l2, std::int32_t* f3, std::int32_t* l3,
                                      std::int32_t* f4, std::int32_t* l4, std::int32_t* f5,
                                      std::int32_t* l5, std::int32_t* f6, std::int32_t* l6,
                                      std::int32_t* f7, std::int32_t* l7, std::int32_t* f8,
                                      std::int32_t* l8) {
    return filled<std::int32_t, 16>(
        Call::RespFrecuencia, {f1, l1, f2, l2, f3, l3, f4, l4, f5, l5, f6, l6, f7, l7, f8, l8},
        &CallValues::wholes);
}

std::int32_t HM16_CALL hostedSintoMode(std::int32_t* mode) {
    return filled<std::int32_t, 1>(Call::GetSintoMode, {mode}, &CallValues::wholes);
}

std::int32_t HM16_CALL describeHosted(std::int32_t index, HM16_FigureInfo* info) {
    CallValues values;
    values.call = Call::FiguresDescribe;
    values.wholes[0] = index;
    const std::size_t room = std::min<std::size_t>(info->size, sizeof *info);
    values.figure.size = static_cast<std::uint32_t>(room);
    const std::int32_t result = made(values);
    if (result == 0) std::memcpy(info, &values.figure, room);
    return result;
}

std::int32_t HM16_CALL slotsHosted(std::int32_t station, std::uint64_t from, HM16_Slot* out,
                                   std::uint32_t slotSize, std::int32_t room, std::uint64_t* next) {
    CallValues values;
    values.call = Call::FiguresSlots;
    values.wholes[0] = station;
    values.wholes[1] = std::min(room, kSlotsOnPage);
    values.from = from;
    values.next = *next;
    if (made(values) < 0) return values.result;
    const std::int32_t count = std::clamp(values.result, 0, std::clamp(room, 0, kSlotsOnPage));
    const std::size_t length = std::min<std::size_t>(slotSize, sizeof *out);
    auto* place = reinterpret_cast<unsigned char*>(out);
    for (std::int32_t i = 0; i < count; ++i, place += slotSize) {
        std::memcpy(place, &inUse->page().slots[i], length);
    }
    *next = values.next;
    return count;
}

std::int32_t HM16_CALL listenHosted(std::int32_t volume, std::int32_t muted) {
    CallValues values;
    values.call = Call::ListenSet;
    values.wholes[0] = volume;
    values.wholes[1] = muted;
    return made(values);
}

std::int32_t HM16_CALL listenStateHosted(HM16_ListenState* state) {
    CallValues values;
    values.call = Call::ListenState;
    const std::size_t room = std::min<std::size_t>(state->size, sizeof *state);
    values.listen.size = static_cast<std::uint32_t>(room);
    const std::int32_t result = made(values);
    if (result == 0) std::memcpy(state, &values.listen, room);
    return result;
}

std::int32_t HM16_CALL absenceHosted(HM16_AbsenceInfo* info) {
    const std::size_t room = std::min<std::size_t>(info->size, sizeof *info);
    if (inUse == nullptr || plain(Call::AbsenceWhy) != 0) return 1;
    HM16_AbsenceInfo told = inUse->page().absence;
    told.size = static_cast<std::uint32_t>(room);
    std::memcpy(info, &told, room);
    return 0;
}

constexpr HM16_FiguresV1 kFigures = {sizeof(HM16_FiguresV1), hostedPlain<Call::FiguresCount>,
                                     describeHosted, slotsHosted};
constexpr HM16_ListenV1 kListen = {sizeof(HM16_ListenV1), listenHosted, listenStateHosted};
constexpr HM16_AbsenceV1 kAbsence = {sizeof(HM16_AbsenceV1), absenceHosted};

const void* HM16_CALL hostedExtensionById(const char* id) {
    if (inUse == nullptr) return nullptr;
    const std::string_view name = id;
    if (name == HM16_FIGURES && inUse->hasFigures()) return &kFigures;
    if (name == HM16_LISTEN && inUse->hasListen()) return &kListen;
    if (name == HM16_ABSENCE && inUse->hasAbsence()) return &kAbsence;
    return nullptr;
}

}  // namespace

HM16_Functions hostedFunctions(HostedLibrary& library, std::uint32_t optional) {
    inUse = &library;
    HM16_Functions f{};
    f.init = hostedPlain<Call::Init>;
    f.terminate = hostedPlain<Call::Terminate>;
    f.demoMode = hostedPlain<Call::DemoMode>;
    f.directorio = (optional & kHasDirectorio) != 0 ? hostedDirectorio : nullptr;
    f.normal = hostedNormal;
    f.parar = hostedPlain<Call::Parar>;
    f.reset = hostedWhole<Call::Reset>;
    f.data = hostedData;
    f.dataRds = hostedDataRds;
    f.super = hostedLevelAt<Call::Super>;
    f.startEspectro = hostedSweep;
    f.tramaEspectroRecibida = hostedPlain<Call::TramaEspectroRecibida>;
    f.getEspectro = hostedLevelAt<Call::GetEspectro>;
    f.setClient = (optional & kHasSetClient) != 0 ? hostedWhole<Call::SetClient> : nullptr;
    f.respFrecuencia = hostedResponse;
    f.setSintoMode = hostedWhole<Call::SetSintoMode>;
    f.getSintoMode = (optional & kHasGetSintoMode) != 0 ? hostedSintoMode : nullptr;
    f.getHardwareVersion = hostedFloat<Call::GetHardwareVersion>;
    f.getDriverVersion = hostedFloat<Call::GetDriverVersion>;
    return f;
}

HM16_ExtensionFunction hostedExtension() {
    return hostedExtensionById;
}

void forgetHosted(const HostedLibrary& library) {
    if (inUse == &library) inUse = nullptr;
}

}  // namespace hm16
