// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/loader/symbols.h"

#include <cstddef>
#include <cstring>
#include <iterator>

namespace hm16 {

namespace {

enum class Need { Required, Optional };

struct Symbol {
    const char* name;
    std::size_t place;
    Need need = Need::Required;
};

// The program never calls the three optional ones, so a library may leave them out.
constexpr Symbol kSymbols[] = {
    {"HM_Init", offsetof(HM16_Functions, init)},
    {"HM_Terminate", offsetof(HM16_Functions, terminate)},
    {"HM_DemoMode", offsetof(HM16_Functions, demoMode)},
    {"HM_Directorio", offsetof(HM16_Functions, directorio), Need::Optional},
    {"HM_Normal", offsetof(HM16_Functions, normal)},
    {"HM_Parar", offsetof(HM16_Functions, parar)},
    {"HM_Reset", offsetof(HM16_Functions, reset)},
    {"HM_Data", offsetof(HM16_Functions, data)},
    {"HM_DataRDS", offsetof(HM16_Functions, dataRds)},
    {"HM_Super", offsetof(HM16_Functions, super)},
    {"HM_StartEspectro", offsetof(HM16_Functions, startEspectro)},
    {"HM_TramaEspectroRecibida", offsetof(HM16_Functions, tramaEspectroRecibida)},
    {"HM_GetEspectro", offsetof(HM16_Functions, getEspectro)},
    {"HM_setClient", offsetof(HM16_Functions, setClient), Need::Optional},
    {"HM_RespFrecuencia", offsetof(HM16_Functions, respFrecuencia)},
    {"HM_setSintoMode", offsetof(HM16_Functions, setSintoMode)},
    {"HM_getSintoMode", offsetof(HM16_Functions, getSintoMode), Need::Optional},
    {"HM_getHardwareVersion", offsetof(HM16_Functions, getHardwareVersion)},
    {"HM_getDriverVersion", offsetof(HM16_Functions, getDriverVersion)},
};
static_assert(sizeof(HM16_Functions) == std::size(kSymbols) * sizeof(void*),
              "each function of the table has its symbol");

}  // namespace

SymbolTable readSymbols(const base::SharedObject& object) {
    SymbolTable table;
    auto* const bytes = reinterpret_cast<unsigned char*>(&table.functions);
    for (const Symbol& symbol : kSymbols) {
        void* const address = object.function(symbol.name);
        if (address == nullptr && symbol.need == Need::Required) {
            table.missing.emplace_back(symbol.name);
        }
        // On systems that load libraries at run time, function pointers are as large as data
        // pointers; copying the bytes saves a cast for each of the nineteen types.
        std::memcpy(bytes + symbol.place, &address, sizeof address);
    }
    return table;
}

}  // namespace hm16
