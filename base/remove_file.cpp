// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/remove_file.h"

#include <unistd.h>

#include <cerrno>

namespace base {

int removeFile(const std::filesystem::path& file) {
    return ::unlink(file.c_str()) == 0 ? 0 : errno;
}

}  // namespace base
