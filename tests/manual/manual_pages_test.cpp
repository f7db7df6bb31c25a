// SPDX-License-Identifier: GPL-3.0-or-later
// The manual that comes with the program: a page for each form and each figure in both languages,
// nothing that points nowhere, and pictures that a reader can do without.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>

#include "base/figures.h"
#include "program/form_list.h"
#include "tests/manual/source_manual.h"

namespace hmonitor::test {
namespace {

using display::Language;
using testing::HasSubstr;
using testing::IsEmpty;

std::vector<std::string> formNames() {
    return {
#define HMONITOR_FORM_NAME(form, name) #form,
        HMONITOR_EACH_FORM(HMONITOR_FORM_NAME)
#undef HMONITOR_FORM_NAME
    };
}

/// What the pattern's first group matches, in order.
std::vector<std::string> matches(const std::string& text, const char* pattern) {
    const std::regex wanted(pattern);
    std::vector<std::string> found;
    for (std::sregex_iterator at(text.begin(), text.end(), wanted), end; at != end; ++at) {
        found.push_back((*at)[1]);
    }
    return found;
}

bool hasPage(const std::string& name, Language language) {
    return !sourceManual().markdown(name, language).empty();
}

TEST(Manual, HasAPageForEachFormInBothLanguages) {
    EXPECT_GE(formNames().size(), 24u);
    for (const std::string& form : formNames()) {
        const std::string page = sourceManual().pageOf(form);
        EXPECT_NE(page, "") << form;
        for (const Language language : kBothLanguages) {
            EXPECT_TRUE(hasPage(page, language)) << form << " " << folderOf(language);
        }
    }
}

TEST(Manual, HasAPageForEachFigureThatNamesItItsUnitAndItsStandard) {
    for (const figures::Figure& figure : figures::all()) {
        const std::string page = sourceManual().pageOf(figure.key);
        EXPECT_NE(page, "") << figure.key;
        for (const Language language : kBothLanguages) {
            const std::string text = sourceManual().markdown(page, language);
            EXPECT_THAT(text, HasSubstr(figure.unit)) << figure.key;
            EXPECT_THAT(text, HasSubstr(figure.standard)) << figure.key;
            const auto parts = matches(text, "\n## ([^\n]*)");
            EXPECT_EQ(parts.size(), 4u)
                << figure.key << ": what it is, how it is measured, its limits, what to do";
        }
    }
}

TEST(Manual, ItsPageOfFilesHasEachFileThatThePageOfFormatsHas) {
    std::ifstream formats(HMONITOR_SOURCE_DIR "/docs/formats.md");
    const std::string text((std::istreambuf_iterator<char>(formats)), {});
    // Of a heading: "limits.ini", and the ending alone of what is named by a station or a day.
    const auto names = matches(text, "\n## (?:[^\n]*: )?([\\w./-]+\\.\\w+)[^\n]*");
    EXPECT_GE(names.size(), 12u);
    for (const std::string& name : names) {
        if (name == "Save.csv") continue;  // stands where the user wants it
        const bool isExample = std::regex_search(name, std::regex("[0-9]{4}|/"));
        const std::string wanted =
            isExample ? name.substr(name.rfind('.')) + "`" : "`" + name + "`";
        for (const Language language : kBothLanguages) {
            EXPECT_THAT(sourceManual().markdown("files", language), HasSubstr(wanted));
        }
    }
}

TEST(Manual, NoTopicStandsOnTwoPages) {
    std::set<std::string> seen;
    for (const Book::Page& page : sourceManual().pages()) {
        for (const std::string& topic : page.topics) {
            EXPECT_TRUE(seen.insert(topic).second) << topic;
        }
    }
}

TEST(Manual, EachPageOfTheContentsIsThereInBothLanguagesWithOneTitle) {
    for (const Book::Page& page : sourceManual().pages()) {
        for (const Language language : kBothLanguages) {
            const std::string text = sourceManual().markdown(page.name, language);
            ASSERT_NE(text, "") << folderOf(language) << "/" << page.name;
            if (page.name.ends_with(".hlp")) continue;
            EXPECT_TRUE(text.starts_with("# ")) << page.name;
            EXPECT_EQ(matches("\n" + text, "\n(# )").size(), 1u) << page.name;
        }
    }
}

TEST(Manual, NoPageLiesBesideTheContents) {
    std::set<std::string> listed;
    for (const Book::Page& page : sourceManual().pages()) listed.insert(page.name + ".md");
    std::set<std::string> lost;
    for (const Language language : kBothLanguages) {
        const std::filesystem::path folder =
            std::filesystem::path(HMONITOR_SOURCE_DIR) / "manual" / folderOf(language);
        for (const auto& file : std::filesystem::directory_iterator(folder)) {
            const std::string name = file.path().filename().string();
            if (!listed.contains(name)) lost.insert(name);
        }
    }
    EXPECT_THAT(lost, IsEmpty());
}

TEST(Manual, EachLinkLeadsToAPageOfTheSameLanguage) {
    std::size_t links = 0;
    for (const Book::Page& page : sourceManual().pages()) {
        for (const Language language : kBothLanguages) {
            const std::string text = sourceManual().markdown(page.name, language);
            for (const std::string& target : matches(text, R"((?:^|[^!])\[[^\]]*\]\(([^)]*)\))")) {
                ++links;
                ASSERT_TRUE(target.ends_with(".md")) << page.name << ": " << target;
                EXPECT_TRUE(hasPage(target.substr(0, target.size() - 3), language))
                    << folderOf(language) << "/" << page.name << ": " << target;
            }
        }
    }
    EXPECT_GT(links, 100u);
}

TEST(Manual, BothLanguagesOfAPageHaveTheSamePartsAndPictures) {
    for (const Book::Page& page : sourceManual().pages()) {
        const std::string spanish = sourceManual().markdown(page.name, Language::Spanish);
        const std::string english = sourceManual().markdown(page.name, Language::English);
        if (page.name.ends_with(".hlp")) continue;
        for (const char* each : {"\n(##* )", "(!\\[)", "\n(\\|)", "\\]\\(([a-z_]*\\.md)\\)"}) {
            EXPECT_EQ(matches(spanish, each).size(), matches(english, each).size())
                << page.name << ": " << each;
        }
    }
}

TEST(Manual, EachPictureIsThereInThePagesLanguageAndIsToldInWords) {
    std::set<std::string> shown;
    for (const Book::Page& page : sourceManual().pages()) {
        for (const Language language : kBothLanguages) {
            const std::string text = sourceManual().markdown(page.name, language);
            for (const std::string& words : matches(text, R"(!\[([^\]]*)\])")) {
                EXPECT_GT(words.size(), 8u) << page.name << ": a picture without words";
            }
            for (const std::string& path : matches(text, R"(!\[[^\]]*\]\(([^)]*)\))")) {
                const std::string folder = std::string("../pictures/") + folderOf(language) + "/";
                EXPECT_TRUE(path.starts_with(folder)) << page.name << ": " << path;
                EXPECT_TRUE(sourceManual().picture(path).starts_with("\x89PNG")) << path;
                shown.insert(path);
            }
        }
    }
    EXPECT_GE(shown.size(), 40u);
    for (const Language language : kBothLanguages) {
        const std::string folder = std::string("pictures/") + folderOf(language);
        for (const auto& file : std::filesystem::directory_iterator(
                 std::filesystem::path(HMONITOR_SOURCE_DIR) / "manual" / folder)) {
            EXPECT_TRUE(shown.contains("../" + folder + "/" + file.path().filename().string()))
                << file.path() << " stands on no page";
        }
    }
}

}  // namespace
}  // namespace hmonitor::test
