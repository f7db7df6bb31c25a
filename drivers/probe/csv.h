// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <ostream>
#include <span>
#include <string_view>

namespace hm16::probe {

// Writes lines of comma separated numbers, always with a point, "nan" and "inf" as they are: who
// checks a library wants to see them.
class Csv {
 public:
    explicit Csv(std::ostream& out) : out_(out) {}

    void head(std::string_view line);
    void line(std::span<const double> values);

 private:
    std::ostream& out_;
};

}  // namespace hm16::probe
