// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "manual/book.h"
#include "manual/manual_folder.h"

namespace hmonitor::test {

/// The manual of the sources, read once.
inline const Book& sourceManual() {
    static const Book book(manualIn(HMONITOR_SOURCE_DIR));
    return book;
}

inline constexpr display::Language kBothLanguages[] = {display::Language::Spanish,
                                                       display::Language::English};

}  // namespace hmonitor::test
