// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>

namespace hmonitor::test {

/// An empty temporary folder, deleted with its contents at the end of the test.
class TempFolder {
 public:
    TempFolder() {
        std::string pattern = (std::filesystem::temp_directory_path() / "hmonitor-XXXXXX").string();
        if (::mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no folder " + pattern);
        path_ = pattern;
    }
    ~TempFolder() {
        std::error_code none;
        // Needed if a test has made it read-only.
        std::filesystem::permissions(path_, std::filesystem::perms::owner_all, none);
        std::filesystem::remove_all(path_, none);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }

    void write(const std::filesystem::path& name, std::string_view bytes) const {
        std::ofstream(path_ / name, std::ios::binary) << bytes;
    }
    std::string read(const std::filesystem::path& name) const {
        std::ifstream file(path_ / name, std::ios::binary);
        // Written in one piece: character by character, a session takes longer than the test around
        // it.
        std::ostringstream bytes;
        bytes << file.rdbuf();
        return std::move(bytes).str();
    }
    bool has(const std::filesystem::path& name) const {
        return std::filesystem::exists(path_ / name);
    }
    std::set<std::string> names() const {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(path_)) {
            names.insert(entry.path().filename().string());
        }
        return names;
    }

 private:
    std::filesystem::path path_;
};

}  // namespace hmonitor::test
