// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <stdlib.h>
#include <time.h>

#include <string>

namespace history::test {

/// Sets the machine's time zone while this object exists.
class Zone {
 public:
    explicit Zone(const char* name) {
        const char* before = ::getenv("TZ");
        hadOne_ = before != nullptr;
        if (before) before_ = before;
        ::setenv("TZ", name, 1);
        ::tzset();
    }
    ~Zone() {
        hadOne_ ? ::setenv("TZ", before_.c_str(), 1) : ::unsetenv("TZ");
        ::tzset();
    }
    Zone(const Zone&) = delete;
    Zone& operator=(const Zone&) = delete;

 private:
    bool hadOne_ = false;
    std::string before_;
};

/// Seconds since 1970 of a moment of UTC.
inline std::int64_t utc(int year, int month, int day, int hour = 0, int minute = 0,
                        int second = 0) {
    ::tm parts = {};
    parts.tm_year = year - 1900;
    parts.tm_mon = month - 1;
    parts.tm_mday = day;
    parts.tm_hour = hour;
    parts.tm_min = minute;
    parts.tm_sec = second;
    return ::timegm(&parts);
}

}  // namespace history::test
