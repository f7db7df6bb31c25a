// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The POSIX functions that tests call, for the tests' build on Windows. Included before each of
// their files.
#if defined(_WIN32)

#include <stdlib.h>

#include <cerrno>
#include <filesystem>
#include <random>
#include <string>

using uid_t = int;

/// Never root, so no rights are given up and taken back.
inline uid_t geteuid() {
    return 1;
}
inline int seteuid(uid_t) {
    return -1;
}

inline int setenv(const char* name, const char* value, int) {
    return ::_putenv_s(name, value);
}
inline int unsetenv(const char* name) {
    return ::_putenv_s(name, "");
}

/// Makes a folder in the place of the six X at the pattern's end.
inline char* mkdtemp(char* pattern) {
    std::string name = pattern;
    std::random_device chance;
    do {
        for (std::size_t i = name.size() - 6; i < name.size(); ++i) name[i] = 'a' + chance() % 26;
        std::error_code fault;
        if (std::filesystem::create_directory(name, fault)) break;
        if (fault) return nullptr;
    } while (true);
    return std::char_traits<char>::copy(pattern, name.data(), name.size());
}

#endif
