// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <concepts>
#include <string>
#include <string_view>
#include <utility>

#include "display/control.h"

namespace display {

/// The name of an element: # in the family's name is replaced by its number; without a # the number
/// follows in brackets.
inline std::string elementName(std::string_view pattern, std::size_t number) {
    const std::size_t mark = pattern.find('#');
    const std::string digits = std::to_string(number);
    if (mark == std::string_view::npos) return std::string(pattern) + "(" + digits + ")";
    return std::string(pattern).replace(mark, 1, digits);
}

/// Elements of one kind that the program addresses by index, from `First` on.
template <class Kind, std::size_t Count, std::size_t First = 0>
class Family {
 public:
    /// Family("LineAudL")[3] is named "LineAudL(3)". Family("Graph#", 1)[3] is named "Graph4",
    /// since its first element has the number 1.
    Family(Form& form, std::string_view pattern, std::size_t firstNumber = First)
        : Family(form, std::make_index_sequence<Count>{},
                 [&](std::size_t i) { return elementName(pattern, firstNumber + i); }) {}
    /// Elements with names of their own.
    Family(Form& form, const std::array<std::string, Count>& names)
        : Family(form, std::make_index_sequence<Count>{}, [&](std::size_t i) { return names[i]; }) {
    }

    Kind& operator[](std::integral auto index) {
        return elements_[static_cast<std::size_t>(index) - First];
    }
    const Kind& operator[](std::integral auto index) const {
        return elements_[static_cast<std::size_t>(index) - First];
    }
    static constexpr std::size_t size() { return Count; }
    auto begin() { return elements_.begin(); }
    auto end() { return elements_.end(); }

 private:
    template <class NameOf, std::size_t... I>
    Family(Form& form, std::index_sequence<I...>, const NameOf& nameOf)
        : elements_{element(form, nameOf(I))...} {}

    // Not inlined: inlining it for each element made one file compile for a quarter of a minute.
    [[gnu::noinline]] static Kind element(Form& form, std::string name) {
        return Kind(form, std::move(name));
    }

    std::array<Kind, Count> elements_;
};

}  // namespace display
