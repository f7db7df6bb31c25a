// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <utility>

#include "display/control.h"

namespace display {

/// Elements of one kind that the program addresses by index, from 0: family[3] is named
/// "family(3)".
template <class Kind, std::size_t Count>
class Family {
 public:
    Family(Form& form, std::string_view name)
        : elements_(make(form, name, std::make_index_sequence<Count>{})) {}

    Kind& operator[](std::size_t index) { return elements_[index]; }
    const Kind& operator[](std::size_t index) const { return elements_[index]; }
    static constexpr std::size_t size() { return Count; }
    auto begin() { return elements_.begin(); }
    auto end() { return elements_.end(); }

 private:
    template <std::size_t... I>
    static std::array<Kind, Count> make(Form& form, std::string_view name,
                                        std::index_sequence<I...>) {
        return {element(form, name, I)...};
    }

    // Inlined once for each element, construction took compilers a quarter of a minute.
    [[gnu::noinline]] static Kind element(Form& form, std::string_view name, std::size_t index) {
        return Kind(form, std::string(name) + "(" + std::to_string(index) + ")");
    }

    std::array<Kind, Count> elements_;
};

}  // namespace display
