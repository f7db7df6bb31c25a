// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "core/files.h"

namespace hmonitor {

/// The names of the working folder's logs (*.log in any case, plain files) in the byte order of
/// their folded names, so that the list is the same on every disk.
std::vector<std::string> logFiles(const Files& files);

/// The days of these files: the names without their ending whose value is not zero, in the order
/// of that value.
std::vector<std::string> logDays(const std::vector<std::string>& fileNames);

}  // namespace hmonitor
