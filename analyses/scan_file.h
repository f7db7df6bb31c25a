// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/files.h"

namespace hmonitor {

/// The last band scan, `scan.dat`: one line for each channel with its level in whole dB. The
/// frequency is not stored; it follows from the line's number.
class ScanFile {
 public:
    static constexpr std::string_view kFileName = "scan.dat";

    /// Reads the file.
    static FileResult<ScanFile> read(const Files& files);
    /// The levels as text, at most as many as there are odd channels in the band; fewer if the file
    /// is shorter.
    static std::vector<std::string> lines(std::string_view bytes);
    std::vector<std::string> lines() const { return lines(bytes_); }
    /// The number of all lines, which hints at which channels were measured.
    std::size_t lineCount() const;

    /// Adds a channel, in whole dB. The first character of the level's text is dropped: the blank
    /// of a positive number, but also the sign of a negative one, so that -3 is stored as "3".
    void add(std::int32_t level);

    const std::string& bytes() const { return bytes_; }
    std::optional<FileFault> write(const Files& files) const;

 private:
    std::string bytes_;
};

}  // namespace hmonitor
