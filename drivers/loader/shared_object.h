// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <string>

namespace hm16 {

// A shared object that the system has loaded; closed in the end.
class SharedObject {
 public:
    // Opens `file` with all that it needs, or gives an empty object and the system's reason.
    static SharedObject open(const std::filesystem::path& file, std::string& reason);

    SharedObject(SharedObject&& other) noexcept;
    SharedObject& operator=(SharedObject&& other) noexcept;
    ~SharedObject();

    explicit operator bool() const { return handle_ != nullptr; }

    // The address of a function; null when there is none of that name, or where the system tells
    // that the name belongs to data.
    void* function(const char* name) const;

 private:
    explicit SharedObject(void* handle) : handle_(handle) {}

    void* handle_;
};

}  // namespace hm16
