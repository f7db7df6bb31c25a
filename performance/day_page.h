// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "core/results_file.h"
#include "display/page.h"
#include "performance/day_tables.h"

namespace hmonitor {

/// What the page of a day shows besides the log's figures.
struct DayPage {
    std::string stationName;
    std::string memoryFreq;  ///< 100 kHz units: "1025.5"
    std::string day;
    std::string logo;  ///< name of a drawing
    float logoWidth = 0;
    float logoHeight = 0;
    /// The results of the tuned memory; without the file the page has neither foot nor comment.
    ResultsFile results;
    std::string comment;
};

/// The page of one day: four diagrams with the curves of eight figures over the hours, and the
/// station's results at the foot.
display::PageDocument composeDayPage(const DayPage& page, const DayTables& tables);

}  // namespace hmonitor
