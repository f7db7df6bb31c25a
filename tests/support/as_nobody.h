// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <unistd.h>

#include <filesystem>

namespace hmonitor::test {

/// Gives a file or a folder the rights of these bits; on Windows (rights_on_windows.cpp) everybody
/// those of the owner's bits.
#if defined(_WIN32)
void setRights(const std::filesystem::path& path, unsigned bits);
#else
inline void setRights(const std::filesystem::path& path, unsigned bits) {
    std::filesystem::permissions(path, std::filesystem::perms(bits));
}
#endif

/// Gives up root's rights for a while, because file permissions do not bind root.
class AsNobody {
 public:
    AsNobody() : was_(::geteuid()) {
        if (was_ == 0) isNobody_ = ::seteuid(65534) == 0;
    }
    ~AsNobody() {
        if (isNobody_ && ::seteuid(was_) != 0) ::_exit(99);
    }
    AsNobody(const AsNobody&) = delete;
    AsNobody& operator=(const AsNobody&) = delete;

 private:
    uid_t was_;
    bool isNobody_ = false;
};

}  // namespace hmonitor::test
