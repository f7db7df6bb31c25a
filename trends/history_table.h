// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string_view>

#include "display/control.h"
#include "display/number_table.h"
#include "trends/history_view.h"

namespace hmonitor {

/// What is shown of a view as a table: a row for each column between two moments that is not behind
/// now, with its begin in UTC and by the clock on the wall; of each figure mean, lowest and
/// highest, known seconds and, where something is missing, why. `station` is the line that names
/// the station.
display::NumberTable historyTable(const HistoryView& view, std::int64_t fromMs, std::int64_t toMs,
                                  std::string_view station, display::Language language);

}  // namespace hmonitor
