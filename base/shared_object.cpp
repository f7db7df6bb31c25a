// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/shared_object.h"

#include <utility>

#if defined(_WIN32)
#include <windows.h>

#include <system_error>
#else
#include <dlfcn.h>
#if defined(__linux__)
#include <link.h>
#endif
#endif

namespace base {

namespace {

#if defined(_WIN32)

void* openObject(const std::filesystem::path& file, std::string& reason) {
    HMODULE module = LoadLibraryW(file.c_str());
    if (module == nullptr) {
        reason = std::system_category().message(static_cast<int>(GetLastError()));
    }
    return module;
}

void closeObject(void* handle) {
    FreeLibrary(static_cast<HMODULE>(handle));
}

void* findFunction(void* handle, const char* name) {
    return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(handle), name));
}

HMODULE moduleOf(const void* address, DWORD how) {
    HMODULE module = nullptr;
    GetModuleHandleExW(how | GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                       static_cast<const wchar_t*>(address), &module);
    return module;
}

#else

void* openObject(const std::filesystem::path& file, std::string& reason) {
    void* const handle = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (handle == nullptr) {
        const char* const words = dlerror();
        reason = words != nullptr ? words : "the system gives no reason";
    }
    return handle;
}

void closeObject(void* handle) {
    dlclose(handle);
}

bool isFunction(void* address) {
#if defined(__GLIBC__)
    Dl_info info{};
    const ElfW(Sym)* symbol = nullptr;
    if (dladdr1(address, &info, const_cast<void**>(reinterpret_cast<const void**>(&symbol)),
                RTLD_DL_SYMENT) != 0 &&
        symbol != nullptr) {
        const int type = ELF64_ST_TYPE(symbol->st_info);
        return type == STT_FUNC || type == STT_GNU_IFUNC || type == STT_NOTYPE;
    }
#endif
    return address != nullptr;
}

void* findFunction(void* handle, const char* name) {
    void* const address = dlsym(handle, name);
    return address != nullptr && isFunction(address) ? address : nullptr;
}

#endif

}  // namespace

SharedObject SharedObject::open(const std::filesystem::path& file, std::string& reason) {
    return SharedObject(openObject(file, reason));
}

SharedObject::SharedObject(SharedObject&& other) noexcept
    : handle_(std::exchange(other.handle_, nullptr)) {}

SharedObject& SharedObject::operator=(SharedObject&& other) noexcept {
    std::swap(handle_, other.handle_);
    return *this;
}

SharedObject::~SharedObject() {
    if (handle_ != nullptr) closeObject(handle_);
}

void* SharedObject::function(const char* name) const {
    return handle_ != nullptr ? findFunction(handle_, name) : nullptr;
}

std::filesystem::path fileOfCode(const void* address) {
#if defined(_WIN32)
    wchar_t name[MAX_PATH] = {};
    HMODULE module = moduleOf(address, GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT);
    return module != nullptr && GetModuleFileNameW(module, name, MAX_PATH) > 0 ? name : L"";
#else
    Dl_info info{};
    return dladdr(address, &info) != 0 && info.dli_fname != nullptr ? info.dli_fname : "";
#endif
}

bool threadsEndFirst() {
#if defined(_WIN32)
    return true;
#else
    return false;
#endif
}

void keepLoaded(const void* address) {
#if defined(_WIN32)
    moduleOf(address, GET_MODULE_HANDLE_EX_FLAG_PIN);
#else
    const auto file = fileOfCode(address);
    if (!file.empty()) dlopen(file.c_str(), RTLD_NOW | RTLD_NOLOAD | RTLD_NODELETE);
#endif
}

}  // namespace base
