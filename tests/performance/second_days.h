// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <string>
#include <vector>

namespace hmonitor::test {

/// One day of log_days.txt, which an independent program calculated. Texts are UTF-8.
struct SecondDay {
    std::string day;
    std::string bytes;  ///< of the log, in the code page
    /// By the table's word ("fields", "list3", "curve phase", "report Teskel").
    std::map<std::string, std::vector<std::string>> texts;

    const std::vector<std::string>& of(const std::string& word) const;
};

const std::vector<SecondDay>& secondDays();

}  // namespace hmonitor::test
