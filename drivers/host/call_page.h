// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <atomic>
#include <cstdint>
#include <type_traits>

#include "drivers/hm16.h"
#include "drivers/hm16_absence.h"
#include "drivers/hm16_more.h"
#include "drivers/host/bell.h"

namespace hm16 {

// What the program asks of the library's process. The nineteen stand in the order of
// HM16_Functions.
enum class Call : std::int32_t {
    Init,
    Terminate,
    DemoMode,
    Directorio,
    Normal,
    Parar,
    Reset,
    Data,
    DataRds,
    Super,
    StartEspectro,
    TramaEspectroRecibida,
    GetEspectro,
    SetClient,
    RespFrecuencia,
    SetSintoMode,
    GetSintoMode,
    GetHardwareVersion,
    GetDriverVersion,
    FiguresCount,
    FiguresDescribe,
    FiguresSlots,
    ListenSet,
    ListenState,
    AbsenceWhy,
    Load,  // load the library from the current folder's `text`
    Quit,  // unload it and end
    None,
};

// As the library's author knows it: "HM_Normal", "figures.slots".
const char* nameOf(Call call);

// What goes into a call and comes back from it; what a call does not use stays as it was.
struct CallValues {
    Call call = Call::None;
    std::int32_t result = 0;
    float numbers[16] = {};        // in order of the arguments
    std::int32_t wholes[16] = {};  // likewise
    std::uint64_t from = 0;        // slots
    std::uint64_t next = 0;
    HM16_FigureInfo figure{};
    HM16_ListenState listen{};
};

// The most slots that one call hands over.
inline constexpr std::int32_t kSlotsOnPage = 64;

// The memory that the program shares with the library's process. The program fills it and rings
// `asked`; the library's process makes the call, fills it and rings `answered`. Everything that
// comes back is checked by the program as what a library says: it may be anything.
struct CallPage {
    static constexpr std::uint32_t kMagic = 0x484d3136;

    // Both sides come from one build, or do not speak at all.
    std::uint32_t magic = kMagic;
    std::uint32_t size = sizeof(CallPage);

    Bell asked;
    Bell answered;
    // The number of the request that the library's process has begun: behind `asked` while it has
    // not, beyond `answered` while the library works.
    alignas(64) std::atomic<std::uint32_t> begun{0};

    CallValues values;
    char text[4096] = {};          // Load: the folder, then why not; Directorio: the folder
    std::uint32_t extensions = 0;  // Load: kHasFigures, kHasListen, kHasAbsence
    std::uint32_t optional = 0;    // Load: which of the three optional functions there are
    HM16_Slot slots[kSlotsOnPage];
    HM16_AbsenceInfo absence{};
};
static_assert(std::is_standard_layout_v<CallPage>);

inline constexpr std::uint32_t kHasFigures = 1;
inline constexpr std::uint32_t kHasListen = 2;
inline constexpr std::uint32_t kHasAbsence = 4;

inline constexpr std::uint32_t kHasDirectorio = 1;
inline constexpr std::uint32_t kHasSetClient = 2;
inline constexpr std::uint32_t kHasGetSintoMode = 4;

}  // namespace hm16
