// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <string>
#include <vector>

namespace hmonitor::test {

/// docs/formats.md as the tests read it: its worked examples and the rows of its tables.
class FormatsPage {
 public:
    FormatsPage();

    /// The lines of the block "```example NAME".
    const std::vector<std::string>& example(const std::string& name) const;
    /// The rows of all tables of the section whose heading begins with `heading`; each row is its
    /// cells, without the back quotes around code.
    std::vector<std::vector<std::string>> rows(const std::string& heading) const;

 private:
    std::map<std::string, std::vector<std::string>> examples_;
    std::map<std::string, std::vector<std::vector<std::string>>> rows_;
};

/// Replaces `\r` and `\n` in a cell by the bytes.
std::string unescaped(const std::string& cell);

}  // namespace hmonitor::test
