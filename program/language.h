// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

#include "display/form.h"

namespace hmonitor {

inline constexpr int kSpanishId = 10;
inline constexpr int kPortugueseId = 22;

/// The primary language: the language identifier modulo 1024.
constexpr int primaryLanguage(int languageId) {
    return languageId - languageId / 1024 * 1024;
}

/// The rack's panels keep their Spanish captions on Spanish and Portuguese systems.
constexpr display::Language panelLanguage(int languageId) {
    const int primary = primaryLanguage(languageId);
    return primary == kSpanishId || primary == kPortugueseId ? display::Language::Spanish
                                                             : display::Language::English;
}

/// The dialogs are Spanish on Spanish systems alone. That a Portuguese system has Spanish panels
/// and English dialogs is intended.
constexpr display::Language dialogLanguage(int languageId) {
    return primaryLanguage(languageId) == kSpanishId ? display::Language::Spanish
                                                     : display::Language::English;
}

}  // namespace hmonitor
