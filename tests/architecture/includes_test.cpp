// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <regex>
#include <set>
#include <string>
#include <string_view>

#include "tests/architecture/source_tree.h"

namespace hmonitor::test {
namespace {

constexpr std::string_view kForms[] = {"startup",     "panels",   "tuner",   "analyses",
                                       "performance", "spectrum", "analyzer"};

/// The room of the house that a path stands in: the forms are one.
std::string roomOf(std::string_view path) {
    if (path.starts_with("display/qt/")) return "display/qt";
    const std::string_view folder = path.substr(0, path.find('/'));
    for (const std::string_view form : kForms) {
        if (folder == form) return "forms";
    }
    return std::string(folder);
}

/// The rooms that a file of a room may include from. Headers of forms know no other form, so that
/// headers make no circle.
std::set<std::string> allowed(const SourceFile& file) {
    const std::string room = roomOf(file.path);
    if (room == "display") return {"display"};
    if (room == "display/qt") return {"display", "display/qt"};
    // The driver's C interface is all that the program knows of a library.
    if (room == "base") return {"base"};
    // Rules and files, without a display.
    if (room == "core") return {"core", "base"};
    // What every form shares knows no form.
    if (room == "program") return {"program", "core", "base", "display", "drivers"};
    if (room == "forms") return {"forms", "program", "core", "base", "display"};
    if (room == "drivers") return {"drivers", "base"};
    return {"app",     "forms",      "program", "core",  "base",
            "display", "display/qt", "drivers", "tests", "bench"};
}

struct Include {
    std::size_t line;
    std::string target;
    bool quoted;
};

std::vector<Include> includesOf(const SourceFile& file) {
    static const std::regex kInclude(R"(^\s*#\s*include\s*([<"])([^>"]+)[>"])");
    std::vector<Include> found;
    for (std::size_t i = 0; i < file.lines.size(); ++i) {
        if (file.lines[i].find("include") == std::string::npos) continue;
        std::smatch match;
        if (std::regex_search(file.lines[i], match, kInclude)) {
            found.push_back({i, match[2], match[1] == "\""});
        }
    }
    return found;
}

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

TEST(Includes, FollowTheArrows) {
    std::size_t seen = 0;
    for (const SourceFile& file : sourceFiles()) {
        const std::set<std::string> rooms = allowed(file);
        for (const Include& include : includesOf(file)) {
            if (!include.quoted || include.target.find('/') == std::string::npos) continue;
            ++seen;
            EXPECT_TRUE(rooms.contains(roomOf(include.target)))
                << file.at(include.line) << ": " << roomOf(file.path) << " must not include "
                << include.target;
        }
    }
    EXPECT_GT(seen, 300u) << "the tree's include lines were not found";
}

TEST(Includes, OfDriversFromTheProgramAreTheCInterfaceAlone) {
    for (const SourceFile& file : sourceFiles()) {
        const std::string room = roomOf(file.path);
        if (room != "core" && room != "program" && room != "forms" && room != "display") continue;
        for (const Include& include : includesOf(file)) {
            if (!include.target.starts_with("drivers/")) continue;
            // The loader belongs to the program's side of that interface.
            const bool cInterface = include.target == "drivers/hm16.h" ||
                                    include.target == "drivers/hm16_more.h" ||
                                    include.target.starts_with("drivers/loader/");
            EXPECT_TRUE(cInterface) << file.at(include.line) << ": " << include.target;
        }
    }
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
    for (const SourceFile& file : sourceFiles()) {
        if (!file.isHeader() || roomOf(file.path) != "forms") continue;
        const std::string own = file.path.substr(0, file.path.rfind('/') + 1);
        for (const Include& include : includesOf(file)) {
            if (roomOf(include.target) != "forms") continue;
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

TEST(Includes, TheRoomsAreToldApart) {
    EXPECT_EQ(roomOf("display/qt/painting/scale.h"), "display/qt");
    EXPECT_EQ(roomOf("display/form.h"), "display");
    EXPECT_EQ(roomOf("panels/audio/form_b.h"), "forms");
    EXPECT_TRUE(isQt("QWidget"));
    EXPECT_TRUE(isQt("QtWidgets/QWidget"));
    EXPECT_FALSE(isQt("queue"));
    EXPECT_FALSE(allowed({"display/form.h", {}}).contains("core"));
    EXPECT_FALSE(allowed({"core/files.cpp", {}}).contains("forms"));
    EXPECT_FALSE(allowed({"core/files.cpp", {}}).contains("program"));
    EXPECT_FALSE(allowed({"core/files.cpp", {}}).contains("display"));
    EXPECT_FALSE(allowed({"program/tuner.cpp", {}}).contains("forms"));
    EXPECT_FALSE(allowed({"drivers/unit/unit.h", {}}).contains("core"));
    EXPECT_TRUE(allowed({"drivers/unit/slot_figures.cpp", {}}).contains("base"));
    EXPECT_TRUE(allowed({"program/figure_tips.cpp", {}}).contains("base"));
    EXPECT_EQ(allowed({"base/figures.cpp", {}}), std::set<std::string>{"base"});
}

}  // namespace
}  // namespace hmonitor::test
