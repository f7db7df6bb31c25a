// SPDX-License-Identifier: GPL-3.0-or-later
#include "manual/book.h"

#include <algorithm>
#include <sstream>
#include <utility>

#include "manual/markdown.h"

namespace hmonitor {

using display::HelpEntry;
using display::Language;

namespace {

constexpr std::string_view kHelpFileEnding = ".hlp";
constexpr std::string_view kDivider = "\n---\n";

std::vector<Book::Page> pagesOf(const std::string& contents) {
    std::vector<Book::Page> pages;
    std::istringstream lines(contents);
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        Book::Page page;
        if (!(words >> page.name)) continue;
        page.level = line.starts_with("  ") ? 1 : 0;
        for (std::string topic; words >> topic;) page.topics.push_back(topic);
        pages.push_back(std::move(page));
    }
    return pages;
}

}  // namespace

const char* folderOf(Language language) {
    return language == Language::Spanish ? "es" : "en";
}

std::string inLanguageFirst(std::string_view text, Language language) {
    const std::size_t at = text.find(kDivider);
    const bool twoHalves =
        at != std::string_view::npos && text.find(kDivider, at + 1) == std::string_view::npos;
    if (!twoHalves || language == Language::English) return std::string(text);
    std::string turned(text.substr(at + kDivider.size()));
    turned.append(kDivider).append(text.substr(0, at)).append("\n");
    return turned;
}

Book::Book(Read read) : read_(std::move(read)), pages_(pagesOf(read_("contents.txt"))) {}

std::string Book::markdown(std::string_view name, Language language) const {
    if (name.ends_with(kHelpFileEnding)) {
        std::string text = read_(std::string(name));
        std::erase(text, '\r');
        return inLanguageFirst(text, language);
    }
    if (std::ranges::find(pages_, name, &Page::name) == pages_.end()) return {};
    return read_(std::string(folderOf(language)).append("/").append(name).append(".md"));
}

std::vector<HelpEntry> Book::contents(Language language) const {
    std::vector<HelpEntry> entries;
    for (const Page& page : pages_) {
        const std::string text = markdown(page.name, language);
        if (text.empty()) continue;
        const std::string_view heading = firstHeading(text);
        entries.push_back(
            {page.name, std::string(heading.empty() ? page.name : heading), page.level});
    }
    return entries;
}

std::string Book::page(std::string_view name, Language language) const {
    return htmlOfMarkdown(markdown(name, language));
}

std::string Book::pageOf(std::string_view topic) const {
    for (const Page& page : pages_) {
        if (std::ranges::find(page.topics, topic) != page.topics.end()) return page.name;
    }
    return {};
}

std::string Book::picture(std::string_view path) const {
    constexpr std::string_view kUp = "../";
    if (path.starts_with(kUp)) path.remove_prefix(kUp.size());
    return path.starts_with("pictures/") ? read_(std::string(path)) : std::string();
}

}  // namespace hmonitor
