// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "analyzer/density.h"
#include "analyzer/session_info.h"

namespace hmonitor {

/// The maximum length of a session's text, in bytes.
inline constexpr std::size_t kLongestSessionText = 65535;

enum class SessionCondition { Whole, Damaged };

/// Reads the bytes of a session file. Whatever can be read is read, the rest stays cleared: the
/// file may end early, or have values that are no numbers or counts below 0. A session of another
/// version counts as damaged, and so does one with bytes after its end.
SessionCondition readSession(std::string_view bytes, SessionInfo& info, Density& density);

/// The bytes of a session file. Letters outside of the code page become "?", texts are cut at
/// 65,535 bytes.
std::string sessionBytes(const SessionInfo& info, const Density& density);

}  // namespace hmonitor
