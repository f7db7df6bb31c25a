// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <map>
#include <random>
#include <string>

namespace hmonitor::test {

/// What happens to the files of a working folder behind the program's back: they are cut, filled
/// with anything, deleted, or something that is no file stands in their place. What was there
/// before can be brought back.
class FolderDamage {
 public:
    FolderDamage(std::filesystem::path folder, std::mt19937_64& random)
        : folder_(std::move(folder)), random_(random) {}

    /// Damages one file, and returns what was done.
    std::string damageOne();
    /// Restores the files without which the program ends.
    void mendNeeded();
    /// Whether a file without which the program ends is damaged now.
    bool neededIsDamaged() const { return !needed_.empty(); }
    /// Whether that file was ever damaged.
    bool everDamaged(const std::string& name) const { return ever_.contains(name); }

 private:
    int draw(int below) { return static_cast<int>(random_() % static_cast<unsigned>(below)); }
    std::string anything(std::size_t length);
    std::string pick();
    std::string apply(const std::filesystem::path& file, const std::string& bytes);

    std::filesystem::path folder_;
    std::mt19937_64& random_;
    std::map<std::string, std::string> needed_;  ///< the damaged ones: name, and bytes before
    std::map<std::string, int> ever_;
};

}  // namespace hmonitor::test
