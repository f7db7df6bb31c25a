// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "display/control.h"

namespace display {

/// A line of a book's contents.
struct HelpEntry {
    std::string page;   ///< its name
    std::string title;  ///< its heading. UTF-8
    int level = 0;      ///< 0 for a chapter, 1 for a page of it
};

/// A book that the desktop can show: pages in two languages, addressed by names. What a page points
/// at is "name.md" for another page and a path for a picture. UTF-8.
class HelpBook {
 public:
    virtual ~HelpBook() = default;

    /// Its pages in their order.
    virtual std::vector<HelpEntry> contents(Language language) const = 0;
    /// The page as HTML without a head; empty when there is none by that name.
    virtual std::string page(std::string_view name, Language language) const = 0;
    /// The name of the page that explains a topic; empty for none.
    virtual std::string pageOf(std::string_view topic) const = 0;
    /// The bytes of the picture that a page points at; empty for none.
    virtual std::string picture(std::string_view path) const = 0;
};

}  // namespace display
