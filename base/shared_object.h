// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <string>

namespace base {

/// A shared object that the system has loaded; closed in the end.
class SharedObject {
 public:
    /// Opens `file` with all that it needs, or gives an empty object and the system's reason. A
    /// bare name is looked for where the system keeps its libraries.
    static SharedObject open(const std::filesystem::path& file, std::string& reason);

    SharedObject() = default;
    SharedObject(SharedObject&& other) noexcept;
    SharedObject& operator=(SharedObject&& other) noexcept;
    ~SharedObject();

    explicit operator bool() const { return handle_ != nullptr; }

    /// The address of a function; null when there is none of that name, or where the system tells
    /// that the name belongs to data.
    void* function(const char* name) const;

    /// The same as a pointer to a function of its type; false when there is none.
    template <typename Function>
    bool take(const char* name, Function*& taken) const {
        taken = reinterpret_cast<Function*>(function(name));
        return taken != nullptr;
    }

 private:
    explicit SharedObject(void* handle) : handle_(handle) {}

    void* handle_ = nullptr;
};

/// The shared object (or the program) that an address of code or data lies in: its file, empty when
/// the system cannot tell.
std::filesystem::path fileOfCode(const void* address);

/// Keeps the shared object that `address` lies in loaded until the program ends: for a thread that
/// cannot be waited for.
void keepLoaded(const void* address);

/// Whether the system ends the other threads of a process before a shared object destroys what is
/// static in it, and lets none end while it unloads one (Windows). Whoever waits there for a thread
/// waits forever.
bool threadsEndFirst();

}  // namespace base
