// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "analyzer/density.h"
#include "analyzer/session_info.h"

namespace hmonitor {

/// Most bytes that a text of a session has.
inline constexpr std::size_t kLongestSessionText = 65535;

enum class SessionCondition { Whole, Damaged };

/// Takes the bytes of a session file. What can be read is read, the rest stands as cleared: a file
/// that ends early, numbers that are none, counts below 0. A session of another version counts as
/// damaged too, and so does one with bytes behind its end.
SessionCondition readSession(std::string_view bytes, SessionInfo& info, Density& density);

/// The bytes of a session file. Letters outside of the code page become "?", texts are cut at
/// 65,535 bytes.
std::string sessionBytes(const SessionInfo& info, const Density& density);

}  // namespace hmonitor
