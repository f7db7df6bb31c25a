// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <regex>
#include <set>
#include <string>
#include <string_view>

#include "tests/architecture/house_picture.h"
#include "tests/architecture/source_tree.h"
#include "tests/architecture/standard_names.h"

namespace hmonitor::test {
namespace {

using testing::IsEmpty;

bool isQt(const std::string& target) {
    static const std::regex kQt(R"(^(Q[A-Z]\w*|Qt\w*/.*|q[a-z]+\.h|qcustomplot\.h)$)");
    return std::regex_match(target, kQt);
}

bool mayIncludeQt(const SourceFile& file) {
    for (const char* folder : {"app", "display/qt", "tests/app", "tests/display/qt", "bench/qt"}) {
        if (file.isUnder(folder)) return true;
    }
    return false;
}

/// Tests and benchmarks may include whatever they test.
bool isOfTheProgram(const SourceFile& file) {
    return !file.isUnder("tests") && !file.isUnder("bench");
}

/// The arrows that the include lines of the program make, and what no box of the picture holds.
struct IncludeArrows {
    std::set<Arrow> arrows;
    std::set<std::string> outside;

    explicit IncludeArrows(const HousePicture& picture) {
        for (const SourceFile& file : sourceFiles()) {
            if (!isOfTheProgram(file)) continue;
            const std::string from = picture.boxOf(file.path);
            if (from.empty()) outside.insert(file.path);
            for (const Include& include : includesOf(file)) {
                if (!include.quoted || include.target.find('/') == std::string::npos) continue;
                const std::string to = picture.boxOf(include.target);
                if (to.empty()) outside.insert(include.target);
                if (from != to) arrows.insert({from, to});
            }
        }
    }
};

TEST(Picture, HasAnArrowForEachIncludeAndNoOther) {
    const HousePicture& picture = HousePicture::ofArchitecturePage();
    const IncludeArrows includes(picture);
    EXPECT_THAT(includes.outside, IsEmpty()) << "no box of the picture holds these";
    EXPECT_GT(includes.arrows.size(), 10u) << "the tree's include lines were not found";
    EXPECT_EQ(picture.arrows(), includes.arrows);
}

TEST(Picture, ArrowsPointOneWay) {
    const HousePicture& picture = HousePicture::ofArchitecturePage();
    for (const Arrow& arrow : picture.arrows()) {
        EXPECT_FALSE(picture.reachedFrom(arrow.to).contains(arrow.from))
            << arrow.from << " and " << arrow.to << " include each other";
    }
}

TEST(Picture, WhatStandsAloneReachesNothingElse) {
    const HousePicture& picture = HousePicture::ofArchitecturePage();
    for (const char* alone : {"display/form.h", "base/figures.h", "drivers/hm16.h"}) {
        EXPECT_THAT(picture.reachedFrom(picture.boxOf(alone)), IsEmpty()) << alone;
    }
    const std::string display = picture.boxOf("display/form.h");
    const std::string forms = picture.boxOf("panels/audio/form_b.h");
    const std::string core = picture.boxOf("core/files.h");
    EXPECT_FALSE(picture.reachedFrom(core).contains(display)) << "rules and files have no display";
    EXPECT_FALSE(picture.reachedFrom(picture.boxOf("program/tuner.h")).contains(forms));
    EXPECT_FALSE(picture.reachedFrom(picture.boxOf("drivers/unit/unit.h")).contains(core));
}

TEST(Picture, IsReadAsItIsDrawn) {
    const HousePicture picture(
        "text\n```mermaid\nflowchart TD\n    a[\"app<br>start/up\"]\n    q[\"display/qt\"]\n"
        "    d[\"display\"]\n    a --> q & d\n    q --> d\n```\n    d --> a\n");
    EXPECT_EQ(picture.boxOf("app/main.cpp"), "a");
    EXPECT_EQ(picture.boxOf("start/up/form.h"), "a");
    EXPECT_EQ(picture.boxOf("start/other.h"), "");
    EXPECT_EQ(picture.boxOf("display/form.h"), "d");
    EXPECT_EQ(picture.boxOf("display/qt/painting/scale.h"), "q");
    EXPECT_EQ(picture.arrows(), (std::set<Arrow>{{"a", "d"}, {"a", "q"}, {"q", "d"}}));
    EXPECT_EQ(picture.reachedFrom("a"), (std::set<std::string>{"d", "q"}));
}

TEST(Includes, OfQtStandInTheAppAndTheQtDesktopOnly) {
    std::size_t seen = 0;
    for (const SourceFile& file : sourceFiles()) {
        for (const Include& include : includesOf(file)) {
            if (!isQt(include.target)) continue;
            ++seen;
            EXPECT_TRUE(mayIncludeQt(file)) << file.at(include.line) << ": " << include.target;
        }
    }
    EXPECT_GT(seen, 20u) << "the Qt desktop's include lines were not found";
}

TEST(Includes, OfFormHeadersReachOwnFolderCoreAndDisplayOnly) {
    const HousePicture& picture = HousePicture::ofArchitecturePage();
    const std::string forms = picture.boxOf("panels/audio/form_b.h");
    for (const SourceFile& file : sourceFiles()) {
        if (!file.isHeader() || picture.boxOf(file.path) != forms) continue;
        const std::string own = file.path.substr(0, file.path.rfind('/') + 1);
        for (const Include& include : includesOf(file)) {
            if (picture.boxOf(include.target) != forms) continue;
            EXPECT_TRUE(include.target.starts_with(own))
                << file.at(include.line)
                << ": a form's header knows no other form: " << include.target
                << " belongs into the .cpp";
        }
    }
}

TEST(Includes, OfTheAnalysesAndTheSpectrumReachNoPanel) {
    std::size_t seen = 0;
    for (const SourceFile& file : sourceFiles()) {
        const bool analysis = file.isUnder("spectrum") || file.isUnder("analyses") ||
                              file.isUnder("performance") || file.isUnder("analyzer");
        if (!analysis) continue;
        for (const Include& include : includesOf(file)) {
            ++seen;
            EXPECT_FALSE(include.target.starts_with("panels/"))
                << file.at(include.line)
                << ": what an analysis needs of a tuning it asks of program/";
        }
    }
    EXPECT_GT(seen, 100u);
}

TEST(Includes, AreWrittenFromTheTopOfTheTree) {
    for (const SourceFile& file : sourceFiles()) {
        if (file.path.ends_with(".c")) continue;
        for (const Include& include : includesOf(file)) {
            EXPECT_FALSE(include.target.starts_with("..")) << file.at(include.line);
        }
    }
}

/// The standard headers that a file includes, itself or by the header of its own name.
std::set<std::string> standardHeadersFor(const SourceFile& file) {
    std::set<std::string> headers;
    for (const Include& include : includesOf(file)) {
        if (!include.quoted) headers.insert(include.target);
    }
    if (file.isHeader()) return headers;
    for (const Include& include : includesOf(file)) {
        const std::string stem = include.target.substr(0, include.target.rfind('.'));
        if (!include.quoted || !file.path.starts_with(stem)) continue;
        const auto own = std::ranges::find(sourceFiles(), include.target, &SourceFile::path);
        if (own != sourceFiles().end()) headers.merge(standardHeadersFor(*own));
    }
    return headers;
}

/// Whether one of these headers declares what `header` declares.
bool declares(const std::set<std::string>& headers, std::string_view header) {
    if (headers.contains(std::string(header))) return true;
    if (header == "string_view") return headers.contains("string");
    if (header == "ostream" || header == "istream") {
        return headers.contains("iostream") || headers.contains("fstream") ||
               headers.contains("sstream");
    }
    return false;
}

// The standard headers are compiled once for all files of the program, so no compiler notices that
// a file forgot one.
TEST(Includes, NameTheStandardHeadersThatAreUsed) {
    std::size_t seen = 0;
    for (const SourceFile& file : sourceFiles()) {
        if (!isOfTheProgram(file) || file.path.ends_with(".c")) continue;
        const std::set<std::string> headers = standardHeadersFor(file);
        for (const std::string& name : standardNamesIn(file)) {
            const std::string_view header = standardHeaderOf(name);
            if (header.empty()) continue;
            ++seen;
            EXPECT_TRUE(declares(headers, header))
                << file.path << ": std::" << name << " wants <" << header << ">";
        }
    }
    EXPECT_GT(seen, 1000u) << "the tree's standard names were not found";
}

/// The files that docs/writing-a-form.md has its reader write, by the path in their second line.
std::vector<SourceFile> filesOfThePage() {
    std::ifstream page(std::string(HMONITOR_SOURCE_DIR) + "/docs/writing-a-form.md");
    std::vector<SourceFile> files;
    bool inside = false;
    for (std::string line; std::getline(page, line);) {
        if (line.starts_with("```")) {
            inside = line == "```cpp";
            if (inside) files.emplace_back();
        } else if (inside) {
            std::vector<std::string>& lines = files.back().lines;
            lines.push_back(line);
            if (lines.size() == 2) files.back().path = line.substr(3, line.find(':') - 3);
        }
    }
    return files;
}

TEST(Includes, NameTheStandardHeadersInTheFilesThatThePageHasWritten) {
    const std::vector<SourceFile> files = filesOfThePage();
    ASSERT_EQ(files.size(), 4u);
    std::size_t seen = 0;
    for (const SourceFile& file : files) {
        ASSERT_TRUE(file.path.find("form_overs") != std::string::npos) << file.path;
        for (const std::string& name : standardNamesIn(file)) {
            ++seen;
            EXPECT_TRUE(declares(standardHeadersFor(file), standardHeaderOf(name)))
                << file.path << ": std::" << name << " wants <" << standardHeaderOf(name) << ">";
        }
    }
    EXPECT_GE(seen, 2u);
}

// These three are precompiled for the Qt desktop with everything that they include.
TEST(Includes, NameTheQtHeadersThatAreCompiledOnce) {
    static const std::regex kWord(R"(\b(class )?(QPainter|QString|QWidget)\b)");
    std::size_t seen = 0;
    for (const SourceFile& file : sourceFiles()) {
        if (!file.isUnder("display/qt") && !file.isUnder("app")) continue;
        std::set<std::string> headers = standardHeadersFor(file);
        std::set<std::string> used;
        for (const std::string& line : file.lines) {
            const std::string code = line.substr(0, line.find("//"));
            if (code.starts_with("#include")) continue;
            for (std::sregex_iterator at(code.begin(), code.end(), kWord), end; at != end; ++at) {
                ((*at)[1].matched ? headers : used).insert((*at)[2]);
            }
        }
        seen += used.size();
        for (const std::string& name : used) {
            EXPECT_TRUE(headers.contains(name)) << file.path << " wants <" << name << ">";
        }
    }
    EXPECT_GT(seen, 50u);
}

TEST(Includes, OfStandardNamesAreKnown) {
    EXPECT_EQ(standardHeaderOf("vector"), "vector");
    EXPECT_EQ(standardHeaderOf("ranges::sort"), "algorithm");
    EXPECT_EQ(standardHeaderOf("chrono::"), "chrono");
    EXPECT_EQ(standardHeaderOf("no_such_name"), "");
    const SourceFile file{
        "a.cpp", {"std::chrono::seconds a; // std::array", "std::ranges::sort(b, std::less<>());"}};
    EXPECT_EQ(standardNamesIn(file), (std::set<std::string>{"chrono::", "less", "ranges::sort"}));
}

TEST(Includes, OfQtAreToldFromOthers) {
    EXPECT_TRUE(isQt("QWidget"));
    EXPECT_TRUE(isQt("QtWidgets/QWidget"));
    EXPECT_FALSE(isQt("queue"));
}

}  // namespace
}  // namespace hmonitor::test
