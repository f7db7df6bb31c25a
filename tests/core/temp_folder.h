// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <string_view>

namespace hmonitor::test {

/// A folder of its own for one test, deleted with it.
class TempFolder {
 public:
    TempFolder() {
        std::string pattern = std::filesystem::temp_directory_path() / "hmonitor-test-XXXXXX";
        path_ = ::mkdtemp(pattern.data());
    }
    ~TempFolder() {
        std::error_code none;
        std::filesystem::remove_all(path_, none);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }

    void put(std::string_view name, std::string_view bytes) const {
        std::ofstream(path_ / name, std::ios::binary) << bytes;
    }
    std::string bytes(std::string_view name) const {
        std::ifstream file(path_ / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
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
