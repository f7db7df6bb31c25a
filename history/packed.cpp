// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/packed.h"

#include <bit>

namespace history {

void packUnsigned(std::string& to, std::uint64_t value) {
    while (value >= 0x80) {
        to.push_back(static_cast<char>(value | 0x80));
        value >>= 7;
    }
    to.push_back(static_cast<char>(value));
}

void packSigned(std::string& to, std::int64_t value) {
    packUnsigned(
        to, (static_cast<std::uint64_t>(value) << 1) ^ static_cast<std::uint64_t>(value >> 63));
}

void packFloat(std::string& to, float value) {
    const auto bits = std::bit_cast<std::uint32_t>(value);
    for (int shift = 0; shift < 32; shift += 8) to.push_back(static_cast<char>(bits >> shift));
}

std::uint8_t Unpacker::takeByte() {
    if (bytes_.empty()) {
        fail();
        return 0;
    }
    const auto byte = static_cast<std::uint8_t>(bytes_.front());
    bytes_.remove_prefix(1);
    return byte;
}

std::uint64_t Unpacker::takeUnsigned() {
    std::uint64_t value = 0;
    for (int shift = 0; shift < 63; shift += 7) {
        const std::uint8_t byte = takeByte();
        if (failed_) return 0;
        value |= static_cast<std::uint64_t>(byte & 0x7F) << shift;
        if (byte < 0x80) return value;
    }
    fail();
    return 0;
}

std::int64_t Unpacker::takeSigned() {
    const std::uint64_t folded = takeUnsigned();
    return static_cast<std::int64_t>(folded >> 1) ^ -static_cast<std::int64_t>(folded & 1);
}

float Unpacker::takeFloat() {
    std::uint32_t bits = 0;
    for (int shift = 0; shift < 32; shift += 8) {
        bits |= static_cast<std::uint32_t>(takeByte()) << shift;
    }
    return failed_ ? 0 : std::bit_cast<float>(bits);
}

std::string_view Unpacker::takeBytes(std::uint64_t size) {
    if (size > bytes_.size()) {
        fail();
        return {};
    }
    const std::string_view taken = bytes_.substr(0, static_cast<std::size_t>(size));
    bytes_.remove_prefix(static_cast<std::size_t>(size));
    return taken;
}

}  // namespace history
