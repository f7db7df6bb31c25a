// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <utility>

#include "core/numbers.h"
#include "display/control.h"

namespace hmonitor {

/// Elements of one kind whose run-time names are a stem and a number from `First` on: numbered[0]
/// is named "Label1".
template <class Kind, std::size_t Count, std::size_t First = 1>
class Numbered {
 public:
    Numbered(display::Form& form, std::string_view stem)
        : elements_(make(form, stem, std::make_index_sequence<Count>{})) {}

    Kind& operator[](std::size_t index) { return elements_[index]; }
    const Kind& operator[](std::size_t index) const { return elements_[index]; }
    static constexpr std::size_t size() { return Count; }
    auto begin() { return elements_.begin(); }
    auto end() { return elements_.end(); }

 private:
    template <std::size_t... I>
    static std::array<Kind, Count> make(display::Form& form, std::string_view stem,
                                        std::index_sequence<I...>) {
        return {element(form, stem, First + I)...};
    }

    // Inlined once for each element, construction took compilers long.
    [[gnu::noinline]] static Kind element(display::Form& form, std::string_view stem,
                                          std::size_t number) {
        return Kind(form, std::string(stem) + shortText(number).str());
    }

    std::array<Kind, Count> elements_;
};

}  // namespace hmonitor
