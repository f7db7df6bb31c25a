// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drivers/loader/library.h"
#include "program/program_words.h"
#include "program/unit_absence.h"

namespace hmonitor {

/// The reason why no driver library was loaded, as one sentence in each language, with the whole
/// path of the file; empty when it was loaded.
LibraryFault libraryFault(const hm16::LoadResult& loaded);

/// Why a library that was loaded has no unit, likewise; empty when it does not say.
LibraryFault absenceFault(const UnitAbsence& absence);

}  // namespace hmonitor
