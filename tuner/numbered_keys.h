// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <utility>

#include "display/controls.h"

namespace hmonitor {

/// Push keys whose run-time names are a stem and a number, from 1 on: keys[3] is "SSCommand3".
template <int Count>
class NumberedKeys {
 public:
    NumberedKeys(display::Form& form, std::string_view stem)
        : keys_(make(form, stem, std::make_index_sequence<Count>{})) {}

    static constexpr int count() { return Count; }

    display::Key& operator[](int number) { return keys_[static_cast<std::size_t>(number - 1)]; }
    const display::Key& operator[](int number) const {
        return keys_[static_cast<std::size_t>(number - 1)];
    }

 private:
    template <std::size_t... I>
    static std::array<display::Key, Count> make(display::Form& form, std::string_view stem,
                                                std::index_sequence<I...>) {
        return {display::Key(form, std::string(stem) + std::to_string(I + 1))...};
    }

    std::array<display::Key, Count> keys_;
};

}  // namespace hmonitor
