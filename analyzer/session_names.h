// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace hmonitor {

inline constexpr std::string_view kSessionEnding = ".3Ds";
/// The name that is listed when there is no session.
inline constexpr std::string_view kNoName = "Sin Nombre";

/// Whether a file of that name is a session, whatever the case of its ending.
bool isSessionName(std::string_view fileName);

/// A session's name without the ending.
std::string sessionTitle(std::string_view fileName);

/// The text file beside a session: "spc" in place of the ending, whatever its case, so that
/// "Other.3DS" is never its own text file, and in place of every other "3Ds" in the name.
std::string sweepFileName(std::string_view sessionFile);

/// A file name: characters used in paths and patterns become "_".
std::string fileTitle(std::string_view typed);

/// "Name.3Ds", or the first of "Name (1).3Ds" to "Name (999).3Ds" that is not taken; the last one
/// when all are. An empty name stands for "Sin Nombre".
std::string uniqueSessionName(std::string_view name,
                              const std::function<bool(std::string_view)>& isTaken);

/// The list item of the current session: the first whose folded name contains the session's folded
/// text anywhere, which is deliberately no exact match; otherwise the last. -1 without items.
int itemOfSession(const std::vector<std::string>& items, std::string_view current);

}  // namespace hmonitor
