// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/unit/library_folder.h"

#if defined(_WIN32)
#include <windows.h>
#else
#include <dlfcn.h>
#endif

namespace hm16 {

std::filesystem::path libraryFolder() {
    static const char here = 0;
    std::error_code error;
    std::filesystem::path file;
#if defined(_WIN32)
    HMODULE module = nullptr;
    wchar_t name[MAX_PATH] = {};
    if (GetModuleHandleExW(
            GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
            reinterpret_cast<const wchar_t*>(&here), &module) &&
        GetModuleFileNameW(module, name, MAX_PATH) > 0) {
        file = name;
    }
#else
    Dl_info info{};
    if (dladdr(&here, &info) != 0 && info.dli_fname != nullptr) file = info.dli_fname;
#endif
    file = std::filesystem::absolute(file, error);
    return error || !file.has_parent_path() ? std::filesystem::path(".") : file.parent_path();
}

}  // namespace hm16
