// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/acts/folder_damage.h"

#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <sstream>
#include <vector>

namespace hmonitor::test {

namespace {

namespace fs = std::filesystem;

constexpr std::array<const char*, 5> kNeeded{"hm-16.dat", "Hm-res.dat", "halden.dat", "normal.hm",
                                             "scan.dat"};

bool isNeeded(const std::string& name) {
    return std::ranges::find(kNeeded, name) != kNeeded.end();
}

std::string bytesOf(const fs::path& file) {
    std::error_code none;
    if (!fs::is_regular_file(file, none)) return {};
    std::ostringstream bytes;
    bytes << std::ifstream(file, std::ios::binary).rdbuf();
    return std::move(bytes).str();
}

void put(const fs::path& file, const std::string& bytes) {
    std::error_code none;
    if (!fs::is_regular_file(file, none)) fs::remove_all(file, none);
    std::ofstream(file, std::ios::binary) << bytes;
}

}  // namespace

std::string FolderDamage::anything(std::size_t length) {
    // Half of the time only characters of which numbers are made, else any bytes.
    constexpr std::string_view kFigures = "0123456789.-+ \r\n\t,;eEinfa";
    const bool figures = draw(2) == 0;
    std::string bytes(length, ' ');
    for (char& byte : bytes) {
        byte = figures ? kFigures[static_cast<std::size_t>(draw(kFigures.size()))]
                       : static_cast<char>(draw(256));
    }
    return bytes;
}

std::string FolderDamage::pick() {
    std::vector<std::string> names;
    std::error_code none;
    for (fs::recursive_directory_iterator at(folder_, none), end; !none && at != end;
         at.increment(none)) {
        std::string name = fs::relative(at->path(), folder_, none).string();
        // Rarely a file without which the program ends.
        if (isNeeded(name) && draw(12) != 0) continue;
        names.push_back(std::move(name));
    }
    for (const char* new_ : {"0981.dat", "0981.spc", "0981.res", "20260504.log", "0875.dat"})
        names.emplace_back(new_);
    std::ranges::sort(names);
    return names[static_cast<std::size_t>(draw(static_cast<int>(names.size())))];
}

std::string FolderDamage::apply(const fs::path& file, const std::string& bytes) {
    std::error_code none;
    switch (draw(8)) {
        case 0:
            fs::remove_all(file, none);
            return "deleted";
        case 1:
            put(file, bytes.substr(
                          0, static_cast<std::size_t>(draw(static_cast<int>(bytes.size()) + 1))));
            return "cut";
        case 2: {
            std::string changed = bytes;
            for (int i = draw(20); i >= 0 && !changed.empty(); --i) {
                changed[static_cast<std::size_t>(draw(static_cast<int>(changed.size())))] =
                    static_cast<char>(draw(256));
            }
            put(file, changed);
            return "changed";
        }
        case 3:
            put(file, bytes + anything(static_cast<std::size_t>(draw(3000))));
            return "made longer";
        case 4:
            fs::remove_all(file, none);
            fs::create_directory(file, none);
            return "made a folder";
        case 5:
            fs::remove_all(file, none);
            ::mkfifo(file.c_str(), 0600);
            return "made a pipe";
        case 6:
            fs::remove_all(file, none);
            fs::create_symlink("nowhere", file, none);
            return "made a dangling link";
        default:
            put(file, anything(static_cast<std::size_t>(draw(1000))));
            return "made anything";
    }
}

std::string FolderDamage::damageOne() {
    const std::string name = pick();
    const fs::path file = folder_ / name;
    const std::string bytes = bytesOf(file);
    if (isNeeded(name)) needed_.emplace(name, bytes);
    ++ever_[name];
    return name + " " + apply(file, bytes);
}

void FolderDamage::mendNeeded() {
    for (const auto& [name, bytes] : needed_) put(folder_ / name, bytes);
    needed_.clear();
}

}  // namespace hmonitor::test
