// SPDX-License-Identifier: GPL-3.0-or-later
// Several whole programs can run in one process: nothing of the program is kept in a variable of
// the process, and nothing uses the process's current folder.
#include <gtest/gtest.h>

#include <algorithm>
#include <regex>
#include <string>

#include "tests/architecture/source_tree.h"

namespace hmonitor::test {
namespace {

/// Part of a program of which a process may have several. A driver library is loaded once.
bool standsSeveralTimes(const SourceFile& file) {
    for (const char* folder : {"tests", "bench", "drivers"}) {
        if (file.isUnder(folder)) return false;
    }
    return true;
}

/// A variable that can change and lives for the whole run: "static int seen" or, at the left margin
/// (in a namespace), "int seen = 0;".
bool keepsState(const std::string& line) {
    static const std::regex kStatic(
        R"(^\s*(inline\s+)?(static|thread_local)\s+(?!const\b|constexpr|constinit const|inline const))"
        R"((?!.*\)\s*(const\s*)?(noexcept\s*)?[;{]?$)(?!.*\($)(?!.*,$)[^(]*(=|\{|;))");
    static const std::regex kGlobal(
        R"(^(?!using|namespace|class|struct|enum|template|extern|friend|typedef|return|static_assert)"
        R"(|const\b|constexpr|inline const|case|public|private|protected|else|break|goto|throw)\b)"
        R"([A-Za-z_][\w:<>,*& ]*\s+\w+(\[\w*\])?(\s*=.*|\{.*\})?;)");
    // Most lines match neither, and the regular expressions would take most of this test's time.
    const auto has = [&line](const char* word) { return line.find(word) != std::string::npos; };
    if ((has("static ") || has("thread_local ")) && std::regex_search(line, kStatic)) return true;
    return line.ends_with(';') && !line.starts_with(' ') && std::regex_search(line, kGlobal);
}

TEST(ProcessState, IsToldFromWhatDoesNotChange) {
    for (const char* line :
         {"    static int seen = 0;", "static std::map<int, int> made;", "int seen = 0;",
          "std::vector<int> seen;", "thread_local int depth = 0;", "    static bool done{false};",
          "inline static int seen = 0;", "char buffer[20];"}) {
        EXPECT_TRUE(keepsState(line)) << line;
    }
    for (const char* line :
         {"    static const Faces faces;", "    static constexpr int kShapes = 16;",
          "    static float limitOf(figures::Output output);", "    static bool of() { return 1; }",
          "constexpr int kA = 1;", "const int kB = 2;", "using std::string;", "class Form;",
          "    static QString find(const QDir& folder, const QString& name);", "    int seen = 0;",
          "template MadeForm makeForm(Program&, Slot<Form1>&);",
          "    static std::unique_ptr<TuningPanels> rackPanels(Program& program);",
          "bool Form::loaded() const {", "inline constexpr int kC = 3;", "static_assert(true);"}) {
        EXPECT_FALSE(keepsState(line)) << line;
    }
}

/// A signal comes to the process, and its handler gets no argument for a program.
bool hearsSignals(const SourceFile& file) {
    return file.path == "display/qt/windows/end_watch.cpp";
}

TEST(ProcessState, IsKeptByNothingOfTheProgram) {
    std::size_t seen = 0;
    for (const SourceFile& file : sourceFiles()) {
        if (!standsSeveralTimes(file) || hearsSignals(file)) continue;
        ++seen;
        for (std::size_t i = 0; i < file.lines.size(); ++i) {
            EXPECT_FALSE(keepsState(file.lines[i])) << file.at(i) << ": " << file.lines[i];
        }
    }
    EXPECT_GT(seen, 200u) << "the program's files were not found";
}

/// Its start makes the program's folder the process's current folder, for the driver library.
bool isTheStart(const SourceFile& file) {
    return file.path == "app/main.cpp";
}

TEST(ProcessState, OfTheCurrentFolderIsAskedByNothing) {
    constexpr const char* kAsks[] = {"current_path()", "QDir::current", "getcwd",
                                     "filesystem::absolute("};
    constexpr const char* kSets[] = {"current_path(", "setCurrent(", "chdir("};
    const auto has = [](const std::string& line, const auto& words) {
        return std::ranges::any_of(
            words, [&](const char* word) { return line.find(word) != std::string::npos; });
    };
    int sets = 0;
    for (const SourceFile& file : sourceFiles()) {
        if (!standsSeveralTimes(file)) continue;
        for (std::size_t i = 0; i < file.lines.size(); ++i) {
            EXPECT_FALSE(has(file.lines[i], kAsks)) << file.at(i);
            if (!has(file.lines[i], kSets)) continue;
            ++sets;
            EXPECT_TRUE(isTheStart(file)) << file.at(i);
        }
    }
    EXPECT_EQ(sets, 1) << "the start's own was not found";
}

}  // namespace
}  // namespace hmonitor::test
