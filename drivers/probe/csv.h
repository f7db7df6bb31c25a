// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <ostream>
#include <span>
#include <string_view>

namespace hm16::probe {

// Writes lines of comma-separated numbers, always with a decimal point. "nan" and "inf" are written
// as they are, since they are faults of a library that its author wants to see.
class Csv {
 public:
    explicit Csv(std::ostream& out) : out_(out) {}

    void head(std::string_view line);
    void line(std::span<const double> values);

 private:
    std::ostream& out_;
};

}  // namespace hm16::probe
