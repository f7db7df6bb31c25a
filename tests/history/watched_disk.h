// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace history::test {

/// One access of SQLite to the disk.
struct DiskStep {
    enum class What { Open, Write, Truncate, Flush, Delete };
    What what = What::Open;
    std::string path;
    std::int64_t offset = 0;  ///< Write; Truncate: the new size
    std::string bytes;        ///< Write
};

/// A layer between SQLite and the disk, registered under its name. `onStep` is called before each
/// step: 0 lets it happen, an SQLite code makes it fail. Only one may exist at a time.
class WatchedDisk {
 public:
    static constexpr const char* kName = "watched";

    explicit WatchedDisk(std::function<int(const DiskStep&)> onStep);
    ~WatchedDisk();
    WatchedDisk(const WatchedDisk&) = delete;
    WatchedDisk& operator=(const WatchedDisk&) = delete;
};

}  // namespace history::test
