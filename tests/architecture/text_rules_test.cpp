// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <algorithm>
#include <regex>
#include <set>
#include <string>

#include "tests/architecture/source_tree.h"

namespace hmonitor::test {
namespace {

constexpr std::size_t kMostLines = 500;

TEST(Sources, BeginWithTheirLicence) {
    for (const SourceFile& file : sourceFiles()) {
        ASSERT_FALSE(file.lines.empty()) << file.path;
        EXPECT_NE(file.lines[0].find("SPDX-License-Identifier: GPL-3.0-or-later"),
                  std::string::npos)
            << file.at(0);
    }
}

TEST(Sources, AreShort) {
    for (const SourceFile& file : sourceFiles()) {
        EXPECT_LE(file.lines.size(), kMostLines) << file.path;
    }
}

TEST(Sources, AreNamedForWhatTheyHold) {
    static const std::regex kEmptyName(R"((^|_)(utils?|helpers?|managers?|common|misc)(_|$))");
    for (const SourceFile& file : sourceFiles()) {
        const std::string name = std::filesystem::path(file.path).stem().string();
        EXPECT_FALSE(std::regex_search(name, kEmptyName)) << file.path;
    }
}

/// Whether a header beside the file has its name, or the part of it before an underscore: the parts
/// of a large class are "form_b_layout.cpp", "form_b_tuning.cpp".
bool hasItsHeader(const SourceFile& file, const std::set<std::string>& headers) {
    std::string name = file.path.substr(0, file.path.rfind('.'));
    while (true) {
        if (headers.contains(name + ".h")) return true;
        const std::size_t underscore = name.find_last_of("_/");
        if (underscore == std::string::npos || name[underscore] == '/') return false;
        name.resize(underscore);
    }
}

TEST(Sources, HaveAHeaderOfTheirName) {
    // Entry points of programs, what every driver library implements for drivers/unit, and code for
    // one system in one piece.
    static const std::regex kEntry(
        R"((^|/)(main|probe|synth|survey_main|exports|open_unit|files_windows)\.cpp$)");
    std::set<std::string> headers;
    for (const SourceFile& file : sourceFiles()) {
        if (file.isHeader()) headers.insert(file.path);
    }
    for (const SourceFile& file : sourceFiles()) {
        const bool apart = file.isHeader() || file.isUnder("tests") || file.isUnder("bench") ||
                           std::regex_search(file.path, kEntry);
        if (!apart) EXPECT_TRUE(hasItsHeader(file, headers)) << file.path;
    }
    EXPECT_TRUE(hasItsHeader({"a/form_b_layout.cpp", {}}, {"a/form_b.h"}));
    EXPECT_FALSE(hasItsHeader({"a/form_b.cpp", {}}, {"b/form_b.h", "a/form_b_layout.h"}));
}

TEST(Headers, AreReadOnce) {
    for (const SourceFile& file : sourceFiles()) {
        if (!file.isHeader()) continue;
        // The C interface is for every compiler, so it has named include guards.
        const bool cInterface = file.path.starts_with("drivers/hm16");
        const bool guarded = std::ranges::any_of(file.lines, [&](const std::string& line) {
            return cInterface ? line.starts_with("#ifndef HM16_") : line == "#pragma once";
        });
        EXPECT_TRUE(guarded) << file.path;
    }
}

/// Folders whose numbers reach a person or a file by the number rules of base/.
bool isProgram(const SourceFile& file) {
    for (const char* apart : {"tests", "bench", "drivers", "display/qt"}) {
        if (file.isUnder(apart)) return false;
    }
    return true;
}

std::string withoutComment(const std::string& line) {
    return line.substr(0, line.find("//"));
}

bool formatsOnItsOwn(const std::string& line) {
    // For speed: most lines contain none of these words.
    constexpr const char* kWords[] = {"printf", "strto",  "ato",      "sto",
                                      "round",  "nearby", "to_string"};
    if (std::ranges::none_of(
            kWords, [&](const char* word) { return line.find(word) != std::string::npos; })) {
        return false;
    }
    static const std::regex kCalls(
        R"(\b(printf|fprintf|sprintf|snprintf|strtod|strtof|atof|stod|stof|lround|nearbyint)\s*\(|std::(round|to_string)\s*\()");
    return std::regex_search(withoutComment(line), kCalls);
}

TEST(Numbers, AreFormattedParsedAndRoundedByTheNumberRulesOnly) {
    // main.cpp writes a fault to standard error, and family.h the names of elements
    // ("multypath(3)"): it cannot include the number rules.
    const std::set<std::string> namesElements = {"app/main.cpp", "display/family.h"};
    for (const SourceFile& file : sourceFiles()) {
        if (!isProgram(file) || namesElements.contains(file.path)) continue;
        for (std::size_t i = 0; i < file.lines.size(); ++i) {
            EXPECT_FALSE(formatsOnItsOwn(file.lines[i])) << file.at(i) << ": " << file.lines[i];
        }
    }
}

TEST(Numbers, CallsAreToldFromComments) {
    EXPECT_TRUE(formatsOnItsOwn("x = std::round(y);"));
    EXPECT_TRUE(formatsOnItsOwn("std::snprintf (b, 3, f);"));
    EXPECT_FALSE(formatsOnItsOwn("// never std::round(y)"));
    EXPECT_FALSE(formatsOnItsOwn("around(y); Stroke::Round(2);"));
}

bool createsAFile(const std::string& line) {
    static const std::regex kCreates(
        R"(\bofstream\b|\bO_CREAT\b|\bCREATE_(NEW|ALWAYS)\b|\bfopen\([^)]*"[wa]|\bQ(Save|Temporary)File\b)");
    return std::regex_search(withoutComment(line), kCreates);
}

// Files of the working folder change by the one rewrite alone, which follows no link that somebody
// else laid, and leaves the old file or the new one.
TEST(Files, AreWrittenByTheOneRewriteOnly) {
    const std::set<std::string> theRewrite = {"base/rewrite_file.cpp", "base/files_windows.cpp"};
    // What a person names: an export, a recording on a command line, the manual's pages.
    const std::set<std::string> whereAsked = {
        "display/qt/windows/qt_desktop_files.cpp", "display/qt/windows/qt_desktop_printing.cpp",
        "drivers/receiver/record/recording_writer.cpp", "manual/main.cpp"};
    for (const SourceFile& file : sourceFiles()) {
        if (file.isUnder("tests") || file.isUnder("bench")) continue;
        if (theRewrite.contains(file.path) || whereAsked.contains(file.path)) continue;
        for (std::size_t i = 0; i < file.lines.size(); ++i) {
            EXPECT_FALSE(createsAFile(file.lines[i])) << file.at(i) << ": " << file.lines[i];
        }
    }
}

TEST(Files, ThatAreReadAreToldFromThoseThatAreWritten) {
    EXPECT_TRUE(createsAFile("std::ofstream out(path);"));
    EXPECT_TRUE(createsAFile("::open(path, O_WRONLY | O_CREAT, 0666);"));
    EXPECT_TRUE(createsAFile("std::fopen(path, \"wb\");"));
    EXPECT_TRUE(createsAFile("QSaveFile file(path);"));
    EXPECT_FALSE(createsAFile("std::fopen(path, \"rb\");"));
    EXPECT_FALSE(createsAFile("std::ifstream in(path);  // never std::ofstream"));
}

}  // namespace
}  // namespace hmonitor::test
