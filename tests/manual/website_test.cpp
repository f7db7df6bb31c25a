// SPDX-License-Identifier: GPL-3.0-or-later
#include "manual/website.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <set>

#include "tests/manual/source_manual.h"

namespace hmonitor::test {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

const std::filesystem::path kWebsite =
    std::filesystem::path(HMONITOR_SOURCE_DIR) / "docs" / "manual";

TEST(Website, TheOneInDocsIsWhatTheManualGivesNow) {
    std::set<std::string> made;
    for (const WebFile& file : websiteOf(sourceManual())) {
        made.insert(file.path);
        std::ifstream in(kWebsite / file.path, std::ios::binary);
        const std::string kept{std::istreambuf_iterator<char>(in), {}};
        EXPECT_TRUE(kept == file.text) << file.path << " is not of now: run scripts/manual";
    }
    std::set<std::string> left;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(kWebsite)) {
        const std::string path = entry.path().lexically_relative(kWebsite).generic_string();
        if (entry.is_regular_file() && !made.contains(path)) left.insert(path);
    }
    EXPECT_THAT(left, IsEmpty()) << "run scripts/manual";
}

TEST(Website, EachLinkAndPictureLeadsToAFile) {
    std::size_t links = 0;
    for (const WebFile& file : websiteOf(sourceManual())) {
        static const std::regex kLink("(?:href|src)=\"([^\"]*)\"");
        for (std::sregex_iterator at(file.text.begin(), file.text.end(), kLink), end; at != end;
             ++at) {
            ++links;
            const std::filesystem::path target =
                (kWebsite / file.path).parent_path() / std::string((*at)[1]);
            EXPECT_TRUE(std::filesystem::is_regular_file(target)) << file.path << ": " << target;
        }
    }
    EXPECT_GT(links, 500u);
}

/// The luminance of "rrggbb" (WCAG 2).
double luminanceOf(const std::string& colour) {
    double sum = 0;
    const double weights[] = {0.2126, 0.7152, 0.0722};
    for (std::size_t part = 0; part < 3; ++part) {
        const double share = std::stoi(colour.substr(2 * part, 2), nullptr, 16) / 255.0;
        sum += weights[part] *
               (share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4));
    }
    return sum;
}

TEST(Website, ItsWordsAreLegibleInTheDarkAndInTheLight) {
    const std::string style = websiteOf(sourceManual()).front().text;
    const std::size_t light = style.find("prefers-color-scheme: light");
    ASSERT_NE(light, std::string::npos);
    for (const std::string& theme : {style.substr(0, light), style.substr(light)}) {
        std::map<std::string, double> luminance;
        static const std::regex kColour("--([a-z]+): #([0-9a-f]{6})");
        for (std::sregex_iterator at(theme.begin(), theme.end(), kColour), end; at != end; ++at) {
            luminance[(*at)[1]] = luminanceOf((*at)[2]);
        }
        ASSERT_EQ(luminance.size(), 8u);
        for (const char* ground : {"ground", "plate", "well"}) {
            for (const char* words : {"text", "soft", "link", "mark"}) {
                const auto [dark, pale] = std::minmax({luminance.at(ground), luminance.at(words)});
                EXPECT_GE((pale + 0.05) / (dark + 0.05), 4.5) << words << " on " << ground;
            }
        }
    }
}

TEST(Website, APageHasItsLanguageItsTitleAndItsNeighbours) {
    const Book book([](const std::string& path) -> std::string {
        if (path == "contents.txt") return "a.hlp\nb\n  c\n";
        if (path == "a.hlp") return "# A & <a>\n";
        if (path.ends_with("b.md")) return "# B\n\n[see](c.md) [far](https://e.org/x.md)\n";
        return "# C\n";
    });
    std::string page;
    for (const WebFile& file : websiteOf(book)) {
        if (file.path == "es/b.html") page = file.text;
    }
    EXPECT_THAT(page, HasSubstr("<html lang=\"es\">"));
    EXPECT_THAT(page, HasSubstr("<title>B</title>"));
    EXPECT_THAT(page, HasSubstr("<a href=\"a.html\">A &amp; &lt;a&gt;</a>"));
    EXPECT_THAT(page, HasSubstr("<a href=\"b.html\" aria-current=\"page\">B</a>"));
    EXPECT_THAT(page, HasSubstr("<a href=\"c.html\">see</a>"));
    EXPECT_THAT(page, HasSubstr("https://e.org/x.md\"")) << "what lies elsewhere stays";
    EXPECT_THAT(page, HasSubstr("Siguiente: <a href=\"c.html\">C</a>"));
    EXPECT_THAT(page, HasSubstr("<a href=\"../en/b.html\">In English</a>"));
}

}  // namespace
}  // namespace hmonitor::test
