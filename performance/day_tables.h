// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "core/files.h"

namespace hmonitor {

/// One day of the on-air performance log, hour by hour, as the last reader left it. The tables
/// outlive the windows that fill and show them. Texts are UTF-8; what cannot be read is passed
/// over, so that any file can be read.
class DayTables {
 public:
    static constexpr int kHours = 24;
    static constexpr int kFields = 9;

    /// Fills the tables from the log of the day, "20260304" for 20260304.log. A file that is
    /// missing or cannot be read is a day without lines.
    void read(const Files& files, std::string_view day);
    /// The same from the bytes of a log.
    void fill(std::string_view bytes);

    /// The line of an hour, 0 to 23, aligned so that its fields begin at character 4; empty where
    /// the log has none.
    const std::string& hourLine(int hour) const;
    /// A field, 1 to 9, of an hour, 0 to 23; "0" where it is absent.
    const std::string& field(int hour, int number) const;

 private:
    using HourFields = std::array<std::string, kFields>;

    void takeLine(std::string_view line);
    HourFields fieldsOf(int hour) const;

    std::array<std::string, kHours> hourLines_;
    std::array<std::string, kHours * kFields> fields_;
};

}  // namespace hmonitor
