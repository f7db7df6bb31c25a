// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <regex>
#include <string>
#include <string_view>
#include <vector>

namespace hmonitor::test {

/// A source file of the tree, by its path from the top, with its lines.
struct SourceFile {
    std::string path;
    std::vector<std::string> lines;

    bool isHeader() const { return path.ends_with(".h"); }
    bool isUnder(std::string_view folder) const {
        return path.starts_with(std::string(folder) + "/");
    }
    /// "path:line", as compilers point at it.
    std::string at(std::size_t index) const { return path + ":" + std::to_string(index + 1); }
};

/// Every C and C++ file of the tree's own folders, in the order of their paths.
inline std::vector<SourceFile> readSourceFiles() {
    namespace fs = std::filesystem;
    const fs::path top = HMONITOR_SOURCE_DIR;
    std::vector<SourceFile> files;
    for (const char* folder : {"app", "startup", "base", "core", "history", "manual", "program",
                               "panels", "tuner", "analyses", "performance", "spectrum", "analyzer",
                               "limits", "trends", "display", "drivers", "tests", "bench"}) {
        for (const auto& entry : fs::recursive_directory_iterator(top / folder)) {
            const std::string ending = entry.path().extension().string();
            if (ending != ".h" && ending != ".cpp" && ending != ".c") continue;
            SourceFile file{fs::relative(entry.path(), top).generic_string(), {}};
            std::ifstream in(entry.path());
            for (std::string line; std::getline(in, line);) file.lines.push_back(line);
            files.push_back(std::move(file));
        }
    }
    std::ranges::sort(files, {}, &SourceFile::path);
    return files;
}

/// The same, read once.
inline const std::vector<SourceFile>& sourceFiles() {
    static const std::vector<SourceFile> files = readSourceFiles();
    return files;
}

/// One #include line.
struct Include {
    std::size_t line;
    std::string target;
    bool quoted;
};

inline std::vector<Include> includesOf(const SourceFile& file) {
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

}  // namespace hmonitor::test
