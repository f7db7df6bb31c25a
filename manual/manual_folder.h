// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>

#include "manual/book.h"

namespace hmonitor {

/// The manual as it stands in the sources: the files of manual/, and the help file of install/.
Book::Read manualIn(const std::filesystem::path& tree);

}  // namespace hmonitor
