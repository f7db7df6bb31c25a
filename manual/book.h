// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "display/help_book.h"

namespace hmonitor {

/// The manual: the pages that manual/contents.txt lists, each written once in either language. Its
/// first page is the help file of the working folder.
class Book final : public display::HelpBook {
 public:
    /// Returns the bytes of a file of manual/ by its path there, or of the help file by its name;
    /// empty for none.
    using Read = std::function<std::string(const std::string& path)>;

    /// A line of the contents: "name topic ...", two blanks before it for a page of a chapter.
    struct Page {
        std::string name;
        int level = 0;
        std::vector<std::string> topics;  ///< forms and keys of figures that it explains
    };

    explicit Book(Read read);

    const std::vector<Page>& pages() const { return pages_; }
    /// The page as it is written; the help file with the language's half first.
    std::string markdown(std::string_view name, display::Language language) const;

    std::vector<display::HelpEntry> contents(display::Language language) const override;
    std::string page(std::string_view name, display::Language language) const override;
    std::string pageOf(std::string_view topic) const override;
    std::string picture(std::string_view path) const override;

 private:
    Read read_;
    std::vector<Page> pages_;
};

/// The folder of a language's pages and pictures: "es" or "en".
const char* folderOf(display::Language language);

/// A help text whose English half stands before a line "---" and its Spanish one behind it, with
/// the half of the language first; any other text as it is.
std::string inLanguageFirst(std::string_view text, display::Language language);

}  // namespace hmonitor
