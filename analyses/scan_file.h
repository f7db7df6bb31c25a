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

    /// The levels of the file as their text, at most as many as there are odd channels in the band;
    /// fewer where the file ends before.
    static FileResult<std::vector<std::string>> read(const Files& files);
    /// The same of the file's bytes.
    static std::vector<std::string> lines(std::string_view bytes);

    /// One more channel, in whole dB. The first character of the level's text is dropped: the
    /// blank of a positive number, but the sign of a negative one too, so that -3 is stored as "3".
    void add(std::int32_t level);

    const std::string& bytes() const { return bytes_; }
    std::optional<FileFault> write(const Files& files) const;

 private:
    std::string bytes_;
};

}  // namespace hmonitor
