// SPDX-License-Identifier: GPL-3.0-or-later
#include "manual/manual_folder.h"

#include <fstream>
#include <iterator>
#include <string>

namespace hmonitor {

Book::Read manualIn(const std::filesystem::path& tree) {
    return [tree](const std::string& path) -> std::string {
        const std::filesystem::path folder = tree / (path.ends_with(".hlp") ? "install" : "manual");
        std::ifstream file(folder / path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    };
}

}  // namespace hmonitor
