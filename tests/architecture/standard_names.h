// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <set>
#include <string>
#include <string_view>

#include "tests/architecture/source_tree.h"

namespace hmonitor::test {

/// The standard header that declares `std::name`, without its brackets; "" for a name that is not
/// listed. Names of nested namespaces are written "ranges::sort" and, for a whole namespace,
/// "chrono::".
std::string_view standardHeaderOf(std::string_view name);

/// The names after each `std::` in a file, comments left out, written in the same way.
std::set<std::string> standardNamesIn(const SourceFile& file);

}  // namespace hmonitor::test
