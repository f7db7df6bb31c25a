// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <iosfwd>
#include <ostream>
#include <string>
#include <string_view>

#include "base/utf8.h"

namespace base {

/// A short text that never touches the heap: the live panels make dozens of them thirty times a
/// second. Holds up to 31 bytes of UTF-8; what does not fit is cut at a whole character.
class SmallText {
 public:
    static constexpr std::size_t kCapacity = 31;

    constexpr SmallText() = default;
    constexpr SmallText(std::string_view text) { append(text); }
    constexpr SmallText(const char* text) : SmallText(std::string_view(text)) {}
    SmallText(const std::string& text) : SmallText(std::string_view(text)) {}

    constexpr operator std::string_view() const { return view(); }
    constexpr std::string_view view() const { return {bytes_.data(), size_}; }
    std::string str() const { return std::string(view()); }

    constexpr std::size_t size() const { return size_; }
    constexpr bool empty() const { return size_ == 0; }
    constexpr char operator[](std::size_t i) const { return bytes_[i]; }

    constexpr SmallText& append(std::string_view text) {
        std::size_t room = kCapacity - size_;
        if (text.size() > room) {
            while (room > 0 && continuesCharacter(text[room])) --room;
            text = text.substr(0, room);
        }
        for (char c : text) bytes_[size_++] = c;
        return *this;
    }
    constexpr SmallText& append(char c) { return append(std::string_view(&c, 1)); }

    friend constexpr bool operator==(const SmallText& a, const SmallText& b) {
        return a.view() == b.view();
    }
    friend constexpr bool operator==(const SmallText& a, std::string_view b) {
        return a.view() == b;
    }
    friend constexpr bool operator==(const SmallText& a, const char* b) { return a.view() == b; }
    friend bool operator==(const SmallText& a, const std::string& b) { return a.view() == b; }

 private:
    std::array<char, kCapacity> bytes_{};
    std::uint8_t size_ = 0;
};

std::ostream& operator<<(std::ostream& out, const SmallText& text);

}  // namespace base
