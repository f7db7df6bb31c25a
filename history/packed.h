// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace history {

// Packed numbers: seven bits a byte, lowest first; the eighth bit says that more bytes follow. A
// signed number is folded first (0, -1, 1, -2 become 0, 1, 2, 3), so that small numbers of either
// sign take one byte.

void packUnsigned(std::string& to, std::uint64_t value);
void packSigned(std::string& to, std::int64_t value);
/// Four bytes, lowest first.
void packFloat(std::string& to, float value);

/// Reads packed numbers. It never reads beyond the end: after a number that is cut or too long,
/// `failed()` is true and every result is 0.
class Unpacker {
 public:
    explicit Unpacker(std::string_view bytes) : bytes_(bytes) {}

    std::uint64_t takeUnsigned();
    std::int64_t takeSigned();
    float takeFloat();
    std::uint8_t takeByte();
    /// The next `size` bytes.
    std::string_view takeBytes(std::uint64_t size);

    bool failed() const { return failed_; }
    bool atEnd() const { return bytes_.empty(); }
    /// The number of bytes that are left.
    std::string_view rest() const { return bytes_; }
    void fail() {
        failed_ = true;
        bytes_ = {};
    }

 private:
    std::string_view bytes_;
    bool failed_ = false;
};

}  // namespace history
