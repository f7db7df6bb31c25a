// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/probe/csv.h"

#include <array>
#include <charconv>
#include <cmath>

namespace hm16::probe {

void Csv::head(std::string_view line) {
    out_ << line << '\n';
}

void Csv::line(std::span<const double> values) {
    std::array<char, 64> text;
    const char* gap = "";
    for (const double value : values) {
        const auto done = std::to_chars(text.data(), text.data() + text.size(), value,
                                        std::chars_format::general, 7);
        out_ << gap;
        out_.write(text.data(), done.ptr - text.data());
        gap = ",";
    }
    out_ << '\n';
    out_.flush();
}

}  // namespace hm16::probe
