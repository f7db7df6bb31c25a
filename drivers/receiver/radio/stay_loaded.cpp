// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/radio/stay_loaded.h"

#if defined(_WIN32)
#include <windows.h>
#else
#include <dlfcn.h>
#endif

namespace hm16::receiver {

void stayLoaded() {
#if defined(_WIN32)
    HMODULE self = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_PIN,
                       reinterpret_cast<LPCWSTR>(&stayLoaded), &self);
#else
    Dl_info self{};
    if (dladdr(reinterpret_cast<void*>(&stayLoaded), &self) != 0 && self.dli_fname)
        dlopen(self.dli_fname, RTLD_NOW | RTLD_NOLOAD | RTLD_NODELETE);
#endif
}

}  // namespace hm16::receiver
