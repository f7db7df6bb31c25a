// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <variant>
#include <vector>

#include "history/day_file.h"

namespace history {

/// A day's file from anywhere. It is opened read-only, nothing in it is run, and each block is
/// checked before it is believed; what is damaged tells of gaps.
class ForeignDay {
 public:
    /// Why a file is no day.
    enum class Refusal { NotReadable, NotADay, Newer, Damaged, TooLarge };
    using Opened = std::variant<std::unique_ptr<ForeignDay>, Refusal>;

    /// Bytes that no day reaches.
    static constexpr std::uint64_t kMostBytes = 64ull << 20;

    static Opened open(const std::filesystem::path& file);
    /// The same of a file's bytes in memory.
    static Opened fromBytes(std::span<const std::uint8_t> bytes);

    std::vector<int> stations() const;
    std::vector<Event> events() const;
    const FigureColumns& columns() const { return rows_->columns(); }
    /// All minutes, each of one station and epoch.
    std::vector<MinuteKey> minutes() const;
    /// The seconds of a minute, all figures of the registry.
    std::vector<Second> minute(const MinuteKey& key) const;

 private:
    ForeignDay() = default;
    static Opened check(std::unique_ptr<Database> database);

    std::unique_ptr<Database> database_;
    std::unique_ptr<DayRows> rows_;
};

}  // namespace history
