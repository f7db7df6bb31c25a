// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/utf8_path.h"

namespace base {

std::string utf8Of(const std::filesystem::path& path) {
    return path.native();
}

}  // namespace base
