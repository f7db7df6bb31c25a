// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/files.h"

namespace hmonitor {

/// The last band scan, `scan.dat`: one line a channel, its level in whole dB. No frequency is
/// stored, a line's place gives it.
class ScanFile {
 public:
    static constexpr std::string_view kFileName = "scan.dat";

    /// What is stored.
    static FileResult<ScanFile> read(const Files& files);
    /// The levels as their text, at most as many as there are odd channels in the band; fewer where
    /// the file ends before.
    static std::vector<std::string> lines(std::string_view bytes);
    std::vector<std::string> lines() const { return lines(bytes_); }
    /// How many lines there are in all, which tells something of what was measured.
    std::size_t lineCount() const;

    /// One more channel, in whole dB. The first character of the level's text is dropped: the
    /// blank of a positive number, but the sign of a negative one too, so that -3 is stored as "3".
    void add(std::int32_t level);

    const std::string& bytes() const { return bytes_; }
    std::optional<FileFault> write(const Files& files) const;

 private:
    std::string bytes_;
};

}  // namespace hmonitor
