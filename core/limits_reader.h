// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/limits_file.h"

namespace hmonitor {

/// Reads `limits.ini`, line by line, up to the first fault.
class LimitsReader {
 public:
    LimitsFile::Parsed read(std::string_view text);

 private:
    /// The keys that the section under way has had.
    struct Had {
        bool figure = false, above = false, below = false, outside = false;
        bool holdsFor = false, release = false, severity = false;
    };

    void line(std::string_view text);
    void beginSection(std::string_view text);
    void endSection();
    void setting(std::string_view key, std::string_view value);
    bool bound(std::string_view key, std::string_view value);
    bool time(std::string_view key, std::string_view value);
    void figure(std::string_view value);
    void severity(std::string_view value);
    void keepHead();
    bool once(bool& had, std::string_view key);
    void wrong(const std::string& spanish, const std::string& english);

    LimitsFile file_;
    std::optional<LimitRule> rule_;
    Had had_;
    std::vector<std::string> comments_;  ///< not yet known whose
    int line_ = 0;
    int sectionLine_ = 0;
    std::optional<LimitsFault> fault_;
};

}  // namespace hmonitor
