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

/// A day's file from any source. It is opened read-only, nothing in it is executed, and each block
/// is checked before it is used; damaged blocks read as gaps.
class ForeignDay {
 public:
    /// Why a file is refused.
    enum class Refusal { NotReadable, NotADay, Newer, Damaged, TooLarge };
    using Opened = std::variant<std::unique_ptr<ForeignDay>, Refusal>;

    /// More bytes than any day has.
    static constexpr std::uint64_t kMostBytes = 64ull << 20;

    static Opened open(const std::filesystem::path& file);
    /// The same for the bytes of a file in memory.
    static Opened fromBytes(std::span<const std::uint8_t> bytes);

    std::vector<int> stations() const;
    std::vector<Event> events() const;
    const FigureColumns& columns() const { return rows_->columns(); }
    /// All minutes, each of one station and one epoch.
    std::vector<MinuteKey> minutes() const;
    /// The seconds of a minute, with all figures of the registry.
    std::vector<Second> minute(const MinuteKey& key) const;

 private:
    ForeignDay() = default;
    static Opened check(std::unique_ptr<Database> database);

    std::unique_ptr<Database> database_;
    std::unique_ptr<DayRows> rows_;
};

}  // namespace history
