// SPDX-License-Identifier: GPL-3.0-or-later
#include "manual/book.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

#include "manual/markdown.h"

namespace hmonitor::test {
namespace {

using display::Language;
using testing::HasSubstr;
using testing::Not;

Book bookOf(std::map<std::string, std::string> files) {
    return Book([files = std::move(files)](const std::string& path) {
        const auto found = files.find(path);
        return found == files.end() ? std::string() : found->second;
    });
}

Book smallBook() {
    return bookOf(
        {{"contents.txt", "unit.hlp\nwindows\n  rack Form1 deviation\n\n  gone Form9\n"},
         {"unit.hlp", "# Unit\r\n\r\nKeys.\r\n\r\n---\r\n\r\n# La unidad\r\n\r\nTeclas.\r\n"},
         {"es/windows.md", "# Ventanas\n"},
         {"en/windows.md", "# Windows\n"},
         {"es/rack.md", "text\n# El rack\n\n![x](../pictures/es/rack.png)\n"},
         {"en/rack.md", "# The rack\n"},
         {"pictures/es/rack.png", "bytes"}});
}

TEST(Book, ItsContentsAreThePagesByTheirHeadingsAndLevels) {
    const auto entries = smallBook().contents(Language::Spanish);
    ASSERT_EQ(entries.size(), 3u) << "a page that is not there is left out";
    EXPECT_EQ(entries[0].page, "unit.hlp");
    EXPECT_EQ(entries[0].title, "La unidad");
    EXPECT_EQ(entries[1].title, "Ventanas");
    EXPECT_EQ(entries[1].level, 0);
    EXPECT_EQ(entries[2].title, "El rack");
    EXPECT_EQ(entries[2].level, 1);
    EXPECT_EQ(smallBook().contents(Language::English)[2].title, "The rack");
}

TEST(Book, ATopicLeadsToThePageThatListsIt) {
    const Book book = smallBook();
    EXPECT_EQ(book.pageOf("Form1"), "rack");
    EXPECT_EQ(book.pageOf("deviation"), "rack");
    EXPECT_EQ(book.pageOf("rack"), "") << "a page's name is no topic";
    EXPECT_EQ(book.pageOf("Form"), "");
    EXPECT_EQ(book.pageOf(""), "");
}

TEST(Book, TheHelpFileShowsTheHalfOfTheLanguageFirst) {
    const Book book = smallBook();
    const std::string spanish = book.page("unit.hlp", Language::Spanish);
    const std::string english = book.page("unit.hlp", Language::English);
    for (const char* both : {"Keys.", "Teclas."}) {
        EXPECT_THAT(spanish, HasSubstr(both));
        EXPECT_THAT(english, HasSubstr(both));
    }
    EXPECT_LT(spanish.find("Teclas."), spanish.find("Keys."));
    EXPECT_LT(english.find("Keys."), english.find("Teclas."));
}

TEST(Book, AHelpTextOfAnyOtherShapeStaysAsItIs) {
    EXPECT_EQ(inLanguageFirst("# One", Language::Spanish), "# One");
    EXPECT_EQ(inLanguageFirst("a\n---\nb\n---\nc", Language::Spanish), "a\n---\nb\n---\nc");
    EXPECT_EQ(inLanguageFirst("a\n---\nb", Language::English), "a\n---\nb");
    EXPECT_EQ(inLanguageFirst("a\n---\nb", Language::Spanish), "b\n---\na\n");
}

TEST(Book, PagesAndPicturesThatItDoesNotHaveAreEmpty) {
    const Book book = smallBook();
    EXPECT_EQ(book.page("gone", Language::English), "");
    EXPECT_EQ(book.page("../contents.txt", Language::English), "");
    EXPECT_EQ(book.page("none", Language::English), "");
    EXPECT_EQ(book.picture("../pictures/es/rack.png"), "bytes");
    EXPECT_EQ(book.picture("../contents.txt"), "");
    EXPECT_EQ(book.picture("../pictures/es/other.png"), "");
}

TEST(Markdown, HasTablesAndKeepsTagsAsText) {
    const std::string html = htmlOfMarkdown("| a | b |\n|---|---|\n| 1 \\| 2 | <b>x</b> |\n");
    EXPECT_THAT(html, HasSubstr("<table>"));
    EXPECT_THAT(html, HasSubstr("<td>1 | 2</td>"));
    EXPECT_THAT(html, HasSubstr("&lt;b&gt;"));
    EXPECT_THAT(html, Not(HasSubstr("<b>")));
}

TEST(Markdown, TheFirstHeadingIsTheTitle) {
    EXPECT_EQ(firstHeading("text\n## no\n# yes\r\n# later"), "yes");
    EXPECT_EQ(firstHeading("#none"), "");
    EXPECT_EQ(firstHeading(""), "");
}

}  // namespace
}  // namespace hmonitor::test
