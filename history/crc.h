// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string_view>

namespace history {

/// CRC-32 as in zip files and Python's zlib (polynomial 0xEDB88320, reflected).
std::uint32_t crc32Of(std::string_view bytes);

}  // namespace history
