// SPDX-License-Identifier: GPL-3.0-or-later
// Of as_nobody.h, where the system is Windows.
#include <windows.h>

#include <aclapi.h>

#include <filesystem>
#include <stdexcept>
#include <string>

namespace hmonitor::test {

namespace {

constexpr DWORD kWriting = FILE_WRITE_DATA | FILE_APPEND_DATA | FILE_DELETE_CHILD;

/// What is denied, whoever owns it; never the right to give it back.
DWORD deniedBy(unsigned bits) {
    return (bits & 0200 ? 0 : kWriting) | (bits & 0400 ? 0 : FILE_READ_DATA);
}

EXPLICIT_ACCESSW entry(PSID whom, ACCESS_MODE how, DWORD rights) {
    EXPLICIT_ACCESSW access = {};
    access.grfAccessPermissions = rights;
    access.grfAccessMode = how;
    access.Trustee.TrusteeForm = TRUSTEE_IS_SID;
    access.Trustee.ptstrName = static_cast<wchar_t*>(whom);
    return access;
}

}  // namespace

void setRights(const std::filesystem::path& path, unsigned bits) {
    SID_IDENTIFIER_AUTHORITY world = SECURITY_WORLD_SID_AUTHORITY;
    PSID everybody = nullptr;
    AllocateAndInitializeSid(&world, 1, SECURITY_WORLD_RID, 0, 0, 0, 0, 0, 0, 0, &everybody);
    EXPLICIT_ACCESSW entries[] = {entry(everybody, DENY_ACCESS, deniedBy(bits)),
                                  entry(everybody, GRANT_ACCESS, GENERIC_ALL)};
    const bool denies = deniedBy(bits) != 0;
    ACL* list = nullptr;
    DWORD fault = SetEntriesInAclW(denies ? 2 : 1, denies ? entries : entries + 1, nullptr, &list);
    if (fault == 0) {
        constexpr DWORD kOwn = DACL_SECURITY_INFORMATION | PROTECTED_DACL_SECURITY_INFORMATION;
        std::wstring name = path;
        fault = SetNamedSecurityInfoW(name.data(), SE_FILE_OBJECT, kOwn, nullptr, nullptr, list,
                                      nullptr);
    }
    LocalFree(list);
    FreeSid(everybody);
    if (fault != 0) throw std::runtime_error("no rights set for " + path.string());
}

}  // namespace hmonitor::test
