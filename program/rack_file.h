// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/files.h"
#include "display/rack_place.h"

namespace hmonitor {

/// What the program remembers of its own window, `rack.ini`: where the rack stood and how large it
/// was, and whether the card of the first start was put away. Whatever is missing or odd in it is
/// as at the first start.
struct RackFile {
    static constexpr std::string_view kFileName = "rack.ini";

    display::RackPlace place;
    bool cardSeen = false;

    static RackFile parse(std::string_view text);
    static RackFile read(const Files& files);
    std::string text() const;
    /// A folder that cannot be written is no trouble worth a word: the rack says it of files that
    /// count.
    void write(const Files& files) const;
    bool operator==(const RackFile&) const = default;
};

}  // namespace hmonitor
