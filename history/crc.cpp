// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/crc.h"

#include <array>

namespace history {

namespace {

constexpr std::array<std::uint32_t, 256> crcTable() {
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t i = 0; i < 256; ++i) {
        std::uint32_t c = i;
        for (int bit = 0; bit < 8; ++bit) c = (c & 1) ? 0xEDB88320u ^ (c >> 1) : c >> 1;
        table[i] = c;
    }
    return table;
}

constexpr auto kCrcTable = crcTable();

}  // namespace

std::uint32_t crc32Of(std::string_view bytes) {
    std::uint32_t c = 0xFFFFFFFFu;
    for (const char byte : bytes) {
        c = kCrcTable[(c ^ static_cast<std::uint8_t>(byte)) & 0xFF] ^ (c >> 8);
    }
    return c ^ 0xFFFFFFFFu;
}

}  // namespace history
