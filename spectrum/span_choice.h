// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>

namespace hmonitor {

/// One span for a channel spectrum: the text of the item, the half span and the step, both in kHz
/// as text.
struct SpanChoice {
    const char* item;
    const char* halfSpan;
    const char* step;
};

inline constexpr std::array<SpanChoice, 7> kSpanChoices{{
    {"±  200Khz  (25)", "200", "25"},
    {"±  300Khz  (25)", "300", "25"},
    {"±  350Khz  (25)", "350", "25"},
    {"±  500Khz  (50)", "500", "50"},
    {"±  600Khz  (50)", "600", "50"},
    {"±  800Khz  (50)", "800", "50"},
    {"± 1000Khz  (100)", "1000", "100"},
}};

}  // namespace hmonitor
