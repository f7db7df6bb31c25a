// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/host/call_page.h"

#include <array>

namespace hm16 {

const char* nameOf(Call call) {
    static constexpr std::array<const char*, 28> kNames = {"HM_Init",
                                                           "HM_Terminate",
                                                           "HM_DemoMode",
                                                           "HM_Directorio",
                                                           "HM_Normal",
                                                           "HM_Parar",
                                                           "HM_Reset",
                                                           "HM_Data",
                                                           "HM_DataRDS",
                                                           "HM_Super",
                                                           "HM_StartEspectro",
                                                           "HM_TramaEspectroRecibida",
                                                           "HM_GetEspectro",
                                                           "HM_setClient",
                                                           "HM_RespFrecuencia",
                                                           "HM_setSintoMode",
                                                           "HM_getSintoMode",
                                                           "HM_getHardwareVersion",
                                                           "HM_getDriverVersion",
                                                           "figures.count",
                                                           "figures.describe",
                                                           "figures.slots",
                                                           "listen.set",
                                                           "listen.state",
                                                           "absence.why",
                                                           "loading",
                                                           "unloading",
                                                           ""};
    static_assert(kNames.size() == static_cast<std::size_t>(Call::None) + 1);
    const auto index = static_cast<std::size_t>(call);
    return index < kNames.size() ? kNames[index] : "";
}

}  // namespace hm16
