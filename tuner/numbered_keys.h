// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string_view>
#include <utility>

#include "core/numbers.h"
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
        return {display::Key(form, SmallText(stem).append(wholeText(I + 1)).str())...};
    }

    std::array<display::Key, Count> keys_;
};

}  // namespace hmonitor
