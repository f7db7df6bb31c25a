// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "history/index_file.h"

namespace history {

enum class Step { Second, Minute, Hour, Day };

/// The coarsest step whose spans are no longer than a column of that many seconds.
Step stepFor(double secondsPerColumn);

/// One figure during a stretch of time.
struct Piece {
    std::size_t which = 0;   ///< its index among the requested figures
    std::int64_t begin = 0;  ///< seconds since 1970
    std::int64_t end = 0;
    int epoch = 0;
    SpanValue value;
};

/// Reads some figures of one station from all files of a folder, each row once.
class QueryRows {
 public:
    using Take = std::function<void(const Piece&)>;

    /// `figures`: their indices in the registry.
    QueryRows(const std::filesystem::path& folder, const char* vfs, int station,
              std::span<const std::size_t> figures);
    ~QueryRows();

    /// Everything that overlaps [begin, end), in spans of `step` or, where there are none, coarser
    /// or finer ones.
    void gather(Step step, std::int64_t begin, std::int64_t end, const Take& take);

 private:
    void gatherSeconds(std::int64_t begin, std::int64_t end, bool onlyFiles, const Take& take);
    void gatherSpans(Step step, std::int64_t begin, std::int64_t end, bool coarserToo,
                     const Take& take);
    void readDay(const std::filesystem::path& file, std::int64_t begin, std::int64_t end,
                 const Take& take);
    std::int64_t endOf(Step step);
    std::int64_t beginOf(Step step);

    std::filesystem::path folder_;
    const char* vfs_;
    int station_;
    std::vector<std::size_t> figures_;
    std::unique_ptr<Database> database_;
    std::unique_ptr<IndexRows> index_;
};

}  // namespace history
