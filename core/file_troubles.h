// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <string>

namespace hmonitor {

/// What could not be written to the working folder, or read from it, and still cannot. A disk that
/// is full stays so for a while: it is shown as long as it holds, and told in a box once.
class FileTroubles {
 public:
    enum class Why { ReadOnly, DiskFull, Other, Unreadable };

    /// A file was not written, for that `errno`. Answers whether somebody was told of such a
    /// trouble since it holds: true from whoever tells it on.
    std::shared_ptr<bool> failed(const std::filesystem::path& file, int reason,
                                 std::uintmax_t bytes);

    /// A file that is there was not read.
    void unreadable(const std::filesystem::path& file) { standing_[file] = {Why::Unreadable, 0}; }
    /// A file was written, or read, after all.
    void written(const std::filesystem::path& file);
    void read(const std::filesystem::path& file);

    /// The folder as it is at a start, when nobody has tried to write yet.
    void lookAt(const std::filesystem::path& folder);
    /// Forgets what does not hold any more.
    void lookAgain();

    bool any() const { return !standing_.empty(); }
    /// Of the first file in byte order, while there is any.
    Why why() const { return standing_.begin()->second.why; }
    std::filesystem::path file() const { return standing_.begin()->first; }

 private:
    struct Trouble {
        Why why;
        std::uintmax_t bytes;
    };
    void forgetWhatWasTold();

    std::map<std::filesystem::path, Trouble> standing_;
    std::map<Why, std::shared_ptr<bool>> told_;
};

}  // namespace hmonitor
