// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>

namespace hmonitor::test {

/// An empty folder that is the working folder while it lives; then the old one is back and the
/// folder is gone with all that was written into it.
class TempWorkingFolder {
 public:
    TempWorkingFolder() : before_(std::filesystem::current_path()) {
        std::string pattern = std::filesystem::temp_directory_path() / "hmonitor-rack-XXXXXX";
        if (!::mkdtemp(pattern.data())) throw std::runtime_error("no folder " + pattern);
        path_ = pattern;
        std::filesystem::current_path(path_);
    }
    ~TempWorkingFolder() {
        std::error_code none;
        std::filesystem::current_path(before_, none);
        std::filesystem::remove_all(path_, none);
    }
    TempWorkingFolder(const TempWorkingFolder&) = delete;
    TempWorkingFolder& operator=(const TempWorkingFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }

    void writeFile(std::string_view name, std::string_view bytes) const {
        std::ofstream(path_ / name, std::ios::binary) << bytes;
    }
    std::string readFile(std::string_view name) const {
        std::ifstream file(path_ / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    bool hasFile(std::string_view name) const { return std::filesystem::exists(path_ / name); }

 private:
    std::filesystem::path before_;
    std::filesystem::path path_;
};

}  // namespace hmonitor::test
