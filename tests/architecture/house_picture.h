// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <compare>
#include <map>
#include <ostream>
#include <set>
#include <string>
#include <string_view>

namespace hmonitor::test {

/// One box of the picture includes files of another.
struct Arrow {
    std::string from;
    std::string to;
    auto operator<=>(const Arrow&) const = default;
};
inline void PrintTo(const Arrow& arrow, std::ostream* out) {
    *out << arrow.from << " --> " << arrow.to;
}

/// The Mermaid picture of a page: boxes of folders and files, and arrows between them.
class HousePicture {
 public:
    /// Reads the page's first block of Mermaid, which has lines `box["folder<br>other/file.h"]` and
    /// `box --> other & third`.
    explicit HousePicture(std::string_view page);

    /// The picture of docs/architecture.md, read once.
    static const HousePicture& ofArchitecturePage();

    /// The box that holds a file: the one with the longest path above it, "" for none.
    std::string boxOf(std::string_view file) const;
    const std::set<Arrow>& arrows() const { return arrows_; }
    /// All boxes that can be reached from one along arrows.
    std::set<std::string> reachedFrom(const std::string& box) const;

 private:
    std::map<std::string, std::string> boxes_;  ///< by the path of a folder or a file
    std::set<Arrow> arrows_;
};

}  // namespace hmonitor::test
